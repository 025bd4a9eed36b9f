#include "resources/NodeColor.h"
#include "resources/ResourceImageProvider.h"
#include "resources/ResourceManager.h"
#include "resources/ThemeManager.h"
#include "resources/ThemePolicyBase.h"

#include <QImage>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Hmi::Core;

namespace {

QColor colorOf(const QString& aName)
{
    const auto node = ResourceManager::getInstance().get<NodeColor>(aName);
    return node ? node->getColor() : QColor();
}

// Loaded packages with their load counts, sorted: a switch must leave exactly one load of each.
QStringList loadedPackages()
{
    const ResourceManager& resources = ResourceManager::getInstance();
    QStringList packages;
    const QStringList loaded = resources.getLoadedResources();
    for (const QString& name : loaded) {
        packages.append(name + QLatin1Char('*') + QString::number(resources.getLoadCount(name)));
    }
    packages.sort();
    return packages;
}

class VetoPolicy final : public ThemePolicyBase
{
public:
    void initialize() override { ++mInitialized; }
    bool allowThemeChange(const QString& aTheme, const QString& aMode) override
    {
        mAsked.append(aTheme + QLatin1Char('/') + aMode);
        return aTheme != QLatin1String("Forest") && aMode != QLatin1String("night");
    }
    using ThemePolicyBase::requestMode;

    int mInitialized = 0;
    QStringList mAsked;
};

} // namespace

