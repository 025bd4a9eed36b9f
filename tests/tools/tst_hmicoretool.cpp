#include "frame/HmiCoreConfigs.h"
#include "language/BinaryLanguageFile.h"
#include "language/NodeText.h"

#include "common/Encoding.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

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
    void init();
    void config_data();
    void config();
    void commandLine_data();
    void commandLine();
    void resourceRoundTrip_data();
    void resourceRoundTrip();
    void resourceDump_data();
    void resourceDump();
    void resourceTruncatedBinary_data();
    void resourceTruncatedBinary();
    void languageCompileAndDump();
    void themeList_data();
    void themeList();
    void resourceDumpPackage_data();
    void resourceDumpPackage();
    void languageCompileEncodings_data();
    void languageCompileEncodings();

private:
    /// Runs the tool in the test's temporary directory; "@DIR@" in the arguments names that directory.
    ToolRun run(const QStringList& aArguments) const;
    /// Empty aExpected: stderr must stay empty; otherwise it must contain aExpected.
    void checkErrors(const ToolRun& aResult, const QString& aExpected) const;
    /// Writes "path|content" entries below the temporary directory.
    void writeFiles(const QStringList& aFiles) const;
    static void writeFile(const QString& aPath, const QByteArray& aData);
    /// Packs aEntries ("alias=file", files below "@DIR@/sources") into aPackage with rcc; QVERIFYs that it worked.
    void pack(const QString& aPackage, const QStringList& aEntries) const;

    QString mTool;
    QString mEveryKind;
    QScopedPointer<QTemporaryDir> mDirectory;
    QString mRoot;
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
    mEveryKind = QFINDTESTDATA("../data/resources/every_kind.xml");
    QVERIFY(!mEveryKind.isEmpty());
}

void tst_HmiCoreTool::init()
{
    mDirectory.reset(new QTemporaryDir);
    QVERIFY(mDirectory->isValid());
    mRoot = mDirectory->path();
}

ToolRun tst_HmiCoreTool::run(const QStringList& aArguments) const
{
    QProcess process;
    process.setWorkingDirectory(mRoot);
    process.start(mTool, expand(aArguments, mRoot));
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

void tst_HmiCoreTool::writeFile(const QString& aPath, const QByteArray& aData)
{
    QVERIFY(QDir().mkpath(QFileInfo(aPath).absolutePath()));
    QFile file(aPath);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(aPath));
    file.write(aData);
}

void tst_HmiCoreTool::checkErrors(const ToolRun& aResult, const QString& aExpected) const
{
    if (aExpected.isEmpty()) {
        QCOMPARE(aResult.err, QString());
    } else {
        QVERIFY2(aResult.err.contains(expand(aExpected, mRoot)), qPrintable(aResult.err));
    }
}

void tst_HmiCoreTool::writeFiles(const QStringList& aFiles) const
{
    for (const QString& file : aFiles) {
        const int separator = file.indexOf(QLatin1Char('|'));
        writeFile(mRoot + QLatin1Char('/') + file.left(separator), file.mid(separator + 1).toUtf8());
    }
}

