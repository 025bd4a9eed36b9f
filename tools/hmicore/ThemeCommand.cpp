#include "ThemeCommand.h"

#include "ConfigSource.h"
#include "Console.h"

#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "resources/Theme.h"
#include "resources/ThemeMode.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <memory>

namespace Hmi::Core::Tool {

namespace {

const char sGroupUsage[] = "Usage: hmicore theme <subcommand> [options]\n"
                           "\n"
                           "Subcommands:\n"
                           "  list [--ini FILE]\n"
                           "           List the themes in the configuration's ThemesPath.\n"
                           "\n"
                           "Run \"hmicore theme <subcommand> --help\" for its options.\n";

QString quotedName(const QString& aName)
{
    return QLatin1Char('"') + aName + QLatin1Char('"');
}

/// Package names as a theme file lists them, each found in aDirectory or marked as missing.
QString packageList(const QStringList& aPackages, const QDir& aDirectory)
{
    if (aPackages.isEmpty()) {
        return QStringLiteral("(none)");
    }
    QStringList names;
    for (const QString& package : aPackages) {
        names.append(QFileInfo(aDirectory.filePath(package)).isFile()
                ? package
                : package + QStringLiteral(" (missing)"));
    }
    return names.join(QStringLiteral(", "));
}

int runList(const QStringList& aArguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Lists the themes in the configuration's ThemesPath in the order start-up adds them: the\n"
        "name, the theme file, its packages and each mode with its packages. The theme an\n"
        "application starts in, and the mode each theme starts in, are marked \"(default)\"."));
    const QCommandLineOption helpOption = addHelpOption(parser);
    const ConfigSource config(parser);

    const QString synopsis = QStringLiteral("hmicore theme list [options]");
    if (const int parsed = parseCommand(parser, helpOption, QStringLiteral("hmicore theme list"), synopsis, aArguments);
        parsed != sRun) {
        return parsed;
    }
    const QString usage = usageText(parser, synopsis);
    if (const int exitCode = config.load(parser, usage); exitCode != ExitSuccess) {
        return exitCode;
    }

    const QString themesPath = HmiCoreGlobal::getInstance().configs()->getThemesPath();
    const QDir directory(themesPath);
    if (!directory.exists()) {
        return fail(QStringLiteral("no themes found in %1: no such directory").arg(themesPath));
    }

    // The files and the order of start-up, and its rule for a name that is taken: the first file
    // keeps it. Theme::load() rather than the theme manager, which would load the first theme's
    // packages and write their caches.
    const QStringList files = directory.entryList({ QStringLiteral("*.xml") }, QDir::Files, QDir::Name);
    QStringList names;
    QStringList lines;
    for (const QString& file : files) {
        const QString path = directory.filePath(file);
        const std::unique_ptr<Theme> theme(Theme::load(path));
        if (!theme) {
            continue;
        }
        if (names.contains(theme->getName())) {
            printError(QStringLiteral("%1: theme %2 is already known; the file is ignored")
                           .arg(path, quotedName(theme->getName())));
            continue;
        }
        const bool isDefault = names.isEmpty();
        names.append(theme->getName());

        if (!lines.isEmpty()) {
            lines.append(QString());
        }
        lines.append(QStringLiteral("theme ") + quotedName(theme->getName())
            + (isDefault ? QStringLiteral(" (default)") : QString()));
        lines.append(QStringLiteral("  file: ") + path);
        lines.append(QStringLiteral("  packages: ") + packageList(theme->getPackages(), directory));
        const QList<ThemeMode*>& modes = theme->getModes();
        if (modes.isEmpty()) {
            lines.append(QStringLiteral("  modes: (none)"));
        }
        for (const ThemeMode* mode : modes) {
            lines.append(QStringLiteral("  mode ") + quotedName(mode->getName())
                + (mode == modes.constFirst() ? QStringLiteral(" (default)") : QString())
                + QStringLiteral(": ") + packageList(mode->getPackages(), directory));
        }
    }
    if (names.isEmpty()) {
        return fail(QStringLiteral("no themes found in %1").arg(themesPath));
    }
    for (const QString& line : qAsConst(lines)) {
        printLine(line);
    }
    return ExitSuccess;
}

} // namespace

int runThemeCommand(const QStringList& aArguments)
{
    return runSubcommand(aArguments, sGroupUsage, { { "list", &runList } });
}

} // namespace Hmi::Core::Tool