class tst_ThemeManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(mCache.isValid());
        ResourceManager& resources = ResourceManager::getInstance();
        resources.setPackageDirectory(QStringLiteral(HMICORE_TEST_PACKAGE_DIR));
        resources.setCacheDirectory(mCache.path());

        ThemeManager& themes = ThemeManager::getInstance();
        QSignalSpy themesChanged(&themes, &ThemeManager::themesChanged);
        QSignalSpy themeChanged(&themes, &ThemeManager::currentThemeChanged);
        QVERIFY(themes.addTheme(QFINDTESTDATA("../data/themes/ocean.xml")));
        QVERIFY(themes.addTheme(QFINDTESTDATA("../data/themes/forest.xml")));
        QCOMPARE(themesChanged.count(), 2);
        QCOMPARE(themeChanged.count(), 1);

        // The first theme added is current, in its first mode.
        QCOMPARE(themes.getThemes(), (QStringList { "Ocean", "Forest" }));
        QCOMPARE(themes.getCurrentTheme(), QStringLiteral("Ocean"));
        QCOMPARE(themes.getCurrentMode(), QStringLiteral("day"));
        QCOMPARE(loadedPackages(), (QStringList { "ocean.rcc*1", "ocean_day.rcc*1" }));
    }

    void init()
    {
        QVERIFY(ThemeManager::getInstance().activate(QStringLiteral("Ocean"), QStringLiteral("day")));
    }

    void addThemeRefused_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("warning");

        const QString ocean = QFINDTESTDATA("../data/themes/ocean.xml");
        QTest::newRow("name already known")
            << ocean
            << QStringLiteral("WARNING: Theme Ocean from %1 is already known; the file is ignored.")
                   .arg(ocean);
        QTest::newRow("missing file") << "missing.xml"
                                      << "WARNING: Theme file missing.xml could not be opened.";
    }

    void addThemeRefused()
    {
        QFETCH(QString, path);
        QFETCH(QString, warning);
        ThemeManager& themes = ThemeManager::getInstance();
        QSignalSpy themesChanged(&themes, &ThemeManager::themesChanged);

        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        QVERIFY(!themes.addTheme(path));
        QCOMPARE(themesChanged.count(), 0);
        QCOMPARE(themes.getThemes(), (QStringList { "Ocean", "Forest" }));
        QCOMPARE(themes.getCurrentTheme(), QStringLiteral("Ocean"));
    }

    void switching_data()
    {
        QTest::addColumn<QString>("startTheme");
        QTest::addColumn<QString>("startMode");
        QTest::addColumn<QString>("theme"); // empty: switch the mode only
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("expectedMode");
        QTest::addColumn<QColor>("background");
        QTest::addColumn<QStringList>("packages");
        QTest::addColumn<QList<int>>("signalCounts"); // currentTheme, modes, currentMode
        QTest::addColumn<QString>("warning"); // set: the switch is refused

        const QColor oceanDay(0xe0, 0xf0, 0xff);
        const QStringList oceanDayPackages { "ocean.rcc*1", "ocean_day.rcc*1" };
        const QList<int> none { 0, 0, 0 };
        // clang-format off
        QTest::newRow("mode") << "Ocean" << "day" << QString() << "night" << "night" << QColor(0x00, 0x10, 0x20)
            << QStringList { "ocean.rcc*1", "ocean_night.rcc*1" } << QList<int> { 0, 0, 1 } << QString();
        QTest::newRow("same mode") << "Ocean" << "night" << QString() << "night" << "night" << QColor(0x00, 0x10, 0x20)
            << QStringList { "ocean.rcc*1", "ocean_night.rcc*1" } << none << QString();
        QTest::newRow("mode without packages") << "Forest" << "day" << QString() << "contrast" << "contrast"
            << QColor(0x20, 0x60, 0x20) << QStringList { "forest.rcc*1" } << QList<int> { 0, 0, 1 } << QString();
        QTest::newRow("theme, first mode has the same name") << "Ocean" << "day" << "Forest" << QString() << "day"
            << QColor(0xc0, 0xe0, 0xc0) << QStringList { "forest.rcc*1", "forest_day.rcc*1" } << QList<int> { 1, 1, 0 }
            << QString();
        QTest::newRow("theme, back to its first mode") << "Forest" << "night" << "Ocean" << QString() << "day"
            << oceanDay << oceanDayPackages << QList<int> { 1, 1, 1 } << QString();
        QTest::newRow("unknown theme") << "Ocean" << "day" << "Desert" << QString() << "day" << oceanDay
            << oceanDayPackages << none << "WARNING: Theme Desert does not exist.";
        QTest::newRow("mode of another theme") << "Ocean" << "day" << QString() << "contrast" << "day" << oceanDay
            << oceanDayPackages << none << "WARNING: Theme Ocean has no mode contrast.";
        QTest::newRow("mode name is case-sensitive") << "Ocean" << "day" << QString() << "Night" << "day" << oceanDay
            << oceanDayPackages << none << "WARNING: Theme Ocean has no mode Night.";
        // clang-format on
    }

    void switching()
    {
        QFETCH(QString, startTheme);
        QFETCH(QString, startMode);
        QFETCH(QString, theme);
        QFETCH(QString, mode);
        QFETCH(QString, expectedMode);
        QFETCH(QColor, background);
        QFETCH(QStringList, packages);
        QFETCH(QList<int>, signalCounts);
        QFETCH(QString, warning);
        ThemeManager& themes = ThemeManager::getInstance();
        QVERIFY(themes.activate(startTheme, startMode));
        QSignalSpy themeChanged(&themes, &ThemeManager::currentThemeChanged);
        QSignalSpy modesChanged(&themes, &ThemeManager::modesChanged);
        QSignalSpy modeChanged(&themes, &ThemeManager::currentModeChanged);
        QSignalSpy resourceChanged(&ResourceManager::getInstance(), &ResourceManager::resourceChanged);

        if (!warning.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        }
        QCOMPARE(
            theme.isEmpty() ? themes.setCurrentMode(mode) : themes.setCurrentTheme(theme), warning.isEmpty());
        QCOMPARE(themes.getCurrentTheme(), theme.isEmpty() || !warning.isEmpty() ? startTheme : theme);
        QCOMPARE(themes.getCurrentMode(), expectedMode);
        QCOMPARE(colorOf(QStringLiteral("background")), background);
        QCOMPARE(loadedPackages(), packages);
        QCOMPARE(
            (QList<int> { themeChanged.count(), modesChanged.count(), modeChanged.count() }), signalCounts);
        if (!warning.isEmpty()) {
            QCOMPARE(resourceChanged.count(), 0);
        }
    }

    void newPackagesBeforeOld_data()
    {
        QTest::addColumn<QString>("theme");
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QColor>("background");

        QTest::newRow("theme") << "Forest" << QString() << QColor(0xc0, 0xe0, 0xc0);
        QTest::newRow("mode") << "Ocean"
                              << "night" << QColor(0x00, 0x10, 0x20);
    }

    void newPackagesBeforeOld()
    {
        QFETCH(QString, theme);
        QFETCH(QString, mode);
        QFETCH(QColor, background);
        const QString before = colorOf(QStringLiteral("background")).name();

        // Handles re-read on every resourceChanged(). Of the names that the old and the new side
        // both define, no read may come back empty, nor show a value that is neither old nor new.
        QStringList seen;
        const auto connection
            = connect(&ResourceManager::getInstance(), &ResourceManager::resourceChanged, this, [&] {
                  const bool complete = colorOf(QStringLiteral("accent")).isValid()
                      && colorOf(QStringLiteral("text")).isValid();
                  seen << colorOf(QStringLiteral("background")).name() + (complete ? "" : " with gaps");
              });
        const bool switched = ThemeManager::getInstance().activate(theme, mode);
        disconnect(connection);

        QVERIFY(switched);
        QVERIFY(!seen.isEmpty());
        for (const QString& state : qAsConst(seen)) {
            QVERIFY2(state == before || state == background.name(), qPrintable(state));
        }
        // The last notification must already see the finished switch.
        QCOMPARE(seen.last(), background.name());
    }

    void policyVeto()
    {
        ThemeManager& themes = ThemeManager::getInstance();
        QPointer<VetoPolicy> policy = new VetoPolicy;
        themes.setThemePolicy(policy);
        QCOMPARE(policy->mInitialized, 1);
        QSignalSpy themeChanged(&themes, &ThemeManager::currentThemeChanged);
        QSignalSpy modeChanged(&themes, &ThemeManager::currentModeChanged);
        QSignalSpy resourceChanged(&ResourceManager::getInstance(), &ResourceManager::resourceChanged);

        QVERIFY(!themes.setCurrentTheme(QStringLiteral("Forest")));
        QVERIFY(!themes.setCurrentMode(QStringLiteral("night")));
        QCOMPARE(policy->mAsked, (QStringList { "Forest/", "Ocean/night" }));
        QCOMPARE(themes.getCurrentTheme(), QStringLiteral("Ocean"));
        QCOMPARE(themes.getCurrentMode(), QStringLiteral("day"));
        QCOMPARE(themeChanged.count() + modeChanged.count() + resourceChanged.count(), 0);

        // The policy itself is not subject to its own veto.
        QVERIFY(policy->requestMode(QStringLiteral("night")));
        QCOMPARE(themes.getCurrentMode(), QStringLiteral("night"));
        QCOMPARE(modeChanged.count(), 1);
        QCOMPARE(policy->mAsked.size(), 2);

        themes.setThemePolicy(nullptr);
        QVERIFY(!policy);
        QVERIFY(themes.setCurrentTheme(QStringLiteral("Forest")));
    }

    void imageProvider_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QSize>("requested");
        QTest::addColumn<QSize>("expected");

        QTest::newRow("image node") << "logo" << QSize() << QSize(4, 4);
        QTest::newRow("rectangle node") << "panel" << QSize() << QSize(4, 4);
        QTest::newRow("reload suffix") << "logo?2" << QSize() << QSize(4, 4);
        QTest::newRow("both dimensions") << "logo" << QSize(8, 2) << QSize(8, 2);
        QTest::newRow("width keeps aspect") << "logo" << QSize(8, 0) << QSize(8, 8);
        QTest::newRow("height keeps aspect") << "logo" << QSize(-1, 12) << QSize(12, 12);
        QTest::newRow("unknown name") << "nothing" << QSize() << QSize();
        QTest::newRow("node without image") << "background" << QSize() << QSize();
    }

    void imageProvider()
    {
        QFETCH(QString, id);
        QFETCH(QSize, requested);
        QFETCH(QSize, expected);
        ResourceImageProvider provider;
        QSize size;

        if (expected.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg,
                qPrintable(QStringLiteral("WARNING: resourceImageProvider has no image named ") + id));
            QVERIFY(provider.requestImage(id, &size, requested).isNull());
            return;
        }
        const QImage image = provider.requestImage(id, &size, requested);
        QCOMPARE(image.size(), expected);
        QCOMPARE(size, QSize(4, 4));
        QCOMPARE(image.pixelColor(expected.width() - 1, expected.height() - 1), QColor(0x12, 0x34, 0x56));
    }

private:
    QTemporaryDir mCache;
};

QTEST_MAIN(tst_ThemeManager)
#include "tst_thememanager.moc"
