#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "frame/HmiCoreInitializer.h"

#include <QMetaMethod>
#include <QtTest>

using Hmi::Core::HmiCoreConfigs;
using Hmi::Core::HmiCoreGlobal;
using Hmi::Core::HmiCoreInitializer;

using SizeList = QList<QSize>;

namespace {

// Calls a typed getter by name, the way QML does, so that a getter wired to the wrong key shows.
QVariant callGetter(QObject* aObject, const QByteArray& aGetter)
{
    const QMetaObject* meta = aObject->metaObject();
    const int index = meta->indexOfMethod(aGetter + "()");
    if (index < 0) {
        return {};
    }
    const QMetaMethod method = meta->method(index);
    QVariant result(method.returnType(), nullptr);
    method.invoke(aObject, Qt::DirectConnection, QGenericReturnArgument(method.typeName(), result.data()));
    return result;
}

} // namespace

class tst_HmiCoreConfigs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The application name goes into the derived defaults, and into the default ini file name.
        QCoreApplication::setApplicationName(QStringLiteral("hmiapp"));
        QMetaType::registerEqualsComparator<SizeList>();

        QTest::ignoreMessage(QtWarningMsg,
            "WARNING: The config file, hmiapp.ini, could not be loaded because it does not exist.");
        HmiCoreInitializer().loadConfig(QString(), {});
    }

    void defaults_data()
    {
        QTest::addColumn<QByteArray>("getter");
        QTest::addColumn<HmiCoreConfigs::Key>("key");
        QTest::addColumn<bool>("isPath");
        QTest::addColumn<QVariant>("expected");

        auto row
            = [](const char* aGetter, HmiCoreConfigs::Key aKey, bool aIsPath, const QVariant& aExpected) {
                  QTest::newRow(aGetter) << QByteArray(aGetter) << aKey << aIsPath << aExpected;
              };
        // Defaults are relative paths and stay so: only values read from a file are resolved.
        row("getAlphaChannelEnabled", HmiCoreConfigs::AlphaChannelEnabled, false, false);
        row("getFontFamilyDefault", HmiCoreConfigs::FontFamilyDefault, false, "Open Sans");
        row("getGnuPrefix", HmiCoreConfigs::GnuPrefix, true, "usr/local");
        row("getGnuBindir", HmiCoreConfigs::GnuBindir, true, "usr/local/bin");
        row("getGnuLibdir", HmiCoreConfigs::GnuLibdir, true, "usr/local/lib");
        row("getGnuLocalstatedir", HmiCoreConfigs::GnuLocalstatedir, true, "usr/local/var");
        row("getGnuSysconfdir", HmiCoreConfigs::GnuSysconfdir, true, "usr/local/etc");
        row("getGnuDatadir", HmiCoreConfigs::GnuDatadir, true, "usr/local/share");
        row("getKeyboardsPath", HmiCoreConfigs::KeyboardsPath, true, "usr/local/share/hmiapp/keyboards");
        row("getLanguagesPath", HmiCoreConfigs::LanguagesPath, true, "usr/local/share/hmiapp/languages");
        row("getSuggestionsPath", HmiCoreConfigs::SuggestionsPath, true,
            "usr/local/share/hmiapp/suggestions");
        row("getThemesPath", HmiCoreConfigs::ThemesPath, true, "usr/local/share/hmiapp/themes");
        row("getStringDatabaseName", HmiCoreConfigs::StringDatabaseName, true,
            "usr/local/var/hmiapp_strings.db");
        row("getResourceCachePath", HmiCoreConfigs::ResourceCachePath, true,
            "usr/local/var/hmiapp/resource_cache/");
        row("getHighlightSystemEnabled", HmiCoreConfigs::HighlightSystemEnabled, false, false);
        row("getIntervalPressAndHold", HmiCoreConfigs::IntervalPressAndHold, false, 800);
        row("getItemIdentifierEnabled", HmiCoreConfigs::ItemIdentifierEnabled, false, false);
        row("getPrimaryDisplayIndex", HmiCoreConfigs::PrimaryDisplayIndex, false, 0);
        row("getSecondaryDisplayIndex", HmiCoreConfigs::SecondaryDisplayIndex, false, 1);
        row("getPrimaryDisplayResolution", HmiCoreConfigs::PrimaryDisplayResolution, false,
            QVariant::fromValue(SizeList()));
        row("getSecondaryDisplayResolution", HmiCoreConfigs::SecondaryDisplayResolution, false,
            QVariant::fromValue(SizeList()));
        row("getSuggestionsUserWordsLimit", HmiCoreConfigs::SuggestionsUserWordsLimit, false, 2000u);
        row("getTouchDragStartDistance", HmiCoreConfigs::TouchDragStartDistance, false, 10);
        row("getUseSecondaryDisplay", HmiCoreConfigs::UseSecondaryDisplay, false, false);
        row("getWindowState", HmiCoreConfigs::WindowState, false, int(Qt::WindowNoState));
        row("getWindowStaysOnTopHint", HmiCoreConfigs::WindowStaysOnTopHint, false, false);
    }

    void defaults()
    {
        QFETCH(QByteArray, getter);
        QFETCH(HmiCoreConfigs::Key, key);
        QFETCH(bool, isPath);
        QFETCH(QVariant, expected);

        // The getters are named after their keys, so this catches a misspelt key, which would
        // silently ignore what the ini file says.
        QCOMPARE(HmiCoreConfigs::getKeyName(key), QString(QStringLiteral("HmiCore/") + getter.mid(3)));
        QCOMPARE(HmiCoreConfigs::isPathKey(key), isPath);

        HmiCoreConfigs* configs = HmiCoreGlobal::getInstance().configs();
        QCOMPARE(callGetter(configs, getter), expected);
    }

    void parseResolutionList_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<SizeList>("expected");
        QTest::addColumn<QString>("invalidPart");

        const QSize vga(800, 480);
        const QSize hd(1280, 720);
        QTest::newRow("empty") << "" << SizeList() << "";
        QTest::newRow("two") << "800x480 1280x720" << SizeList { vga, hd } << "";
        QTest::newRow("extra blanks") << "  800x480 \t 1280x720  " << SizeList { vga, hd } << "";
        QTest::newRow("empty pieces are dropped") << "800xx480" << SizeList { vga } << "";
        QTest::newRow("missing height stops the list")
            << "800x480 800x 1280x720" << SizeList { vga } << "800x";
        QTest::newRow("not numbers") << "axb 800x480" << SizeList() << "axb";
        QTest::newRow("three pieces") << "800x480x3" << SizeList() << "800x480x3";
        QTest::newRow("capital X") << "1280x720 800X480" << SizeList { hd } << "800X480";
    }

    void parseResolutionList()
    {
        QFETCH(QString, text);
        QFETCH(SizeList, expected);
        QFETCH(QString, invalidPart);

        const QString key = QStringLiteral("HmiCore/SecondaryDisplayResolution");
        if (!invalidPart.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg,
                qPrintable(
                    QStringLiteral("Invalid resolution \"%1\" listed for %2\n").arg(invalidPart, key)));
        }
        QCOMPARE(HmiCoreConfigs::parseResolutionList(text, key), expected);
    }

    void parseWindowState_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expected");
        QTest::addColumn<bool>("valid");

        QTest::newRow("WindowNoState") << "WindowNoState" << int(Qt::WindowNoState) << true;
        QTest::newRow("WindowMinimized") << "WindowMinimized" << int(Qt::WindowMinimized) << true;
        QTest::newRow("WindowMaximized") << "WindowMaximized" << int(Qt::WindowMaximized) << true;
        QTest::newRow("WindowFullScreen") << "WindowFullScreen" << int(Qt::WindowFullScreen) << true;
        QTest::newRow("case matters") << "windowfullscreen" << int(Qt::WindowNoState) << false;
        QTest::newRow("surrounding blank") << "WindowMaximized " << int(Qt::WindowNoState) << false;
        QTest::newRow("other Qt state") << "WindowActive" << int(Qt::WindowNoState) << false;
        QTest::newRow("number") << "4" << int(Qt::WindowNoState) << false;
    }

    void parseWindowState()
    {
        QFETCH(QString, text);
        QFETCH(int, expected);
        QFETCH(bool, valid);

        if (!valid) {
            QTest::ignoreMessage(
                QtWarningMsg, "WARNING: Invalid value for WindowState config. Defaulting to WindowNoState.");
        }
        QCOMPARE(HmiCoreConfigs::parseWindowState(text), expected);
    }
};

QTEST_GUILESS_MAIN(tst_HmiCoreConfigs)

#include "tst_hmicoreconfigs.moc"
