#include "resources/NodeColor.h"
#include "resources/NodeImage.h"
#include "resources/ResourceManager.h"
#include "resources/ThemeManager.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

using namespace Hmi::Core;

namespace {

constexpr int sReaders = 4;
constexpr qint64 sSwitchingMs = 2000;

// Every value the fixture packages give these names; a torn or mixed-up node shows up as none.
const QVector<QRgb> sBackgrounds { 0xff004080, 0xffe0f0ff, 0xff001020, 0xff206020, 0xffc0e0c0, 0xff102010,
    0xffff00ff };
const QVector<QRgb> sAccents { 0xff0080c0, 0xff40a040 };

// Reader threads cannot use QVERIFY; they collect here and the main thread reports after join().
struct Failures
{
    void add(const QString& aFailure)
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (++count <= 5) {
            first.append(aFailure);
        }
    }
    std::mutex mutex;
    QStringList first;
    int count = 0;
};

void checkColor(const QString& aName, const QVector<QRgb>& aLegal, Failures& aFailures)
{
    // get<>() casts statically; the dynamic cast checks the kind that the table really held.
    const auto node = ResourceManager::getInstance().get<NodeColor>(aName);
    const auto* color = dynamic_cast<const NodeColor*>(static_cast<const Node*>(node.data()));
    if (!color) {
        aFailures.add(aName + (node ? QStringLiteral(" is not a colour") : QStringLiteral(" is missing")));
    } else if (color->getName() != aName || !aLegal.contains(color->getColor().rgba())) {
        aFailures.add(
            aName + QStringLiteral(" is ") + color->getName() + QLatin1Char('=') + color->getColorCss());
    }
}

void checkLogo(Failures& aFailures)
{
    const auto node = ResourceManager::getInstance().get<NodeImage>(QStringLiteral("logo"));
    const auto* image = dynamic_cast<const NodeImage*>(static_cast<const Node*>(node.data()));
    if (!image) {
        aFailures.add(node ? QStringLiteral("logo is not an image") : QStringLiteral("logo is missing"));
    } else if (image->getName() != QLatin1String("logo") || image->getSourceSize() != QSize(4, 4)
        || !image->getSource().path().endsWith(QLatin1String("/logo.png"))) {
        aFailures.add(QStringLiteral("logo is torn: ") + image->getSource().toString());
    }
}

} // namespace

class tst_ResourceStress : public QObject
{
    Q_OBJECT

private slots:
    void lookupsWhileSwitching()
    {
        QTemporaryDir cache;
        QVERIFY(cache.isValid());
        // Both singletons are made here, on the main thread, before any reader starts.
        ResourceManager& resources = ResourceManager::getInstance();
        resources.setPackageDirectory(QStringLiteral(HMICORE_TEST_PACKAGE_DIR));
        resources.setCacheDirectory(cache.path());
        ThemeManager& themes = ThemeManager::getInstance();
        QVERIFY(themes.addTheme(QFINDTESTDATA("../data/themes/ocean.xml")));
        QVERIFY(themes.addTheme(QFINDTESTDATA("../data/themes/forest.xml")));

        std::atomic<bool> stop { false };
        Failures failures;
        std::vector<long> lookups(sReaders, 0);
        std::vector<std::thread> readers;
        for (int i = 0; i < sReaders; ++i) {
            readers.emplace_back([&, i] {
                while (!stop.load(std::memory_order_relaxed)) {
                    checkColor(QStringLiteral("background"), sBackgrounds, failures);
                    checkColor(QStringLiteral("accent"), sAccents, failures);
                    checkLogo(failures);
                    const QString theme = themes.getCurrentTheme();
                    if (theme != QLatin1String("Ocean") && theme != QLatin1String("Forest")) {
                        failures.add(QStringLiteral("current theme is ") + theme);
                    }
                    ++lookups[size_t(i)];
                }
            });
        }

        // Every state, and every step between two states, keeps one package per name above loaded.
        const QList<QPair<QString, QString>> states { { "Ocean", "night" }, { "Forest", "day" },
            { "Forest", "contrast" }, { "Ocean", "day" }, { "Forest", "night" } };
        const QString extras = QStringLiteral("extras.rcc");
        QElapsedTimer timer;
        timer.start();
        int switches = 0;
        while (timer.elapsed() < sSwitchingMs) {
            const auto& state = states.at(switches % states.size());
            if (!themes.activate(state.first, state.second)) {
                failures.add(QStringLiteral("switch to %1/%2 failed").arg(state.first, state.second));
            }
            if (switches % 3 == 0) {
                resources.loadResource(extras);
                resources.setSearchOrder(QStringList { extras } + resources.getSearchOrder());
            } else if (switches % 3 == 2) {
                resources.unloadResource(extras);
            }
            ++switches;
        }
        stop = true;
        for (std::thread& reader : readers) {
            reader.join();
        }

        QVERIFY2(failures.count == 0, qPrintable(failures.first.join(QStringLiteral("; "))));
        QVERIFY2(switches >= 20, qPrintable(QString::number(switches)));
        for (const long count : lookups) {
            QVERIFY2(count >= 20, qPrintable(QString::number(count)));
        }
        qInfo("%d switches, %ld lookups per reader", switches, lookups.front());
    }
};

QTEST_GUILESS_MAIN(tst_ResourceStress)
#include "tst_resourcestress.moc"
