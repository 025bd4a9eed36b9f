#include "frame/ConfigManager.h"
#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "frame/HmiCoreInitializer.h"

#include <QFileInfo>
#include <QtTest>

using Hmi::Core::ConfigManager;
using Hmi::Core::HmiCoreConfigs;
using Hmi::Core::HmiCoreGlobal;
using Hmi::Core::HmiCoreInitializer;

using SizeList = QList<QSize>;

namespace {

QString iniDirectory()
{
    return QFileInfo(QFINDTESTDATA("../data/frame/derived/derived.ini")).absolutePath() + QLatin1Char('/');
}

} // namespace

// The ini file is read before anything builds the global object, as at a real start-up, so the
// defaults derive from the configured prefix and local-state directory.
class tst_DerivedDefaults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setApplicationName(QStringLiteral("hmiapp"));
        QMetaType::registerEqualsComparator<SizeList>();

        const QString ini = QFINDTESTDATA("../data/frame/derived/derived.ini");
        QVERIFY(!ini.isEmpty());
        HmiCoreInitializer().loadConfig(ini, {});
        mConfigs = HmiCoreGlobal::getInstance().configs();
        QVERIFY(mConfigs);
    }

    void valuesFollowTheFile_data()
    {
        QTest::addColumn<HmiCoreConfigs::Key>("key");
        QTest::addColumn<QVariant>("expected");

        const QString dir = iniDirectory();
        auto row = [](HmiCoreConfigs::Key aKey, const QVariant& aExpected) {
            QTest::newRow(qPrintable(HmiCoreConfigs::getKeyName(aKey))) << aKey << aExpected;
        };
        // Set in the file, relative, so resolved against the file's directory.
        row(HmiCoreConfigs::GnuPrefix, dir + "opt/app");
        row(HmiCoreConfigs::GnuLocalstatedir, dir + "state");
        // Derived from the configured prefix.
        row(HmiCoreConfigs::GnuBindir, dir + "opt/app/bin");
        // Derived from the datadir, itself derived from the prefix. tst_hmicoreconfigs checks
        // every derived default against the built-in prefix.
        row(HmiCoreConfigs::ThemesPath, dir + "opt/app/share/hmiapp/themes");
        // Derived from the configured localstatedir, not from the prefix.
        row(HmiCoreConfigs::ResourceCachePath, dir + "state/hmiapp/resource_cache/");
        // Ini values are text; the getters convert them.
        row(HmiCoreConfigs::AlphaChannelEnabled, true);
        row(HmiCoreConfigs::IntervalPressAndHold, 1500);
        row(HmiCoreConfigs::SuggestionsUserWordsLimit, 42u);
        row(HmiCoreConfigs::PrimaryDisplayResolution,
            QVariant::fromValue(SizeList { { 800, 480 }, { 1280, 720 } }));
        row(HmiCoreConfigs::WindowState, int(Qt::WindowFullScreen));
    }

    void valuesFollowTheFile()
    {
        QFETCH(HmiCoreConfigs::Key, key);
        QFETCH(QVariant, expected);

        QCOMPARE(mConfigs->getValue(key), expected);
    }

    void readValuesAreCached()
    {
        const QString dir = iniDirectory();
        ConfigManager& config = ConfigManager::getInstance();
        QVERIFY(config.addConfig(QFINDTESTDATA("../data/frame/derived/later.ini")));
        QCOMPARE(
            config.getConfig(QStringLiteral("HmiCore/GnuPrefix")), QVariant(QStringLiteral("/elsewhere")));

        QCOMPARE(mConfigs->getGnuPrefix(), QString(dir + "opt/app"));
        QCOMPARE(mConfigs->getThemesPath(), QString(dir + "opt/app/share/hmiapp/themes"));
        QCOMPARE(mConfigs->getIntervalPressAndHold(), 1500);
        // The global object keeps the one configs object it built.
        QCOMPARE(HmiCoreGlobal::getInstance().configs(), mConfigs);
    }

private:
    HmiCoreConfigs* mConfigs = nullptr;
};

QTEST_GUILESS_MAIN(tst_DerivedDefaults)

#include "tst_deriveddefaults.moc"
