#include "ConfigCommand.h"
#include "Console.h"
#include "LanguageCommand.h"
#include "ResourceCommand.h"
#include "ThemeCommand.h"

#include "frame/InstanceTracker.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QStringList>

#include <cstdio>

using namespace Hmi::Core::Tool;

namespace {

struct Command
{
    const char* name;
    const char* summary;
    /// Receives the arguments after the command name.
    int (*run)(const QStringList& aArguments);
};

// One entry per command group; a group with subcommands ("resource compile") dispatches on its
// first argument itself.
const Command sCommands[] = {
    { "config", "Print every HmiCore configuration key with the value the library would use.",
        &runConfigCommand },
    { "resource", "Compile a resource description to its binary form, or dump its nodes.",
        &runResourceCommand },
    { "language", "Compile a language file to its binary form, or dump its texts.", &runLanguageCommand },
    { "theme", "List the themes that the configuration's ThemesPath holds.", &runThemeCommand },
};

QString commandSummary()
{
    QString text = QStringLiteral("Commands:\n");
    for (const Command& command : sCommands) {
        text += QStringLiteral("  %1  %2\n")
                    .arg(QLatin1String(command.name), -10)
                    .arg(QLatin1String(command.summary));
    }
    text += QStringLiteral("\nRun \"hmicore <command> --help\" for the options of a command.\n");
    return text;
}

QtMessageHandler sPreviousHandler = nullptr;

// Starting the platform plugin, Qt looks for the session's runtime directory and warns when there
// is none, as in containers and build jobs. The tool never uses it, and scripts read its stderr.
void dropStartupNoise(QtMsgType aType, const QMessageLogContext& aContext, const QString& aMessage)
{
    if (aType == QtWarningMsg && aMessage.startsWith(QLatin1String("QStandardPaths: "))) {
        return;
    }
    sPreviousHandler(aType, aContext, aMessage);
}

} // namespace

int main(int argc, char* argv[])
{
    // Font nodes resolve their QFont against the installed fonts, which needs a GUI application;
    // no window is ever shown, so the tool runs without a display unless told otherwise.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    sPreviousHandler = qInstallMessageHandler(&dropStartupNoise);
    QGuiApplication app(argc, argv);
    qInstallMessageHandler(sPreviousHandler);
    QCoreApplication::setApplicationName(QStringLiteral("hmicore"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HMICORE_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Inspects and prepares the files of a Hmi.Core application."));
    // Not addHelpOption(): its "--help-all" only works with process(), which exits with its own codes.
    const QCommandLineOption helpOption(
        { QStringLiteral("h"), QStringLiteral("help") }, QStringLiteral("Displays this help."));
    parser.addOption(helpOption);
    const QCommandLineOption versionOption = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("The command to run."));
    // Everything after the command name belongs to the command's own parser.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);

    const QString usage = usageText(parser, QStringLiteral("hmicore [options] <command> [command options]"))
        + QLatin1Char('\n') + commandSummary();

    if (!parser.parse(QCoreApplication::arguments())) {
        return usageError(parser.errorText(), usage);
    }
    if (parser.isSet(helpOption)) {
        std::fputs(usage.toLocal8Bit().constData(), stdout);
        return ExitSuccess;
    }
    if (parser.isSet(versionOption)) {
        printLine(QStringLiteral("hmicore ") + QCoreApplication::applicationVersion());
        return ExitSuccess;
    }

    QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty()) {
        return usageError(QStringLiteral("no command given"), usage);
    }
    const QString name = arguments.takeFirst();
    for (const Command& command : sCommands) {
        if (name == QLatin1String(command.name)) {
            const int exitCode = command.run(arguments);
            // Destroy the library's singletons while the application object still exists.
            Hmi::Core::InstanceTracker::tearDown();
            return exitCode;
        }
    }
    return usageError(QStringLiteral("unknown command \"%1\"").arg(name), usage);
}
