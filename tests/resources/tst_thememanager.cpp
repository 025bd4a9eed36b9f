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
    void initTestCase();
    void init();

    void addThemeRefused_data();
    void addThemeRefused();
    void switching_data();
    void switching();
    void refused_data();
    void refused();
    void newPackagesBeforeOld_data();
    void newPackagesBeforeOld();
    void policyVeto();
    void imageProvider_data();
    void imageProvider();

private:
    QTemporaryDir mCache;
};

void tst_ThemeManager::initTestCase()
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
    QCOMPARE(themes.getModes(), (QStringList { "day", "night" }));
    QCOMPARE(themes.getCurrentMode(), QStringLiteral("day"));
    QCOMPARE(colorOf(QStringLiteral("background")), QColor(0xe0, 0xf0, 0xff));
    QCOMPARE(loadedPackages(), (QStringList { "ocean.rcc*1", "ocean_day.rcc*1" }));
}

void tst_ThemeManager::init()
{
    QVERIFY(ThemeManager::getInstance().activate(QStringLiteral("Ocean"), QStringLiteral("day")));
}

void tst_ThemeManager::addThemeRefused_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("warning");

    const QString ocean = QFINDTESTDATA("../data/themes/ocean.xml");
    QTest::newRow("name already known")
        << ocean
        << QStringLiteral("WARNING: Theme Ocean from %1 is already known; the file is ignored.").arg(ocean);
    QTest::newRow("missing file") << "missing.xml"
                                  << "WARNING: Theme file missing.xml could not be opened.";
}

void tst_ThemeManager::addThemeRefused()
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

void tst_ThemeManager::switching_data()
{
    QTest::addColumn<QString>("startTheme");
    QTest::addColumn<QString>("startMode");
    QTest::addColumn<QString>("theme"); // empty: switch the mode only
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("expectedMode");
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QStringList>("packages");
    QTest::addColumn<QList<int>>("signalCounts"); // currentTheme, modes, currentMode

    // clang-format off
    QTest::newRow("mode") << "Ocean" << "day" << QString() << "night" << "night" << QColor(0x00, 0x10, 0x20)
        << QStringList { "ocean.rcc*1", "ocean_night.rcc*1" } << QList<int> { 0, 0, 1 };
    QTest::newRow("same mode") << "Ocean" << "night" << QString() << "night" << "night" << QColor(0x00, 0x10, 0x20)
        << QStringList { "ocean.rcc*1", "ocean_night.rcc*1" } << QList<int> { 0, 0, 0 };
    QTest::newRow("mode without packages") << "Forest" << "day" << QString() << "contrast" << "contrast"
        << QColor(0x20, 0x60, 0x20) << QStringList { "forest.rcc*1" } << QList<int> { 0, 0, 1 };
    QTest::newRow("theme, first mode has the same name") << "Ocean" << "day" << "Forest" << QString() << "day"
        << QColor(0xc0, 0xe0, 0xc0) << QStringList { "forest.rcc*1", "forest_day.rcc*1" } << QList<int> { 1, 1, 0 };
    QTest::newRow("theme, back to its first mode") << "Forest" << "night" << "Ocean" << QString() << "day"
        << QColor(0xe0, 0xf0, 0xff) << QStringList { "ocean.rcc*1", "ocean_day.rcc*1" } << QList<int> { 1, 1, 1 };
    // clang-format on
}

void tst_ThemeManager::switching()
{
    QFETCH(QString, startTheme);
    QFETCH(QString, startMode);
    QFETCH(QString, theme);
    QFETCH(QString, mode);
    QFETCH(QString, expectedMode);
    QFETCH(QColor, background);
    QFETCH(QStringList, packages);
    QFETCH(QList<int>, signalCounts);
    ThemeManager& themes = ThemeManager::getInstance();
    QVERIFY(themes.activate(startTheme, startMode));
    QSignalSpy themeChanged(&themes, &ThemeManager::currentThemeChanged);
    QSignalSpy modesChanged(&themes, &ThemeManager::modesChanged);
    QSignalSpy modeChanged(&themes, &ThemeManager::currentModeChanged);

    QVERIFY(theme.isEmpty() ? themes.setCurrentMode(mode) : themes.setCurrentTheme(theme));
    QCOMPARE(themes.getCurrentTheme(), theme.isEmpty() ? startTheme : theme);
    QCOMPARE(themes.getCurrentMode(), expectedMode);
    QCOMPARE(colorOf(QStringLiteral("background")), background);
    QCOMPARE(loadedPackages(), packages);
    QCOMPARE((QList<int> { themeChanged.count(), modesChanged.count(), modeChanged.count() }), signalCounts);
}