void tst_HmiCoreTool::config_data()
{
    QTest::addColumn<QStringList>("arguments");
    // "path|content" files written below the temporary directory, the tool's working directory.
    QTest::addColumn<QStringList>("files");
    // "HmiCore/Key = value (file|default)"; keys not listed are not checked.
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("expectedError");

    const QStringList withIni { "config", "--ini", "@DIR@/conf/app.ini" };
    const QString ini = QStringLiteral("conf/app.ini|[HmiCore]\n");

    QTest::newRow("defaults")
        << QStringList { "config" } << QStringList {}
        << QStringList { "HmiCore/AlphaChannelEnabled = false (default)",
               "HmiCore/GnuBindir = usr/local/bin (default)",
               "HmiCore/ThemesPath = usr/local/share/hmicore/themes (default)",
               "HmiCore/StringDatabaseName = usr/local/var/hmicore_strings.db (default)",
               "HmiCore/ResourceCachePath = usr/local/var/hmicore/resource_cache/ (default)",
               "HmiCore/PrimaryDisplayResolution = \"\" (default)",
               "HmiCore/WindowState = WindowNoState (0) (default)" }
        << QString();
    QTest::newRow("relative path resolves against the ini")
        << withIni << QStringList { ini + "ThemesPath=themes\n" }
        << QStringList { "HmiCore/ThemesPath = @DIR@/conf/themes (file)",
               "HmiCore/LanguagesPath = usr/local/share/hmicore/languages (default)" }
        << QString();
    QTest::newRow("relative --ini path")
        << QStringList { "config", "--ini", "conf/app.ini" } << QStringList { ini + "KeyboardsPath=kbd\n" }
        << QStringList { "HmiCore/KeyboardsPath = @DIR@/conf/kbd (file)" } << QString();
    QTest::newRow("non-path value not resolved")
        << withIni << QStringList { ini + "FontFamilyDefault=fonts\n" }
        << QStringList { "HmiCore/FontFamilyDefault = fonts (file)" } << QString();
    QTest::newRow("other sections ignored")
        << withIni << QStringList { "conf/app.ini|[Other]\nThemesPath=/x\n[HmiCore]\n" }
        << QStringList { "HmiCore/ThemesPath = usr/local/share/hmicore/themes (default)" } << QString();

    QTest::newRow("--app renames derived defaults")
        << QStringList { "config", "--app", "demo" } << QStringList {}
        << QStringList { "HmiCore/ThemesPath = usr/local/share/demo/themes (default)",
               "HmiCore/StringDatabaseName = usr/local/var/demo_strings.db (default)",
               "HmiCore/ResourceCachePath = usr/local/var/demo/resource_cache/ (default)",
               "HmiCore/GnuDatadir = usr/local/share (default)" }
        << QString();
    QTest::newRow("relative GnuPrefix resolves before deriving")
        << withIni << QStringList { ini + "GnuPrefix=prefix\n" }
        << QStringList { "HmiCore/GnuPrefix = @DIR@/conf/prefix (file)",
               "HmiCore/GnuSysconfdir = @DIR@/conf/prefix/etc (default)",
               "HmiCore/SuggestionsPath = @DIR@/conf/prefix/share/hmicore/suggestions (default)" }
        << QString();
    QTest::newRow("datadir and localstatedir move their paths only")
        << withIni + QStringList { "--app", "demo" }
        << QStringList { ini + "GnuDatadir=/data\nGnuLocalstatedir=/state\nGnuPrefix=/opt\n" }
        << QStringList { "HmiCore/GnuBindir = /opt/bin (default)",
               "HmiCore/ThemesPath = /data/demo/themes (default)",
               "HmiCore/StringDatabaseName = /state/demo_strings.db (default)",
               "HmiCore/ResourceCachePath = /state/demo/resource_cache/ (default)" }
        << QString();
    QTest::newRow("explicit path beats derived default")
        << withIni << QStringList { ini + "GnuPrefix=/opt\nThemesPath=/skins\n" }
        << QStringList { "HmiCore/ThemesPath = /skins (file)",
               "HmiCore/LanguagesPath = /opt/share/hmicore/languages (default)" }
        << QString();

    QTest::newRow("relative after substitution")
        << withIni + QStringList { "--placeholder", "Skin=night" }
        << QStringList { ini + "ThemesPath=%%Skin%%/themes\n" }
        << QStringList { "HmiCore/ThemesPath = @DIR@/conf/night/themes (file)" } << QString();
    QTest::newRow("value keeps later equals signs")
        << withIni + QStringList { "--placeholder", "Font=a=b" } << QStringList { ini + "FontFamilyDefault=%%Font%%\n" }
        << QStringList { "HmiCore/FontFamilyDefault = a=b (file)" } << QString();
    QTest::newRow("last placeholder wins")
        << withIni + QStringList { "--placeholder", "Root=/one", "--placeholder", "Root=/two" }
        << QStringList { ini + "ThemesPath=%%Root%%/themes\n" }
        << QStringList { "HmiCore/ThemesPath = /two/themes (file)" } << QString();
    QTest::newRow("two placeholders in one value")
        << withIni + QStringList { "--placeholder", "A=2", "--placeholder", "B=4" }
        << QStringList { ini + "FontFamilyDefault=1%%A%%3%%B%%5\n" }
        << QStringList { "HmiCore/FontFamilyDefault = 12345 (file)" } << QString();
    QTest::newRow("unknown placeholder left in place")
        << withIni + QStringList { "--placeholder", "Root=/srv" } << QStringList { ini + "ThemesPath=/x/%%Missing%%\n" }
        << QStringList { "HmiCore/ThemesPath = /x/%%Missing%% (file)" }
        << "WARNING: Found placeholder, Missing, but no corresponding value to replace it.";

    QTest::newRow("typed values")
        << withIni
        << QStringList { ini + "AlphaChannelEnabled=true\nPrimaryDisplayResolution=800x480 1280x720\n"
                               "WindowState=WindowFullScreen\nSuggestionsUserWordsLimit=4000\n" }
        << QStringList { "HmiCore/AlphaChannelEnabled = true (file)",
               "HmiCore/PrimaryDisplayResolution = 800x480 1280x720 (file)",
               "HmiCore/WindowState = WindowFullScreen (4) (file)",
               "HmiCore/SuggestionsUserWordsLimit = 4000 (file)" }
        << QString();
    QTest::newRow("bad resolution ends the list")
        << withIni << QStringList { ini + "PrimaryDisplayResolution=800x480 big 1024x768\n" }
        << QStringList { "HmiCore/PrimaryDisplayResolution = 800x480 (file)" }
        << "Invalid resolution \"big\" listed for HmiCore/PrimaryDisplayResolution";
    QTest::newRow("bad window state")
        << withIni << QStringList { ini + "WindowState=fullscreen\n" }
        << QStringList { "HmiCore/WindowState = WindowNoState (0) (file)" }
        << "WARNING: Invalid value for WindowState config. Defaulting to WindowNoState.";
    QTest::newRow("misspelt key")
        << withIni << QStringList { ini + "ThemePath=/x\n" }
        << QStringList { "HmiCore/ThemesPath = usr/local/share/hmicore/themes (default)" }
        << "hmicore: @DIR@/conf/app.ini: unknown key HmiCore/ThemePath is ignored";

    QTest::newRow("default ini in working directory")
        << QStringList { "config" } << QStringList { "hmicore.ini|[HmiCore]\nThemesPath=themes\n" }
        << QStringList { "HmiCore/ThemesPath = @DIR@/themes (file)" } << QString();
    QTest::newRow("default ini follows --app, not hmicore.ini")
        << QStringList { "config", "--app", "demo" }
        << QStringList { "demo.ini|[HmiCore]\nThemesPath=/demo\n", "hmicore.ini|[HmiCore]\nKeyboardsPath=/no\n" }
        << QStringList { "HmiCore/ThemesPath = /demo (file)",
               "HmiCore/KeyboardsPath = usr/local/share/demo/keyboards (default)" }
        << QString();
}

