#include "frame/HmiCoreConfigs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using Hmi::Core::HmiCoreConfigs;

namespace {

struct ToolRun
{
    int exitCode = -1;
    QString out;
    QString err;
};

// Rows name paths inside the test's temporary directory as "@DIR@".
QString expand(QString aText, const QString& aDirectory)
{
    return aText.replace(QLatin1String("@DIR@"), aDirectory);
}

QStringList expand(QStringList aList, const QString& aDirectory)
{
    for (QString& text : aList) {
        text = expand(text, aDirectory);
    }
    return aList;
}

// "HmiCore/Key   = value (source)" lines, keyed by the key; padding before "=" is not part of either.
QHash<QString, QString> parseListing(const QString& aOutput, QStringList* aKeysInOrder = nullptr)
{
    QHash<QString, QString> listing;
    const QStringList lines = aOutput.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const int equals = line.indexOf(QLatin1String(" = "));
        const QString key = line.left(equals).trimmed();
        listing.insert(key, line.mid(equals + 3));
        if (aKeysInOrder) {
            aKeysInOrder->append(key);
        }
    }
    return listing;
}

} // namespace

class tst_HmiCoreTool : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void listsEveryKeyInOrder();
    void config_data();
    void config();
    void rejects_data();
    void rejects();
    void help_data();
    void help();

private:
    ToolRun run(const QStringList& aArguments, const QString& aWorkingDirectory) const;
    static void writeFile(const QString& aPath, const QString& aText);

    QString mTool;
};

void tst_HmiCoreTool::initTestCase()
{
#ifdef HMICORE_TOOL_PATH
    mTool = QStringLiteral(HMICORE_TOOL_PATH);
#endif
    if (mTool.isEmpty()) {
        QSKIP("The hmicore tool is not part of this build");
    }
    QVERIFY2(QFileInfo(mTool).isExecutable(), qPrintable(mTool));
}

ToolRun tst_HmiCoreTool::run(const QStringList& aArguments, const QString& aWorkingDirectory) const
{
    QProcess process;
    process.setWorkingDirectory(aWorkingDirectory);
    process.start(mTool, aArguments);
    ToolRun result;
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitCode();
    result.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    result.err = QString::fromLocal8Bit(process.readAllStandardError());
    return result;
}

void tst_HmiCoreTool::writeFile(const QString& aPath, const QString& aText)
{
    QVERIFY(QDir().mkpath(QFileInfo(aPath).absolutePath()));
    QFile file(aPath);
    QVERIFY2(file.open(QIODevice::WriteOnly | QIODevice::Text), qPrintable(aPath));
    file.write(aText.toUtf8());
}

void tst_HmiCoreTool::listsEveryKeyInOrder()
{
    QTemporaryDir directory;
    QVERIFY(directory.isValid());
    const ToolRun result = run({ QStringLiteral("config") }, directory.path());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.err, QString());

    QStringList keys;
    parseListing(result.out, &keys);
    QStringList expected;
    for (int key = 0; key < HmiCoreConfigs::KeyCount; ++key) {
        expected.append(HmiCoreConfigs::getKeyName(HmiCoreConfigs::Key(key)));
    }
    QCOMPARE(keys, expected);
}

