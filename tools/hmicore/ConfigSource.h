#pragma once

#include <QCommandLineOption>
#include <QString>

class QCommandLineParser;

namespace Hmi::Core::Tool {

/**
 * The options that name the configuration a command reads ("--ini FILE", "--app NAME",
 * "--placeholder NAME=VALUE"), and the reading itself, done as the library does at start-up.
 *
 * \code
 * QCommandLineParser parser;
 * const ConfigSource config(parser);
 * ... parse ...
 * if (const int exitCode = config.load(parser, usage); exitCode != ExitSuccess) {
 *     return exitCode;
 * }
 * \endcode
 */
class ConfigSource final
{
public:
    /// Adds the options to aParser.
    explicit ConfigSource(QCommandLineParser& aParser);

    /**
     * Applies --app, then reads the file --ini names or, without --ini, NAME.ini in the working
     * directory when there is one. Reports unknown keys in the file. Returns ExitSuccess, or the
     * exit code after printing why the configuration could not be read.
     */
    int load(const QCommandLineParser& aParser, const QString& aUsage) const;

private:
    QCommandLineOption mIni;
    QCommandLineOption mApp;
    QCommandLineOption mPlaceholder;
};

} // namespace Hmi::Core::Tool