void tst_HmiCoreTool::config()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, files);
    QFETCH(QStringList, expected);
    QFETCH(QString, expectedError);

    writeFiles(files);
    const ToolRun result = run(arguments);
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    checkErrors(result, expectedError);

    // Every key once, in the order of the key enumeration.
    QStringList keys;
    const QHash<QString, QString> listing = parseListing(result.out, &keys);
    QStringList allKeys;
    for (int key = 0; key < HmiCoreConfigs::KeyCount; ++key) {
        allKeys.append(HmiCoreConfigs::getKeyName(HmiCoreConfigs::Key(key)));
    }
    QCOMPARE(keys, allKeys);
    for (const QString& line : expand(expected, mRoot)) {
        const int equals = line.indexOf(QLatin1String(" = "));
        QCOMPARE(listing.value(line.left(equals)), line.mid(equals + 3));
    }
}

namespace {

QByteArray resourceXml(const char* aBody)
{
    return QByteArray("<?xml version=\"1.0\"?>\n<NvkQtResourceFile>\n") + aBody + "\n</NvkQtResourceFile>\n";
}

// Header of a binary resource file: magic, version, empty content hash.
QByteArray binaryHeader(qint32 aVersion = 7)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << qint32(0x65B57724) << aVersion << quint32(0);
    return data;
}

} // namespace

void tst_HmiCoreTool::commandLine_data()
{
    // "@DIR@" is the temporary directory, "@FIXTURE@" every_kind.xml.
    QTest::addColumn<QStringList>("arguments");
    // Written to "@DIR@/input" unless null.
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<int>("exitCode");
    // Part of stdout with exit code 0, otherwise part of stderr.
    QTest::addColumn<QString>("expected");

    const QStringList dumpInput { "resource", "dump", "@DIR@/input" };
    const QStringList compileInput { "resource", "compile", "@DIR@/input", "-o", "@DIR@/out.dat" };
    const QByteArray none;

    QTest::newRow("tool help") << QStringList { "--help" } << none << 0 << "resource";
    QTest::newRow("command help") << QStringList { "config", "--help" } << none << 0
                                  << "--placeholder <NAME=VALUE>";
    QTest::newRow("resource help") << QStringList { "resource", "--help" } << none << 0
                                   << "compile FILE.xml -o FILE.dat [--base-path DIR]";
    QTest::newRow("subcommand help") << QStringList { "resource", "dump", "--help" } << none << 0
                                     << "Usage: hmicore resource dump";

    QTest::newRow("no command") << QStringList {} << none << 2 << "hmicore: no command given";
    QTest::newRow("unknown command") << QStringList { "frobnicate" } << none << 2
                                     << "hmicore: unknown command \"frobnicate\"";
    QTest::newRow("unknown option") << QStringList { "config", "--bogus" } << none << 2 << "bogus";
    QTest::newRow("option before command") << QStringList { "--ini", "x", "config" } << none << 2 << "ini";
    QTest::newRow("missing option value") << QStringList { "config", "--ini" } << none << 2 << "--ini";
    QTest::newRow("extra argument") << QStringList { "config", "extra" } << none << 2
                                    << "hmicore: unexpected argument \"extra\"";
    QTest::newRow("empty app name") << QStringList { "config", "--app", "" } << none << 2
                                    << "hmicore: the application name must not be empty";
    QTest::newRow("placeholder without =") << QStringList { "config", "--placeholder", "Root" } << none << 2
                                           << "hmicore: invalid placeholder \"Root\": expected NAME=VALUE";
    QTest::newRow("placeholder name with dash") << QStringList { "config", "--placeholder", "data-root=/srv" }
                                                << none << 2 << "hmicore: invalid placeholder name \"data-root\"";
    QTest::newRow("missing ini") << QStringList { "theme", "list", "--ini", "@DIR@/missing.ini" } << none << 1
                                 << "hmicore: cannot read @DIR@/missing.ini: no such file";
    QTest::newRow("ini is a directory") << QStringList { "config", "--ini", "@DIR@" } << none << 1
                                        << "hmicore: cannot read @DIR@: not a file";
    QTest::newRow("malformed ini") << QStringList { "config", "--ini", "@DIR@/input" }
                                   << QByteArray("[HmiCore\nThemesPath=/x\n") << 1
                                   << "hmicore: cannot read @DIR@/input: not a valid ini file";
    QTest::newRow("unknown theme subcommand") << QStringList { "theme", "show" } << none << 2
                                              << "hmicore: unknown subcommand \"show\"";

    QTest::newRow("no subcommand") << QStringList { "resource" } << none << 2 << "hmicore: no subcommand given";
    QTest::newRow("dump without file") << QStringList { "resource", "dump" } << none << 2
                                       << "hmicore: no input file given";
    QTest::newRow("compile without -o") << QStringList { "resource", "compile", "@FIXTURE@" } << none << 2
                                        << "hmicore: no output file given (-o FILE)";
    QTest::newRow("compile with unknown option")
        << QStringList { "resource", "compile", "@FIXTURE@", "-o", "x", "--hash", "1" } << none << 2 << "hash";
    QTest::newRow("missing file") << QStringList { "resource", "dump", "@DIR@/missing.xml" } << none << 1
                                  << "hmicore: cannot load @DIR@/missing.xml: no such file";
    QTest::newRow("directory") << QStringList { "resource", "dump", "@DIR@" } << none << 1
                               << "hmicore: cannot load @DIR@: not a file";
    QTest::newRow("empty file") << dumpInput << QByteArray("") << 1
                                << "hmicore: cannot load @DIR@/input: empty file";
    QTest::newRow("other XML") << dumpInput << QByteArray("<?xml version=\"1.0\"?><language><text/></language>")
                               << 1 << "hmicore: cannot load @DIR@/input: not a resource file";
    QTest::newRow("broken XML") << dumpInput
                                << resourceXml("<color><handle>a</handle><value>1,2,3</value>\n</colour>") << 1
                                << "hmicore: cannot load @DIR@/input: line 4, column 9: ";
    QTest::newRow("other binary version") << dumpInput << binaryHeader(6) + QByteArray(24, '\0') << 1
                                          << "binary resource file version 6, this tool reads version 7";
    QTest::newRow("compile of a binary file") << compileInput << binaryHeader() + QByteArray(24, '\0') << 1
                                              << "hmicore: cannot load @DIR@/input: already a binary resource file";
    QTest::newRow("output directory missing")
        << QStringList { "resource", "compile", "@FIXTURE@", "-o", "@DIR@/none/out.dat" } << none << 1
        << "hmicore: cannot write @DIR@/none/out.dat: no such directory";
    QTest::newRow("output is a directory") << QStringList { "resource", "compile", "@FIXTURE@", "-o", "@DIR@" }
                                           << none << 1 << "hmicore: cannot write @DIR@: is a directory";
}