void tst_HmiCoreTool::config_data()
{
    QTest::addColumn<QStringList>("arguments");
    // Written below the temporary directory, which is also the tool's working directory.
    QTest::addColumn<QString>("iniName");
    QTest::addColumn<QString>("iniText");
    // "HmiCore/Key = value (file|default)"; keys not listed are not checked.
    QTest::addColumn<QStringList>("expected");
    // Empty: stderr must stay empty.
    QTest::addColumn<QString>("expectedError");

    const QStringList withIni { QStringLiteral("config"), QStringLiteral("--ini"),
        QStringLiteral("@DIR@/conf/app.ini") };
    const QString conf = QStringLiteral("conf/app.ini");

    QTest::newRow("defaults")
        << QStringList { "config" } << QString() << QString()
        << QStringList { "HmiCore/AlphaChannelEnabled = false (default)",
               "HmiCore/FontFamilyDefault = Open Sans (default)", "HmiCore/GnuPrefix = usr/local (default)",
               "HmiCore/GnuBindir = usr/local/bin (default)",
               "HmiCore/GnuDatadir = usr/local/share (default)",
               "HmiCore/ThemesPath = usr/local/share/hmicore/themes (default)",
               "HmiCore/StringDatabaseName = usr/local/var/hmicore_strings.db (default)",
               "HmiCore/ResourceCachePath = usr/local/var/hmicore/resource_cache/ (default)",
               "HmiCore/IntervalPressAndHold = 800 (default)", "HmiCore/SecondaryDisplayIndex = 1 (default)",
               "HmiCore/PrimaryDisplayResolution = \"\" (default)",
               "HmiCore/SuggestionsUserWordsLimit = 2000 (default)",
               "HmiCore/WindowState = WindowNoState (0) (default)" }
        << QString();

    QTest::newRow("relative path resolves against the ini")
        << withIni << conf << "[HmiCore]\nThemesPath=themes\n"
        << QStringList { "HmiCore/ThemesPath = @DIR@/conf/themes (file)",
               "HmiCore/LanguagesPath = usr/local/share/hmicore/languages (default)" }
        << QString();
    QTest::newRow("relative --ini path")
        << QStringList { "config", "--ini", "conf/app.ini" } << conf << "[HmiCore]\nKeyboardsPath=kbd\n"
        << QStringList { "HmiCore/KeyboardsPath = @DIR@/conf/kbd (file)" } << QString();
    QTest::newRow("absolute path kept")
        << withIni << conf << "[HmiCore]\nThemesPath=/opt/hmi/themes\n"
        << QStringList { "HmiCore/ThemesPath = /opt/hmi/themes (file)" } << QString();
    QTest::newRow("non-path value not resolved")
        << withIni << conf << "[HmiCore]\nFontFamilyDefault=fonts\nIntervalPressAndHold=650\n"
        << QStringList { "HmiCore/FontFamilyDefault = fonts (file)",
               "HmiCore/IntervalPressAndHold = 650 (file)" }
        << QString();
    QTest::newRow("other sections ignored")
        << withIni << conf << "[Other]\nThemesPath=/x\n[HmiCore]\n"
        << QStringList { "HmiCore/ThemesPath = usr/local/share/hmicore/themes (default)" } << QString();

    QTest::newRow("--app renames derived defaults")
        << QStringList { "config", "--app", "demo" } << QString() << QString()
        << QStringList { "HmiCore/ThemesPath = usr/local/share/demo/themes (default)",
               "HmiCore/KeyboardsPath = usr/local/share/demo/keyboards (default)",
               "HmiCore/StringDatabaseName = usr/local/var/demo_strings.db (default)",
               "HmiCore/ResourceCachePath = usr/local/var/demo/resource_cache/ (default)",
               "HmiCore/GnuDatadir = usr/local/share (default)" }
        << QString();
    QTest::newRow("GnuPrefix moves derived defaults")
        << withIni << conf << "[HmiCore]\nGnuPrefix=/opt/hmi\n"
        << QStringList { "HmiCore/GnuPrefix = /opt/hmi (file)", "HmiCore/GnuBindir = /opt/hmi/bin (default)",
               "HmiCore/GnuLibdir = /opt/hmi/lib (default)", "HmiCore/GnuDatadir = /opt/hmi/share (default)",
               "HmiCore/ThemesPath = /opt/hmi/share/hmicore/themes (default)",
               "HmiCore/StringDatabaseName = /opt/hmi/var/hmicore_strings.db (default)" }
        << QString();
    QTest::newRow("relative GnuPrefix resolves before deriving")
        << withIni << conf << "[HmiCore]\nGnuPrefix=prefix\n"
        << QStringList { "HmiCore/GnuPrefix = @DIR@/conf/prefix (file)",
               "HmiCore/GnuSysconfdir = @DIR@/conf/prefix/etc (default)",
               "HmiCore/SuggestionsPath = @DIR@/conf/prefix/share/hmicore/suggestions (default)" }
        << QString();
    QTest::newRow("datadir and localstatedir move their paths only")
        << QStringList { "config", "--ini", "@DIR@/conf/app.ini", "--app", "demo" } << conf
        << "[HmiCore]\nGnuDatadir=/data\nGnuLocalstatedir=/state\nGnuPrefix=/opt\n"
        << QStringList { "HmiCore/GnuBindir = /opt/bin (default)",
               "HmiCore/ThemesPath = /data/demo/themes (default)",
               "HmiCore/StringDatabaseName = /state/demo_strings.db (default)",
               "HmiCore/ResourceCachePath = /state/demo/resource_cache/ (default)" }
        << QString();
    QTest::newRow("explicit path beats derived default")
        << withIni << conf << "[HmiCore]\nGnuPrefix=/opt\nThemesPath=/skins\n"
        << QStringList { "HmiCore/ThemesPath = /skins (file)",
               "HmiCore/LanguagesPath = /opt/share/hmicore/languages (default)" }
        << QString();

    QTest::newRow("placeholder") << withIni + QStringList { "--placeholder", "Root=/srv" } << conf
                                 << "[HmiCore]\nThemesPath=%%Root%%/themes\n"
                                 << QStringList { "HmiCore/ThemesPath = /srv/themes (file)" } << QString();
    QTest::newRow("relative after substitution")
        << withIni + QStringList { "--placeholder", "Skin=night" } << conf
        << "[HmiCore]\nThemesPath=%%Skin%%/themes\n"
        << QStringList { "HmiCore/ThemesPath = @DIR@/conf/night/themes (file)" } << QString();
    QTest::newRow("value keeps later equals signs")
        << withIni + QStringList { "--placeholder", "Font=a=b" } << conf
        << "[HmiCore]\nFontFamilyDefault=%%Font%%\n"
        << QStringList { "HmiCore/FontFamilyDefault = a=b (file)" } << QString();
    QTest::newRow("last placeholder wins")
        << withIni + QStringList { "--placeholder", "Root=/one", "--placeholder", "Root=/two" } << conf
        << "[HmiCore]\nThemesPath=%%Root%%/themes\n"
        << QStringList { "HmiCore/ThemesPath = /two/themes (file)" } << QString();
    QTest::newRow("two placeholders in one value")
        << withIni + QStringList { "--placeholder", "A=2", "--placeholder", "B=4" } << conf
        << "[HmiCore]\nFontFamilyDefault=1%%A%%3%%B%%5\n"
        << QStringList { "HmiCore/FontFamilyDefault = 12345 (file)" } << QString();
    QTest::newRow("unknown placeholder left in place")
        << withIni + QStringList { "--placeholder", "Root=/srv" } << conf
        << "[HmiCore]\nThemesPath=/x/%%Missing%%\n"
        << QStringList { "HmiCore/ThemesPath = /x/%%Missing%% (file)" }
        << "WARNING: Found placeholder, Missing, but no corresponding value to replace it.";

    QTest::newRow("typed values")
        << withIni << conf
        << "[HmiCore]\nAlphaChannelEnabled=true\nPrimaryDisplayResolution=800x480 1280x720\n"
           "WindowState=WindowFullScreen\nSuggestionsUserWordsLimit=4000\nSecondaryDisplayIndex=3\n"
        << QStringList { "HmiCore/AlphaChannelEnabled = true (file)",
               "HmiCore/PrimaryDisplayResolution = 800x480 1280x720 (file)",
               "HmiCore/SecondaryDisplayResolution = \"\" (default)",
               "HmiCore/WindowState = WindowFullScreen (4) (file)",
               "HmiCore/SuggestionsUserWordsLimit = 4000 (file)", "HmiCore/SecondaryDisplayIndex = 3 (file)" }
        << QString();
    QTest::newRow("bad resolution ends the list")
        << withIni << conf << "[HmiCore]\nPrimaryDisplayResolution=800x480 big 1024x768\n"
        << QStringList { "HmiCore/PrimaryDisplayResolution = 800x480 (file)" }
        << "Invalid resolution \"big\" listed for HmiCore/PrimaryDisplayResolution";
    QTest::newRow("bad window state")
        << withIni << conf << "[HmiCore]\nWindowState=fullscreen\n"
        << QStringList { "HmiCore/WindowState = WindowNoState (0) (file)" }
        << "WARNING: Invalid value for WindowState config. Defaulting to WindowNoState.";
    QTest::newRow("misspelt key")
        << withIni << conf << "[HmiCore]\nThemePath=/x\n"
        << QStringList { "HmiCore/ThemesPath = usr/local/share/hmicore/themes (default)" }
        << "hmicore: @DIR@/conf/app.ini: unknown key HmiCore/ThemePath is ignored";

    QTest::newRow("default ini in working directory")
        << QStringList { "config" } << "hmicore.ini"
        << "[HmiCore]\nThemesPath=themes\n"
        << QStringList { "HmiCore/ThemesPath = @DIR@/themes (file)" } << QString();
    QTest::newRow("default ini follows --app")
        << QStringList { "config", "--app", "demo" } << "demo.ini"
        << "[HmiCore]\nThemesPath=/demo\n"
        << QStringList { "HmiCore/ThemesPath = /demo (file)" } << QString();
    QTest::newRow("--app skips hmicore.ini")
        << QStringList { "config", "--app", "demo" } << "hmicore.ini"
        << "[HmiCore]\nThemesPath=/wrong\n"
        << QStringList { "HmiCore/ThemesPath = usr/local/share/demo/themes (default)" } << QString();
}

