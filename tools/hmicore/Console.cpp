#include "Console.h"

#include <QCommandLineParser>

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

} // namespace Hmi::Core::Tool