void tst_HmiCoreTool::commandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, input);
    QFETCH(int, exitCode);
    QFETCH(QString, expected);

    if (!input.isNull()) {
        writeFile(mRoot + QStringLiteral("/input"), input);
    }
    const ToolRun result = run(arguments.replaceInStrings(QStringLiteral("@FIXTURE@"), mEveryKind));
    QCOMPARE(result.exitCode, exitCode);
    if (exitCode == 0) {
        QCOMPARE(result.err, QString());
        QVERIFY2(result.out.contains(expected), qPrintable(result.out));
        return;
    }
    // Nothing half-done on stdout that a script could take for a listing.
    QCOMPARE(result.out, QString());
    // Loading the fixture may log font warnings first; the tool's own message is a line of its own.
    QVERIFY2(result.err.startsWith(QLatin1String("hmicore: ")) || result.err.contains(QLatin1String("\nhmicore: ")),
        qPrintable(result.err));
    checkErrors(result, expected);
    QCOMPARE(result.err.contains(QLatin1String("Usage: hmicore")), exitCode == 2);
    QVERIFY(!QFileInfo::exists(mRoot + QStringLiteral("/out.dat")));
}

void tst_HmiCoreTool::resourceRoundTrip_data()
{
    // The description itself, or "@" and the path of a file relative to this test's source.
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("nodes");
    // Empty, or the one line in which the dumps of the XML and of the binary file differ.
    QTest::addColumn<QString>("xmlLine");
    QTest::addColumn<QString>("binaryLine");

    QTest::newRow("every kind") << QByteArray("@../data/resources/every_kind.xml") << 12 << QString() << QString();
    // The build ships this one compiled.
    QTest::newRow("showcase night package")
        << QByteArray("@../../examples/showcase/data/resources/aurora_night.xml") << 16 << QString() << QString();
    QTest::newRow("no nodes") << resourceXml("") << 0 << QString() << QString();
    QTest::newRow("file names with URL characters")
        << resourceXml("<image><handle>a</handle><file>icon #2 (100%).png</file></image>"
                       "<rectangle><handle>b</handle><file>a?b=c&amp;d.png</file></rectangle>")
        << 2 << QString() << QString();
    QTest::newRow("invalid rectangle colours stay unset")
        << resourceXml("<rectangle><handle>r</handle><value>1,2</value><borderColor>xx,0,0</borderColor>"
                       "<borderWidth>1</borderWidth></rectangle>")
        << 1 << QString() << QString();
    QTest::newRow("later node of a name replaces the earlier")
        << resourceXml("<color><handle>c</handle><value>1,2,3</value></color>"
                       "<color><handle>c</handle><value>4,5,6</value></color>")
        << 1 << QString() << QString();
    QTest::newRow("same name in two kinds")
        << resourceXml("<font><handle>x</handle><family>DejaVu Sans</family><pixelSize>12</pixelSize>"
                       "<strikeOut>true</strikeOut><overline>true</overline></font>"
                       "<shader><handle>x</handle><shaderVertex>a\tb \"c\" \\d</shaderVertex></shader>")
        << 2 << QString() << QString();

    QTest::newRow("directory part of an image file")
        << resourceXml("<image><handle>i</handle><file>sub/dir/arrow.png</file><width>8</width></image>") << 1
        << "  source: \"sub/dir/arrow.png\"" << "  source: \"arrow.png\"";
    QTest::newRow("invalid colour") << resourceXml("<color><handle>c</handle><value>zz,00,00</value></color>")
                                    << 1 << "  color: invalid" << "  color: 00,00,00,ff";
    QTest::newRow("invalid gradient stop colour")
        << resourceXml("<rectangle><handle>r</handle><gradientType>linear</gradientType>"
                       "<gradientStop position=\"0\">10,20,30</gradientStop>"
                       "<gradientStop position=\"0.5\">20,20</gradientStop></rectangle>")
        << 1 << "  gradientStop 1: 0.5 invalid" << "  gradientStop 1: 0.5 00,00,00,ff";
    QTest::newRow("fractional point size")
        << resourceXml("<font><handle>f</handle><family>DejaVu Sans</family><pointSize>10.5</pointSize>"
                       "<bold>true</bold></font>")
        << 1 << "  pointSize: 10.5" << "  pointSize: 10";
}