void tst_HmiCoreTool::config()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, iniName);
    QFETCH(QString, iniText);
    QFETCH(QStringList, expected);
    QFETCH(QString, expectedError);

    QTemporaryDir directory;
    QVERIFY(directory.isValid());
    const QString root = directory.path();
    if (!iniName.isEmpty()) {
        writeFile(root + QLatin1Char('/') + iniName, iniText);
    }

    const ToolRun result = run(expand(arguments, root), root);
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    if (expectedError.isEmpty()) {
        QCOMPARE(result.err, QString());
    } else {
        QVERIFY2(result.err.contains(expand(expectedError, root)), qPrintable(result.err));
    }

    const QHash<QString, QString> listing = parseListing(result.out);
    QCOMPARE(listing.size(), int(HmiCoreConfigs::KeyCount));
    for (const QString& line : expand(expected, root)) {
        const int equals = line.indexOf(QLatin1String(" = "));
        const QString key = line.left(equals);
        QVERIFY2(listing.contains(key), qPrintable(key));
        QCOMPARE(listing.value(key), line.mid(equals + 3));
    }
}

void tst_HmiCoreTool::rejects_data()
{
    QTest::addColumn<QStringList>("arguments");
    // Written to "@DIR@/conf/app.ini" when not empty.
    QTest::addColumn<QString>("iniText");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("expectedError");

    QTest::newRow("no command") << QStringList {} << QString() << 2 << "hmicore: no command given";
    QTest::newRow("unknown command") << QStringList { "frobnicate" } << QString() << 2
                                     << "hmicore: unknown command \"frobnicate\"";
    QTest::newRow("unknown option") << QStringList { "config", "--bogus" } << QString() << 2 << "bogus";
    QTest::newRow("option before command")
        << QStringList { "--ini", "x", "config" } << QString() << 2 << "ini";
    QTest::newRow("missing option value") << QStringList { "config", "--ini" } << QString() << 2 << "--ini";
    QTest::newRow("extra argument") << QStringList { "config", "extra" } << QString() << 2
                                    << "hmicore: unexpected argument \"extra\"";
    QTest::newRow("empty app name") << QStringList { "config", "--app", "" } << QString() << 2
                                    << "hmicore: the application name must not be empty";
    QTest::newRow("placeholder without =") << QStringList { "config", "--placeholder",
        "Root" } << QString() << 2 << "hmicore: invalid placeholder \"Root\": expected NAME=VALUE";
    QTest::newRow("placeholder without name") << QStringList { "config", "--placeholder", "=/srv" }
                                              << QString() << 2 << "hmicore: invalid placeholder name \"\"";
    QTest::newRow("placeholder name with dash") << QStringList { "config", "--placeholder",
        "data-root=/srv" } << QString() << 2 << "hmicore: invalid placeholder name \"data-root\"";

    QTest::newRow("missing ini") << QStringList { "config", "--ini", "@DIR@/missing.ini" } << QString() << 1
                                 << "hmicore: cannot read @DIR@/missing.ini: no such file";
    QTest::newRow("ini is a directory") << QStringList { "config", "--ini", "@DIR@" } << QString() << 1
                                        << "hmicore: cannot read @DIR@: not a file";
    QTest::newRow("malformed ini") << QStringList { "config", "--ini", "@DIR@/conf/app.ini" }
                                   << "[HmiCore\nThemesPath=/x\n"
                                   << 1 << "hmicore: cannot read @DIR@/conf/app.ini: not a valid ini file";
}

