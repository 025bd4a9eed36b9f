#include "ConfigCommand.h"

#include "ConfigSource.h"
#include "Console.h"

#include "frame/ConfigManager.h"
#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"

#include <QCommandLineParser>
#include <QSize>

#include <cstdio>

namespace Hmi::Core::Tool {

namespace {

QString windowStateName(int aState)
{
    switch (aState) {
    case Qt::WindowNoState:
        return QStringLiteral("WindowNoState");
    case Qt::WindowMinimized:
        return QStringLiteral("WindowMinimized");
    case Qt::WindowMaximized:
        return QStringLiteral("WindowMaximized");
    case Qt::WindowFullScreen:
        return QStringLiteral("WindowFullScreen");
    default:
        return QStringLiteral("unknown");
    }
}

QString formatValue(HmiCoreConfigs::Key aKey, const QVariant& aValue)
{
    QString text;
    switch (aKey) {
    case HmiCoreConfigs::PrimaryDisplayResolution:
    case HmiCoreConfigs::SecondaryDisplayResolution: {
        QStringList sizes;
        const QList<QSize> list = aValue.value<QList<QSize>>();
        for (const QSize& size : list) {
            sizes.append(QString::number(size.width()) + QLatin1Char('x') + QString::number(size.height()));
        }
        text = sizes.join(QLatin1Char(' '));
        break;
    }
    case HmiCoreConfigs::WindowState:
        text = windowStateName(aValue.toInt()) + QStringLiteral(" (") + QString::number(aValue.toInt())
            + QLatin1Char(')');
        break;
    default:
        text = aValue.toString();
        break;
    }
    // An empty value would otherwise be invisible between "=" and the source.
    return text.isEmpty() ? QStringLiteral("\"\"") : text;
}

} // namespace

int runConfigCommand(const QStringList& aArguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Prints every HmiCore configuration key with the value the library would use at start-up,\n"
        "and whether that value came from the ini file or is a default."));
    const QCommandLineOption helpOption = addHelpOption(parser);
    const ConfigSource config(parser);

    const QString synopsis = QStringLiteral("hmicore config [options]");
    if (const int parsed = parseCommand(parser, helpOption, QStringLiteral("hmicore config"), synopsis, aArguments);
        parsed != sRun) {
        return parsed;
    }
    const QString usage = usageText(parser, synopsis);
    if (const int exitCode = config.load(parser, usage); exitCode != ExitSuccess) {
        return exitCode;
    }
    const HmiCoreConfigs& configs = *HmiCoreGlobal::getInstance().configs();
    const ConfigManager& manager = ConfigManager::getInstance();

    // Convert every value before printing, so that the library's warnings about bad values come
    // out ahead of the listing instead of in the middle of it.
    QStringList names;
    QStringList values;
    int width = 0;
    for (int index = 0; index < HmiCoreConfigs::KeyCount; ++index) {
        const auto key = HmiCoreConfigs::Key(index);
        const QString name = HmiCoreConfigs::getKeyName(key);
        const bool fromFile = manager.getConfigValue(name).isValid();
        names.append(name);
        values.append(formatValue(key, configs.getValue(key))
            + (fromFile ? QStringLiteral(" (file)") : QStringLiteral(" (default)")));
        width = qMax(width, name.size());
    }
    for (int index = 0; index < names.size(); ++index) {
        printLine(names.at(index).leftJustified(width) + QStringLiteral(" = ") + values.at(index));
    }
    return ExitSuccess;
}

} // namespace Hmi::Core::Tool