void tst_HmiCoreTool::resourceRoundTrip()
{
    QFETCH(QByteArray, xml);
    QFETCH(int, nodes);
    QFETCH(QString, xmlLine);
    QFETCH(QString, binaryLine);

    QString xmlPath = mRoot + QStringLiteral("/theme.xml");
    if (xml.startsWith('@')) {
        xmlPath = QFINDTESTDATA(QString::fromUtf8(xml.mid(1)));
        QVERIFY(!xmlPath.isEmpty());
    } else {
        writeFile(xmlPath, xml);
    }
    // Another directory than the XML's: image files must come out relative to each file's own.
    QVERIFY(QDir().mkpath(mRoot + QStringLiteral("/out")));
    const ToolRun compiled = run({ "resource", "compile", xmlPath, "-o", "@DIR@/out/theme.dat" });
    QVERIFY2(compiled.exitCode == 0, qPrintable(compiled.err));
    QCOMPARE(compiled.out, QString());
    const ToolRun fromXml = run({ "resource", "dump", xmlPath });
    QVERIFY2(fromXml.exitCode == 0, qPrintable(fromXml.err));
    const ToolRun fromBinary = run({ "resource", "dump", "@DIR@/out/theme.dat" });
    QVERIFY2(fromBinary.exitCode == 0, qPrintable(fromBinary.err));
    // Reading the binary form logs nothing: no font checks, no parse warnings.
    QCOMPARE(fromBinary.err, QString());

    const QStringList xmlDump = fromXml.out.split(QLatin1Char('\n'));
    const QStringList binaryDump = fromBinary.out.split(QLatin1Char('\n'));
    QCOMPARE(binaryDump.size(), xmlDump.size());
    QStringList differences;
    for (int index = 0; index < xmlDump.size(); ++index) {
        if (xmlDump.at(index) != binaryDump.at(index)) {
            differences << xmlDump.at(index) << binaryDump.at(index);
        }
    }
    QCOMPARE(differences, xmlLine.isEmpty() ? QStringList() : (QStringList { xmlLine, binaryLine }));
    // Guards against two equally empty listings.
    const auto isHeader = [](const QString& aLine) { return !aLine.isEmpty() && !aLine.startsWith(' '); };
    QCOMPARE(int(std::count_if(xmlDump.cbegin(), xmlDump.cend(), isHeader)), nodes);
}

void tst_HmiCoreTool::resourceDump_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("line");

    QTest::newRow("animation is an image") << "image \"spinner\"" << "  frameSize: 32x32";
    QTest::newRow("size tags fill the open sizes") << "image \"iconBack\"" << "  implicitSize: 48x48";
    QTest::newRow("desired size wins") << "image \"spinner\"" << "  implicitSize: 24x24";
    QTest::newRow("only false is a boolean") << "defaults \"buttonDefaults\""
                                             << "  property \"enabled\" = false (bool)";
    QTest::newRow("true stays text") << "defaults \"buttonDefaults\""
                                     << "  property \"visible\" = \"true\" (QString)";
    QTest::newRow("stops keep file order") << "rectangle \"panel\"" << "  gradientStop 1: 0.6 1e,22,28,ff";
    QTest::newRow("inline shader source on one line")
        << "shader \"dim\"" << "  shaderFragment: \"varying highp vec2 qt_TexCoord0;\\nuniform sampler2D source;";
    QTest::newRow("shader file flag") << "shader \"wave\"" << "  shaderVertexFile: true";
}