void tst_ThemeManager::refused_data()
{
    QTest::addColumn<QString>("theme"); // empty: switch the mode only
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("warning");

    // clang-format off
    QTest::newRow("unknown theme") << "Desert" << QString() << "WARNING: Theme Desert does not exist.";
    QTest::newRow("unknown mode") << QString() << "dusk" << "WARNING: Theme Ocean has no mode dusk.";
    QTest::newRow("mode of another theme") << QString() << "contrast" << "WARNING: Theme Ocean has no mode contrast.";
    QTest::newRow("mode name is case-sensitive") << QString() << "Night" << "WARNING: Theme Ocean has no mode Night.";
    // clang-format on
}

void tst_ThemeManager::refused()
{
    QFETCH(QString, theme);
    QFETCH(QString, mode);
    QFETCH(QString, warning);
    ThemeManager& themes = ThemeManager::getInstance();
    QSignalSpy themeChanged(&themes, &ThemeManager::currentThemeChanged);
    QSignalSpy modesChanged(&themes, &ThemeManager::modesChanged);
    QSignalSpy modeChanged(&themes, &ThemeManager::currentModeChanged);
    QSignalSpy resourceChanged(&ResourceManager::getInstance(), &ResourceManager::resourceChanged);
    const QStringList packages = loadedPackages();

    QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    QVERIFY(!(theme.isEmpty() ? themes.setCurrentMode(mode) : themes.setCurrentTheme(theme)));
    QCOMPARE(themes.getCurrentTheme(), QStringLiteral("Ocean"));
    QCOMPARE(themes.getCurrentMode(), QStringLiteral("day"));
    QCOMPARE(loadedPackages(), packages);
    QCOMPARE(themeChanged.count() + modesChanged.count() + modeChanged.count() + resourceChanged.count(), 0);
}

void tst_ThemeManager::newPackagesBeforeOld_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QColor>("background");

    QTest::newRow("theme") << "Forest" << QString() << QColor(0xc0, 0xe0, 0xc0);
    QTest::newRow("mode") << "Ocean"
                          << "night" << QColor(0x00, 0x10, 0x20);
}

void tst_ThemeManager::newPackagesBeforeOld()
{
    QFETCH(QString, theme);
    QFETCH(QString, mode);
    QFETCH(QColor, background);
    // Names that the old and the new side both define.
    const QStringList shared { QStringLiteral("background"), QStringLiteral("accent"),
        QStringLiteral("text") };
    const QColor before = colorOf(QStringLiteral("background"));

    // Handles re-read on every resourceChanged(): no read may come back empty, nor show a value
    // that is neither the old nor the new one.
    QStringList missing;
    QList<QColor> seen;
    const auto connection
        = connect(&ResourceManager::getInstance(), &ResourceManager::resourceChanged, this, [&] {
              for (const QString& name : qAsConst(shared)) {
                  if (!colorOf(name).isValid()) {
                      missing.append(QString::number(seen.size()) + QLatin1Char(':') + name);
                  }
              }
              seen.append(colorOf(QStringLiteral("background")));
          });
    const bool switched = ThemeManager::getInstance().activate(theme, mode);
    disconnect(connection);

    QVERIFY(switched);
    QCOMPARE(missing, QStringList());
    QVERIFY(!seen.isEmpty());
    for (const QColor& color : qAsConst(seen)) {
        QVERIFY2(color == before || color == background, qPrintable(color.name()));
    }
    // The last notification must already see the finished switch.
    QCOMPARE(seen.last(), background);
}

void tst_ThemeManager::policyVeto()
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

void tst_ThemeManager::imageProvider_data()
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

void tst_ThemeManager::imageProvider()
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

QTEST_MAIN(tst_ThemeManager)
#include "tst_thememanager.moc"
