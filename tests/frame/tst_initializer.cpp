#include "frame/ConfigManager.h"
#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "frame/HmiCoreInitializer.h"
#include "frame/PerfEventPolicyBase.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QStyleHints>
#include <QTemporaryDir>
#include <QtTest>

using namespace Hmi::Core;

namespace {

class RecordingPerfPolicy final : public PerfEventPolicyBase
{
public:
    void raiseEvent(const QString& aEventName) override { mEvents << aEventName; }
    QStringList mEvents;
};

const QStringList sConfigureEvents {
    "Hmi/Core/configureStart",
    "Hmi/Core/configureEnd",
    "Hmi/Core/loadResourcesStart",
    "Hmi/Core/loadThemesStart",
    "Hmi/Core/loadThemesEnd",
    "Hmi/Core/loadLanguagesStart",
    "Hmi/Core/loadLanguagesEnd",
    "Hmi/Core/loadKeyboardsStart",
    "Hmi/Core/loadKeyboardsEnd",
    "Hmi/Core/loadResourcesEnd",
};

bool writeFile(const QString& aPath, const QByteArray& aContent)
{
    QFile file(aPath);
    return file.open(QIODevice::WriteOnly) && file.write(aContent) == aContent.size();
}

} // namespace

// One start-up per process: the first configure() fixes the configuration for every later slot.
class tst_Initializer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setApplicationName(QStringLiteral("hmiinit"));
        QVERIFY(mDir.isValid());
        QVERIFY(QDir(mDir.path()).mkdir(QStringLiteral("themes")));
        QVERIFY(writeFile(mDir.filePath(QStringLiteral("start.ini")),
            "[HmiCore]\n"
            "ThemesPath=themes\n"
            "AlphaChannelEnabled=true\n"
            "TouchDragStartDistance=23\n"
            "IntervalPressAndHold=1234\n"
            "FontFamilyDefault=%%Family%% Sans\n"));
    }

    void configureRaisesEveryPhase()
    {
        expectNoThemes();
        HmiCoreInitializer(mPolicy).configure(mDir.filePath(QStringLiteral("start.ini")),
            { { QStringLiteral("Family"), QStringLiteral("Hmi Test") } });

        QCOMPARE(mPolicy->mEvents,
            QStringList({ "Hmi/Core/loadConfigStart", "Hmi/Core/loadConfigEnd" }) + sConfigureEvents);
        QCOMPARE(HmiCoreGlobal::getInstance().getPerformanceEventPolicy(), mPolicy.data());
    }

    void configurationIsApplied()
    {
        const HmiCoreGlobal& global = HmiCoreGlobal::getInstance();
        QCOMPARE(global.configs()->getThemesPath(), mDir.filePath(QStringLiteral("themes")));

        QVERIFY(QQuickWindow::hasDefaultAlphaBuffer());
        QCOMPARE(QGuiApplication::styleHints()->startDragDistance(), 23);
        QCOMPARE(QGuiApplication::styleHints()->mousePressAndHoldInterval(), 1234);
        QCOMPARE(global.getTouchStartDragDistance(), 23);
        QCOMPARE(global.getTouchPressAndHoldInterval(), 1234);
        // The placeholder given to configure() was filled into the ini value.
        QCOMPARE(QGuiApplication::font().family(), QStringLiteral("Hmi Test Sans"));
    }

    void secondConfigureKeepsTheLoadedConfiguration()
    {
        // Were the default file read now, this one in the working directory would be it.
        const QString previous = QDir::currentPath();
        QVERIFY(QDir::setCurrent(mDir.path()));
        QVERIFY(writeFile(mDir.filePath(QStringLiteral("hmiinit.ini")), "[Test]\nMarker=read\n"));

        mPolicy->mEvents.clear();
        expectNoThemes();
        HmiCoreInitializer(mPolicy).configure();
        QDir::setCurrent(previous);

        QCOMPARE(ConfigManager::getInstance().getConfig(QStringLiteral("Test/Marker")), QVariant());
        QCOMPARE(mPolicy->mEvents, sConfigureEvents);
    }

    void themeFilesEndInLowerCaseXml()
    {
        const QDir themes(mDir.filePath(QStringLiteral("themes")));
        QVERIFY(writeFile(themes.filePath(QStringLiteral("Day.XML")), "<theme/>"));
        QVERIFY(writeFile(themes.filePath(QStringLiteral("night.xml.bak")), "<theme/>"));
        QVERIFY(themes.mkpath(QStringLiteral("sub")));
        QVERIFY(writeFile(themes.filePath(QStringLiteral("sub/dusk.xml")), "<theme/>"));

        mPolicy->mEvents.clear();
        expectNoThemes();
        HmiCoreInitializer().configure();

        // Events go to the initializer's own policy only; the global object keeps the one it had.
        QVERIFY(mPolicy->mEvents.isEmpty());
        QCOMPARE(HmiCoreGlobal::getInstance().getPerformanceEventPolicy(), mPolicy.data());
    }

private:
    void expectNoThemes()
    {
        QTest::ignoreMessage(QtWarningMsg,
            qPrintable(QStringLiteral("WARNING: No hmi themes found in ")
                + mDir.filePath(QStringLiteral("themes"))));
    }

    QTemporaryDir mDir;
    QSharedPointer<RecordingPerfPolicy> mPolicy = QSharedPointer<RecordingPerfPolicy>::create();
};

QTEST_MAIN(tst_Initializer)

#include "tst_initializer.moc"
