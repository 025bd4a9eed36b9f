#include "LanguageCommand.h"

#include "Console.h"

#include "language/BinaryLanguageFile.h"
#include "language/NodeText.h"
#include "language/XmlLanguageFile.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdio>

namespace Hmi::Core::Tool {

namespace {

const char sGroupUsage[] = "Usage: hmicore language <subcommand> [options]\n"
                           "\n"
                           "Subcommands:\n"
                           "  compile FILE.glx -o FILE.glx.dat\n"
                           "           Write the binary form of an XML language file.\n"
                           "  dump FILE\n"
                           "           Print the catalog and every text of a language file.\n"
                           "\n"
                           "Run \"hmicore language <subcommand> --help\" for its options.\n";

/// Where the XML of aPath is broken, or an empty text.
QString xmlProblem(const QString& aPath)
{
    QFile file(aPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return file.errorString();
    }
    QXmlStreamReader reader(&file);
    return Tool::xmlProblem(reader);
}

bool isBinaryPath(const QString& aPath)
{
    // The suffix rule of LanguageFileLazy, so that the tool reads a file the way the library will.
    return aPath.endsWith(QLatin1String(".dat"));
}

QSharedPointer<LanguageFile> loadFull(const QString& aPath, QString& aReason)
{
    aReason = unreadableReason(aPath);
    if (!aReason.isEmpty()) {
        return {};
    }
    QSharedPointer<LanguageFile> file;
    if (isBinaryPath(aPath)) {
        file = BinaryLanguageFile::load(aPath, false, &aReason);
    } else {
        file = XmlLanguageFile::load(aPath, false, &aReason);
    }
    if (!file && aReason.isEmpty()) {
        aReason = QStringLiteral("cannot open");
    }
    return file;
}

// A text that was never given (null) reads "(none)", so it is told apart from an empty one.
QString quotedOrNone(const QString& aText)
{
    return aText.isNull() ? QStringLiteral("(none)") : quoted(aText);
}

// The fewest digits that read back as the same float: "1.1", not "1.10000002384".
QString formatFloat(float aValue)
{
    for (int precision = 1; precision < 9; ++precision) {
        const QString text = QString::number(double(aValue), 'g', precision);
        if (text.toFloat() == aValue) {
            return text;
        }
    }
    return QString::number(double(aValue), 'g', 9);
}

QStringList dump(const LanguageFile& aFile)
{
    QStringList lines {
        QStringLiteral("language: ") + quotedOrNone(aFile.getLanguage()),
        QStringLiteral("displayName: ") + quotedOrNone(aFile.getDisplayName()),
        QStringLiteral("codePage: ") + quotedOrNone(aFile.getCodePage()),
        QStringLiteral("catalogExtra: ") + quotedOrNone(aFile.getCatalogExtra()),
        QStringLiteral("rightToLeft: ") + formatBool(aFile.getRightToLeft()),
        QStringLiteral("version: ") + formatFloat(aFile.getVersion()),
    };
    const LanguageFile::NodeTable& nodes = aFile.getNodes();
    lines.append(QStringLiteral("texts: ") + QString::number(nodes.size()));
    QStringList keys = nodes.keys();
    std::sort(keys.begin(), keys.end());
    for (const QString& key : qAsConst(keys)) {
        const NodeText& node = *nodes.value(key);
        lines.append(quotedOrNone(key) + QStringLiteral(": text ") + quotedOrNone(node.getText())
            + QStringLiteral(", pronunciation ") + quotedOrNone(node.getPronunciation())
            + QStringLiteral(", usage speechrec=") + formatBool(node.getUseSpeechRecognition())
            + QStringLiteral(" tts=") + formatBool(node.getUseTTS()) + QStringLiteral(" visual=")
            + formatBool(node.getUseVisual()));
    }
    return lines;
}

int runCompile(const QStringList& aArguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes the binary form of an XML language file, which loads faster. Texts are stored as\n"
        "the library reads them: \\n in a visual text becomes a line feed."));
    const QCommandLineOption helpOption = addHelpOption(parser);
    const QCommandLineOption outputOption({ QStringLiteral("o"), QStringLiteral("output") },
        QStringLiteral("The binary file to write, by convention FILE.glx.dat."), QStringLiteral("FILE"));
    parser.addOption(outputOption);
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The XML language file."));

    QString input;
    const int parsed = parseOneFile(parser, helpOption, QStringLiteral("hmicore language compile"),
        QStringLiteral("hmicore language compile [options] FILE -o FILE"), aArguments, input);
    if (parsed != sRun) {
        return parsed;
    }
    const QString output = parser.value(outputOption);
    if (output.isEmpty()) {
        return usageError(QStringLiteral("no output file given (-o FILE)"),
            usageText(parser, QStringLiteral("hmicore language compile [options] FILE -o FILE")));
    }

    QString reason = unreadableReason(input);
    if (reason.isEmpty()) {
        reason = xmlProblem(input);
    }
    QSharedPointer<LanguageFile> file;
    if (reason.isEmpty()) {
        // XML whatever the suffix: compiling a binary file again would only copy it.
        file = XmlLanguageFile::load(input, false, &reason);
    }
    if (!file) {
        return fail(QStringLiteral("cannot load %1: %2").arg(input, reason));
    }
    if (!BinaryLanguageFile::save(output, *file)) {
        return fail(QStringLiteral("cannot write %1: %2").arg(output, writeFailureReason(output)));
    }
    return ExitSuccess;
}

int runDump(const QStringList& aArguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Prints the catalog of a language file and every text on a line of its own, keys ascending.\n"
        "A file ending in .dat is read as binary, any other as XML. Line feeds print as \\n and a\n"
        "text that was never given prints as (none)."));
    const QCommandLineOption helpOption = addHelpOption(parser);
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The language file, XML or binary."));

    QString input;
    const int parsed = parseOneFile(parser, helpOption, QStringLiteral("hmicore language dump"),
        QStringLiteral("hmicore language dump [options] FILE"), aArguments, input);
    if (parsed != sRun) {
        return parsed;
    }
    QString reason;
    const QSharedPointer<LanguageFile> file = loadFull(input, reason);
    if (!file) {
        return fail(QStringLiteral("cannot load %1: %2").arg(input, reason));
    }
    const QStringList lines = dump(*file);
    for (const QString& line : lines) {
        printLine(line);
    }
    return ExitSuccess;
}

} // namespace

int runLanguageCommand(const QStringList& aArguments)
{
    return runSubcommand(aArguments, sGroupUsage, { { "compile", &runCompile }, { "dump", &runDump } });
}

} // namespace Hmi::Core::Tool
