#include "Console.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <cstdio>

namespace Hmi::Core::Tool {

namespace {

void write(std::FILE* aStream, const QString& aText)
{
    std::fputs(aText.toLocal8Bit().constData(), aStream);
    std::fputc('\n', aStream);
}

} // namespace

void printLine(const QString& aText)
{
    write(stdout, aText);
}

void printError(const QString& aMessage)
{
    // The library's own warnings go to stderr unbuffered; flush stdout first so that a reader of
    // both streams sees them in order.
    std::fflush(stdout);
    write(stderr, QStringLiteral("hmicore: ") + aMessage);
}

int fail(const QString& aMessage)
{
    printError(aMessage);
    return ExitFailure;
}

int usageError(const QString& aMessage, const QString& aUsage)
{
    printError(aMessage);
    std::fputs(aUsage.toLocal8Bit().constData(), stderr);
    return ExitUsage;
}

QString usageText(const QCommandLineParser& aParser, const QString& aSynopsis)
{
    const QString help = aParser.helpText();
    const int endOfFirstLine = help.indexOf(QLatin1Char('\n'));
    return QStringLiteral("Usage: ") + aSynopsis
        + (endOfFirstLine < 0 ? QString() : help.mid(endOfFirstLine));
}

QString unreadableReason(const QString& aPath)
{
    const QFileInfo info(aPath);
    if (!info.exists()) {
        return QStringLiteral("no such file");
    }
    if (!info.isFile()) {
        return QStringLiteral("not a file");
    }
    if (!info.isReadable()) {
        return QStringLiteral("permission denied");
    }
    return {};
}

QString writeFailureReason(const QString& aPath)
{
    const QFileInfo info(aPath);
    if (info.isDir()) {
        return QStringLiteral("is a directory");
    }
    const QFileInfo directory(info.absolutePath());
    if (!directory.isDir()) {
        return QStringLiteral("no such directory");
    }
    if (!directory.isWritable()) {
        return QStringLiteral("permission denied");
    }
    return QStringLiteral("write failed");
}

QString quoted(const QString& aText)
{
    QString result;
    result.reserve(aText.size() + 2);
    result += QLatin1Char('"');
    for (const QChar c : aText) {
        switch (c.unicode()) {
        case '"':
            result += QLatin1String("\\\"");
            break;
        case '\\':
            result += QLatin1String("\\\\");
            break;
        case '\n':
            result += QLatin1String("\\n");
            break;
        case '\r':
            result += QLatin1String("\\r");
            break;
        case '\t':
            result += QLatin1String("\\t");
            break;
        default:
            if (c.unicode() < 0x20) {
                result += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
            } else {
                result += c;
            }
            break;
        }
    }
    result += QLatin1Char('"');
    return result;
}

QString formatBool(bool aValue)
{
    return aValue ? QStringLiteral("true") : QStringLiteral("false");
}

QCommandLineOption addHelpOption(QCommandLineParser& aParser)
{
    const QCommandLineOption helpOption(
        { QStringLiteral("h"), QStringLiteral("help") }, QStringLiteral("Displays this help."));
    aParser.addOption(helpOption);
    return helpOption;
}

int parseCommand(QCommandLineParser& aParser, const QCommandLineOption& aHelpOption, const QString& aName,
    const QString& aSynopsis, const QStringList& aArguments, QString* aInput)
{
    const QString usage = usageText(aParser, aSynopsis);
    if (!aParser.parse(QStringList { aName } + aArguments)) {
        return usageError(aParser.errorText(), usage);
    }
    if (aParser.isSet(aHelpOption)) {
        std::fputs(usage.toLocal8Bit().constData(), stdout);
        return ExitSuccess;
    }
    const QStringList arguments = aParser.positionalArguments();
    const int expected = aInput ? 1 : 0;
    if (arguments.size() < expected) {
        return usageError(QStringLiteral("no input file given"), usage);
    }
    if (arguments.size() > expected) {
        return usageError(QStringLiteral("unexpected argument \"%1\"").arg(arguments.at(expected)), usage);
    }
    if (aInput) {
        *aInput = arguments.constFirst();
    }
    return sRun;
}

int parseOneFile(QCommandLineParser& aParser, const QCommandLineOption& aHelpOption, const QString& aName,
    const QString& aSynopsis, const QStringList& aArguments, QString& aInput)
{
    return parseCommand(aParser, aHelpOption, aName, aSynopsis, aArguments, &aInput);
}

QString xmlProblem(QXmlStreamReader& aReader)
{
    while (!aReader.atEnd()) {
        aReader.readNext();
    }
    if (aReader.hasError()) {
        return QStringLiteral("line %1, column %2: %3")
            .arg(aReader.lineNumber())
            .arg(aReader.columnNumber())
            .arg(aReader.errorString());
    }
    return {};
}

int runSubcommand(const QStringList& aArguments, const char* aGroupUsage, std::initializer_list<Subcommand> aSubcommands)
{
    const QString usage = QString::fromLatin1(aGroupUsage);
    if (aArguments.isEmpty()) {
        return usageError(QStringLiteral("no subcommand given"), usage);
    }
    const QString subcommand = aArguments.constFirst();
    if (subcommand == QLatin1String("-h") || subcommand == QLatin1String("--help")) {
        std::fputs(aGroupUsage, stdout);
        return ExitSuccess;
    }
    for (const Subcommand& candidate : aSubcommands) {
        if (subcommand == QLatin1String(candidate.name)) {
            return candidate.run(aArguments.mid(1));
        }
    }
    return usageError(QStringLiteral("unknown subcommand \"%1\"").arg(subcommand), usage);
}

} // namespace Hmi::Core::Tool