void tst_HmiCoreTool::resourceDump()
{
    QFETCH(QString, node);
    QFETCH(QString, line);

    const ToolRun result = run({ "resource", "dump", mEveryKind });
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    const QStringList lines = result.out.split(QLatin1Char('\n'));

    // Kinds in their fixed order, names ascending within a kind.
    QStringList headers;
    for (const QString& text : lines) {
        if (!text.isEmpty() && !text.startsWith(QLatin1Char(' '))) {
            headers.append(text);
        }
    }
    QCOMPARE(headers,
        (QStringList { "color \"accent\"", "color \"scrim\"", "color \"textPrimary\"",
            "defaults \"buttonDefaults\"", "font \"caption\"", "font \"title\"", "image \"iconBack\"",
            "image \"spinner\"", "rectangle \"panel\"", "rectangle \"tile\"", "shader \"dim\"",
            "shader \"wave\"" }));

    const int start = lines.indexOf(node);
    QVERIFY(start >= 0);
    int end = lines.indexOf(QString(), start);
    const QStringList block = lines.mid(start, end < 0 ? -1 : end - start);
    // A line of the node's block starts with the expected text (a one-line shader source ends later).
    QVERIFY2(std::any_of(block.cbegin(), block.cend(), [&](const QString& aLine) { return aLine.startsWith(line); }),
        qPrintable(block.join('\n')));
}

void tst_HmiCoreTool::resourceTruncatedBinary_data()
{
    // Bytes kept of the compiled every_kind.xml; negative counts from the end.
    QTest::addColumn<int>("keep");

    QTest::newRow("inside the version") << 6;
    QTest::newRow("after the header") << 12;
    QTest::newRow("inside the first record") << 20;
    QTest::newRow("all but the last byte") << -1;
}

void tst_HmiCoreTool::resourceTruncatedBinary()
{
    QFETCH(int, keep);

    const QString binary = mRoot + QStringLiteral("/theme.dat");
    const ToolRun compiled = run({ "resource", "compile", mEveryKind, "-o", binary });
    QVERIFY2(compiled.exitCode == 0, qPrintable(compiled.err));
    QFile file(binary);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.resize(keep > 0 ? keep : file.size() + keep));
    file.close();

    const ToolRun result = run({ "resource", "dump", binary });
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.out, QString());
    QCOMPARE(result.err, QStringLiteral("hmicore: cannot load %1: damaged binary resource file\n").arg(binary));
}

void tst_HmiCoreTool::languageCompileAndDump()
{
    const QString fixture = QFINDTESTDATA("../data/language/en_US.glx");
    QVERIFY(!fixture.isEmpty());
    const QString binary = mRoot + QStringLiteral("/en_US.glx.dat");
    const ToolRun compiled = run({ "language", "compile", fixture, "-o", binary });
    QVERIFY2(compiled.exitCode == 0, qPrintable(compiled.err));

    const ToolRun fromXml = run({ "language", "dump", fixture });
    const ToolRun fromBinary = run({ "language", "dump", binary });
    QVERIFY2(fromXml.exitCode == 0 && fromXml.err.isEmpty(), qPrintable(fromXml.err));
    QVERIFY2(fromBinary.exitCode == 0 && fromBinary.err.isEmpty(), qPrintable(fromBinary.err));
    QCOMPARE(fromBinary.out, fromXml.out);
    // One line per text, the line feed escaped.
    const QLatin1String line("\n\"STR_TEST2\": text \"Two\\nlines\", pronunciation (none), "
                             "usage speechrec=false tts=true visual=true\n");
    QVERIFY2(fromXml.out.contains(line), qPrintable(fromXml.out));

    QFile file(binary);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.resize(file.size() - 1));
    file.close();
    const ToolRun damaged = run({ "language", "dump", binary });
    QCOMPARE(damaged.exitCode, 1);
    QCOMPARE(damaged.out, QString());
    QCOMPARE(damaged.err, QStringLiteral("hmicore: cannot load %1: unable to read text nodes\n").arg(binary));
}

