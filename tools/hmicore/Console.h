#pragma once

#include <QString>
#include <QStringList>

#include <initializer_list>

class QCommandLineOption;
class QCommandLineParser;
class QXmlStreamReader;

namespace Hmi::Core::Tool {

/// The tool's exit codes; scripts rely on them.
enum ExitCode
{
    ExitSuccess = 0,
    /// The input (a file, a value in it) could not be processed.
    ExitFailure = 1,
    /// The command line itself is wrong.
    ExitUsage = 2
};

/// Writes aText and a line feed to stdout, in the local encoding like the arguments came in.
void printLine(const QString& aText);

/// Writes "hmicore: aMessage" to stderr.
void printError(const QString& aMessage);

/// Prints aMessage, returns ExitFailure.
int fail(const QString& aMessage);

/// Prints aMessage followed by the usage text to stderr, returns ExitUsage.
int usageError(const QString& aMessage, const QString& aUsage);

/**
 * The parser's help text with its first line replaced by "Usage: aSynopsis": the parser would name
 * the executable as it was invoked and knows nothing of command groups.
 */
QString usageText(const QCommandLineParser& aParser, const QString& aSynopsis);

/// Why aPath cannot be read as a file ("no such file", "not a file", "permission denied"), or empty.
QString unreadableReason(const QString& aPath);

/// Why aPath could not be written, as far as can be told afterwards.
QString writeFailureReason(const QString& aPath);

/// aText in double quotes with quotes, backslashes and control characters escaped, so that an
/// empty text shows and a multi-line text stays on one line.
QString quoted(const QString& aText);

QString formatBool(bool aValue);

/// Reads the rest of aReader's document: "line L, column C: <error>" where it is broken, or empty.
QString xmlProblem(QXmlStreamReader& aReader);

struct Subcommand
{
    const char* name;
    int (*run)(const QStringList& aArguments);
};

/**
 * Runs the subcommand of a command group named by the first of aArguments, with the rest;
 * prints aGroupUsage for "-h"/"--help", and as a usage error when the subcommand is missing or unknown.
 */
int runSubcommand(const QStringList& aArguments, const char* aGroupUsage, std::initializer_list<Subcommand> aSubcommands);

/// Adds "-h, --help" to aParser and returns it.
QCommandLineOption addHelpOption(QCommandLineParser& aParser);

/// Returned by parseOneFile() when the subcommand is to run.
constexpr int sRun = -1;

/**
 * Parses aArguments for the subcommand aName: sRun when it is to run, or the exit code to return
 * after printing the help text or a usage error. With aInput, the subcommand takes exactly one
 * input file and aInput receives it; without, it takes no positional argument.
 */
int parseCommand(QCommandLineParser& aParser, const QCommandLineOption& aHelpOption, const QString& aName,
    const QString& aSynopsis, const QStringList& aArguments, QString* aInput = nullptr);

/// parseCommand() for a subcommand that takes one input file.
int parseOneFile(QCommandLineParser& aParser, const QCommandLineOption& aHelpOption, const QString& aName,
    const QString& aSynopsis, const QStringList& aArguments, QString& aInput);

} // namespace Hmi::Core::Tool