void tst_HmiCoreTool::rejects()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, iniText);
    QFETCH(int, exitCode);
    QFETCH(QString, expectedError);

    QTemporaryDir directory;
    QVERIFY(directory.isValid());
    const QString root = directory.path();
    if (!iniText.isEmpty()) {
        writeFile(root + QStringLiteral("/conf/app.ini"), iniText);
    }

    const ToolRun result = run(expand(arguments, root), root);
    QCOMPARE(result.exitCode, exitCode);
    // Nothing half-done on stdout that a script could take for a listing.
    QCOMPARE(result.out, QString());
    QVERIFY2(result.err.startsWith(QLatin1String("hmicore: ")), qPrintable(result.err));
    QVERIFY2(result.err.contains(expand(expectedError, root)), qPrintable(result.err));
    QCOMPARE(result.err.contains(QLatin1String("Usage: hmicore")), exitCode == 2);
}

void tst_HmiCoreTool::help_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expectedOutput");

    QTest::newRow("tool help lists commands") << QStringList { "--help" } << "config";
    QTest::newRow("command help lists options")
        << QStringList { "config", "--help" } << "--placeholder <NAME=VALUE>";
    QTest::newRow("command help names the command")
        << QStringList { "config", "--help" } << "Usage: hmicore config [options]";
    QTest::newRow("version") << QStringList { "--version" } << "hmicore 1.";
}

void tst_HmiCoreTool::help()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, expectedOutput);

    QTemporaryDir directory;
    QVERIFY(directory.isValid());
    const ToolRun result = run(arguments, directory.path());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.err, QString());
    QVERIFY2(result.out.contains(expectedOutput), qPrintable(result.out));
}

QTEST_GUILESS_MAIN(tst_HmiCoreTool)

#include "tst_hmicoretool.moc"