void tst_HmiCoreTool::themeList_data()
{
    QTest::addColumn<QStringList>("arguments");
    // "path|content", paths relative to the temporary directory "@DIR@".
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("expectedOutput");
    // Empty: stderr must stay empty.
    QTest::addColumn<QString>("expectedError");

    const QStringList list { "theme", "list", "--ini", "@DIR@/conf/app.ini" };
    const QString ini = QStringLiteral("conf/app.ini|[HmiCore]\nThemesPath=../themes\n");
    const QString ocean = QStringLiteral(
        "themes/ocean.xml|<theme name=\"Ocean\"><package>ocean.rcc</package><package>shared.rcc</package>"
        "<mode name=\"day\"><package>ocean_day.rcc</package></mode>"
        "<mode name=\"night\"><package>ocean_night.rcc</package></mode></theme>");
    const QString oceanListing = QStringLiteral("theme \"Ocean\" (default)\n"
                                                "  file: @DIR@/conf/../themes/ocean.xml\n"
                                                "  packages: ocean.rcc, shared.rcc (missing)\n"
                                                "  mode \"day\" (default): ocean_day.rcc\n"
                                                "  mode \"night\": ocean_night.rcc (missing)\n");
    const QStringList oceanPackages { "themes/ocean.rcc|x", "themes/ocean_day.rcc|x" };

    QTest::newRow("packages found or missing")
        << list << QStringList { ini, ocean } + oceanPackages << 0 << oceanListing << QString();
    QTest::newRow("file name order decides the default")
        << list
        << QStringList { ini, "themes/b.xml|<theme name=\"Alpha\"><mode name=\"m\"/></theme>",
               "themes/a.xml|<theme name=\"Zulu\"><package>z.rcc</package></theme>" }
        << 0
        << "theme \"Zulu\" (default)\n  file: @DIR@/conf/../themes/a.xml\n  packages: z.rcc (missing)\n"
           "  modes: (none)\n\ntheme \"Alpha\"\n  file: @DIR@/conf/../themes/b.xml\n  packages: (none)\n"
           "  mode \"m\" (default): (none)\n"
        << QString();
    QTest::newRow("first file keeps a name")
        << list << QStringList { ini, ocean, "themes/second.xml|<theme name=\"Ocean\"/>" } + oceanPackages
        << 0 << oceanListing
        << "hmicore: @DIR@/conf/../themes/second.xml: theme \"Ocean\" is already known; the file is ignored";
    QTest::newRow("unnamed theme takes the file name")
        << list << QStringList { ini, "themes/plain.theme.xml|<theme><package>p.rcc</package></theme>" } << 0
        << "theme \"plain.theme\" (default)\n  file: @DIR@/conf/../themes/plain.theme.xml\n"
           "  packages: p.rcc (missing)\n  modes: (none)\n"
        << QString();
    QTest::newRow("not a theme is skipped")
        << list << QStringList { ini, ocean, "themes/0_notes.xml|<NvkQtResourceFile/>" } + oceanPackages << 0
        << oceanListing << "WARNING: Theme file @DIR@/conf/../themes/0_notes.xml is not a valid theme.";
    QTest::newRow("placeholder in ThemesPath")
        << list + QStringList { "--placeholder", "Root=@DIR@" }
        << QStringList { "conf/app.ini|[HmiCore]\nThemesPath=%%Root%%/themes\n",
               "themes/ocean.xml|<theme name=\"Ocean\"/>" }
        << 0
        << "theme \"Ocean\" (default)\n  file: @DIR@/themes/ocean.xml\n  packages: (none)\n  modes: (none)\n"
        << QString();

    QTest::newRow("only theme files directly in ThemesPath")
        << list
        << QStringList { ini, "themes/sub/ocean.xml|<theme name=\"Ocean\"/>", "themes/ocean.rcc|x",
               "themes/ocean.theme|<theme name=\"Ocean\"/>" }
        << 1 << QString() << "hmicore: no themes found in @DIR@/conf/../themes\n";
    QTest::newRow("no themes directory")
        << list << QStringList { ini } << 1 << QString()
        << "hmicore: no themes found in @DIR@/conf/../themes: no such directory";
}

void tst_HmiCoreTool::themeList()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, files);
    QFETCH(int, exitCode);
    QFETCH(QString, expectedOutput);
    QFETCH(QString, expectedError);

    writeFiles(files);
    const ToolRun result = run(arguments);
    QCOMPARE(result.exitCode, exitCode);
    QCOMPARE(result.out, expand(expectedOutput, mRoot));
    checkErrors(result, expectedError);
}

void tst_HmiCoreTool::pack(const QString& aPackage, const QStringList& aEntries) const
{
    QString qrc = QStringLiteral("<!DOCTYPE RCC><RCC version=\"1.0\"><qresource prefix=\"/\">\n");
    for (const QString& entry : aEntries) {
        const int equals = entry.indexOf(QLatin1Char('='));
        qrc += QStringLiteral("<file alias=\"%1\">%2</file>\n")
                   .arg(entry.left(equals), entry.mid(equals + 1));
    }
    qrc += QStringLiteral("</qresource></RCC>\n");
    // Next to the sources, which the entries name relative to it.
    const QString qrcPath = mRoot + QStringLiteral("/sources/package.qrc");
    writeFile(qrcPath, qrc.toUtf8());

    QProcess process;
#ifdef HMICORE_RCC_PATH
    process.start(QStringLiteral(HMICORE_RCC_PATH),
        { QStringLiteral("-binary"), qrcPath, QStringLiteral("-o"), aPackage });
#endif
    QVERIFY(process.waitForFinished(30000));
    QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
}

void tst_HmiCoreTool::resourceDumpPackage_data()
{
    QTest::addColumn<QString>("package");
    // "alias=source"; the sources are written by the test: a.xml and b.xml (descriptions that
    // differ), a.dat (a.xml compiled), a.cache (a.dat with a content hash, like a cache file),
    // icon.png and broken.xml.
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<int>("exitCode");
    // With exit code 0, the description whose own dump stdout must equal; otherwise a part of stderr.
    QTest::addColumn<QString>("expected");

    QTest::newRow("XML description") << "theme.rcc" << QStringList { "theme.xml=a.xml", "icon.png=icon.png" }
                                     << 0 << "a.xml";
    QTest::newRow("pre-built description wins")
        << "theme.rcc" << QStringList { "theme.xml=b.xml", "theme.dat=a.dat" } << 0 << "a.xml";
    QTest::newRow("name ends at the first dot")
        << "theme.v2.rcc" << QStringList { "theme.xml=a.xml", "theme.v2.xml=b.xml" } << 0 << "a.xml";
    QTest::newRow("any extension") << "theme.pkg" << QStringList { "theme.xml=a.xml" } << 0 << "a.xml";

    QTest::newRow("description named after another package")
        << "other.rcc" << QStringList { "theme.xml=a.xml" } << 1
        << "hmicore: cannot load @DIR@/other.rcc: the package holds neither other.dat nor other.xml";
    QTest::newRow("cache file as the description")
        << "theme.rcc" << QStringList { "theme.dat=a.cache", "theme.xml=a.xml" } << 1
        << "hmicore: cannot load @DIR@/theme.rcc: theme.dat in the package: a cache file, not a pre-built "
           "binary resource file";
    QTest::newRow("XML under the binary name")
        << "theme.rcc" << QStringList { "theme.dat=a.xml" } << 1
        << "hmicore: cannot load @DIR@/theme.rcc: theme.dat in the package: not a binary resource file";
    QTest::newRow("broken XML")
        << "theme.rcc" << QStringList { "theme.xml=broken.xml" } << 1
        << "hmicore: cannot load @DIR@/theme.rcc: theme.xml in the package: line 4, column 20: ";
    // No entries: the package is the magic of one, and garbage.
    QTest::newRow("damaged package") << "theme.rcc" << QStringList {} << 1
                                     << "hmicore: cannot load @DIR@/theme.rcc: damaged resource package";
}

void tst_HmiCoreTool::resourceDumpPackage()
{
    QFETCH(QString, package);
    QFETCH(QStringList, entries);
    QFETCH(int, exitCode);
    QFETCH(QString, expected);
#ifndef HMICORE_RCC_PATH
    QSKIP("This build does not say where rcc is");
#endif

    const QString sources = mRoot + QStringLiteral("/sources/");
    // A file name with URL characters: inside a package it must still print as written.
    writeFile(sources + QStringLiteral("a.xml"),
        resourceXml("<color><handle>c</handle><value>1,2,3</value></color>"
                    "<image><handle>i</handle><file>icon #1 (100%).png</file><width>4</width></image>"
                    "<rectangle><handle>r</handle><file>icon.png</file></rectangle>"));
    writeFile(sources + QStringLiteral("b.xml"), resourceXml("<color><handle>c</handle><value>4,5,6</value></color>"));
    writeFile(sources + QStringLiteral("broken.xml"), resourceXml("<color>"));
    writeFile(sources + QStringLiteral("icon.png"), QByteArray("not really an image"));
    const ToolRun compiled = run({ "resource", "compile", sources + "a.xml", "-o", sources + "a.dat" });
    QVERIFY2(compiled.exitCode == 0, qPrintable(compiled.err));
    {
        QFile file(sources + QStringLiteral("a.dat"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray prebuilt = file.readAll();
        // Magic and version as they are, then a 20-byte hash instead of none.
        QByteArray cache = prebuilt.left(8);
        QDataStream stream(&cache, QIODevice::Append);
        stream.setByteOrder(QDataStream::LittleEndian);
        stream << quint32(20);
        cache += QByteArray(20, '\x5a') + prebuilt.mid(12);
        writeFile(sources + QStringLiteral("a.cache"), cache);
    }

    const QString packagePath = mRoot + QLatin1Char('/') + package;
    if (entries.isEmpty()) {
        writeFile(packagePath, QByteArray("qres") + QByteArray(64, '\x01'));
    } else {
        pack(packagePath, entries);
        if (QTest::currentTestFailed()) {
            return;
        }
    }

    const ToolRun result = run({ "resource", "dump", packagePath });
    QCOMPARE(result.exitCode, exitCode);
    if (exitCode != 0) {
        QCOMPARE(result.out, QString());
        checkErrors(result, expected);
        return;
    }
    QCOMPARE(result.err, QString());
    const ToolRun reference = run({ "resource", "dump", sources + expected });
    QVERIFY2(reference.exitCode == 0, qPrintable(reference.err));
    QCOMPARE(result.out, reference.out);
}

void tst_HmiCoreTool::languageCompileEncodings_data()
{
    QTest::addColumn<QByteArray>("encoding");

    for (const char* encoding : { "UTF-8", "UTF-8 BOM", "UTF-16LE", "UTF-16BE", "UTF-16LE no BOM" }) {
        QTest::newRow(encoding) << QByteArray(encoding);
    }
}

void tst_HmiCoreTool::languageCompileEncodings()
{
    QFETCH(QByteArray, encoding);

    // Each character holds a 0x0D byte in UTF-16.
    const QString text = QStringLiteral("\u010D\u0D0A\u4E0D");
    const QString xml = QStringLiteral("<?xml version=\"1.0\"?>\r\n<catalog><strings><entry handle=\"%1\">"
                                       "<string default=\"true\"><visual>%1</visual></string></entry>"
                                       "</strings></catalog>\r\n")
                            .arg(text);
    const QString input = mRoot + QStringLiteral("/encoded.glx");
    const QString output = mRoot + QStringLiteral("/encoded.glx.dat");
    writeFile(input, encode(xml, encoding));
    const ToolRun compiled = run({ "language", "compile", input, "-o", output });
    QVERIFY2(compiled.exitCode == 0 && compiled.err.isEmpty(), qPrintable(compiled.err));

    const auto file = Hmi::Core::BinaryLanguageFile::load(output, false);
    QVERIFY(file);
    QCOMPARE(file->getNodes().keys(), QStringList { QStringLiteral("STR_") + text });
    QCOMPARE(file->getNode(QStringLiteral("STR_") + text)->getText(), text);
}

QTEST_GUILESS_MAIN(tst_HmiCoreTool)

#include "tst_hmicoretool.moc"
