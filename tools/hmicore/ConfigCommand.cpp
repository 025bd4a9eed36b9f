#include "ConfigCommand.h"

#include "Console.h"

#include "frame/ConfigManager.h"
#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "frame/HmiCoreInitializer.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSettings>
#include <QSize>

#include <cstdio>

namespace Hmi::Core::Tool {

namespace {

const QString sSection = QStringLiteral("HmiCore");

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

/// Splits "NAME=VALUE" options; false with aError set when one is malformed.
bool parsePlaceholders(const QStringList& aOptions, QHash<QString, QString>& aTable, QString& aError)
{
    static const QRegularExpression sName(QStringLiteral("^[0-9a-zA-Z]{1,100}$"));
    for (const QString& option : aOptions) {
        const int equals = option.indexOf(QLatin1Char('='));
        if (equals < 0) {
            aError = QStringLiteral("invalid placeholder \"%1\": expected NAME=VALUE").arg(option);
            return false;
        }
        const QString name = option.left(equals);
        // The library only recognises such names; any other could never be replaced.
        if (!sName.match(name).hasMatch()) {
            aError = QStringLiteral("invalid placeholder name \"%1\": use 1 to 100 letters and digits")
                         .arg(name);
            return false;
        }
        aTable.insert(name, option.mid(equals + 1));
    }
    return true;
}

/// Why aFile cannot be used as an ini file, or an empty text.
QString unreadableReason(const QString& aFile)
{
    const QFileInfo info(aFile);
    if (!info.exists()) {
        return QStringLiteral("no such file");
    }
    if (!info.isFile()) {
        return QStringLiteral("not a file");
    }
    if (!info.isReadable()) {
        return QStringLiteral("permission denied");
    }
    QSettings settings(aFile, QSettings::IniFormat);
    if (settings.status() != QSettings::NoError) {
        return QStringLiteral("not a valid ini file");
    }
    return {};
}

// A misspelt key is silently ignored by the library and leaves its default in place; that is
// exactly what someone running this command is looking for.
void warnAboutUnknownKeys(const QString& aFile)
{
    QSettings settings(aFile, QSettings::IniFormat);
    settings.beginGroup(sSection);
    QStringList known;
    for (int key = 0; key < HmiCoreConfigs::KeyCount; ++key) {
        known.append(HmiCoreConfigs::getKeyName(HmiCoreConfigs::Key(key)));
    }
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        const QString fullName = sSection + QLatin1Char('/') + key;
        if (!known.contains(fullName)) {
            printError(QStringLiteral("%1: unknown key %2 is ignored").arg(aFile, fullName));
        }
    }
}

} // namespace

int runConfigCommand(const QStringList& aArguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Prints every HmiCore configuration key with the value the library would use at start-up,\n"
        "and whether that value came from the ini file or is a default."));
    const QCommandLineOption helpOption(
        { QStringLiteral("h"), QStringLiteral("help") }, QStringLiteral("Displays this help."));
    parser.addOption(helpOption);
    const QCommandLineOption iniOption(QStringLiteral("ini"),
        QStringLiteral("The ini file to read (default: NAME.ini in the current directory, when it exists)."),
        QStringLiteral("FILE"));
    const QCommandLineOption appOption(QStringLiteral("app"),
        QStringLiteral("Derive the defaults as the application NAME would (default: hmicore)."),
        QStringLiteral("NAME"));
    const QCommandLineOption placeholderOption(QStringLiteral("placeholder"),
        QStringLiteral("Replace %%NAME%% in the file's values by VALUE. May be repeated; the last one wins."),
        QStringLiteral("NAME=VALUE"));
    parser.addOptions({ iniOption, appOption, placeholderOption });

    const QString usage = usageText(parser, QStringLiteral("hmicore config [options]"));
    if (!parser.parse(QStringList { QStringLiteral("hmicore config") } + aArguments)) {
        return usageError(parser.errorText(), usage);
    }
    if (parser.isSet(helpOption)) {
        std::fputs(usage.toLocal8Bit().constData(), stdout);
        return ExitSuccess;
    }
    if (!parser.positionalArguments().isEmpty()) {
        return usageError(
            QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().constFirst()),
            usage);
    }

    QHash<QString, QString> placeholders;
    QString error;
    if (!parsePlaceholders(parser.values(placeholderOption), placeholders, error)) {
        return usageError(error, usage);
    }

    if (parser.isSet(appOption)) {
        const QString appName = parser.value(appOption);
        if (appName.isEmpty()) {
            return usageError(QStringLiteral("the application name must not be empty"), usage);
        }
        // Must precede the first use of HmiCoreConfigs, which derives its defaults from it.
        QCoreApplication::setApplicationName(appName);
    }

    // Without --ini the tool looks where the library would, but a missing default file is normal
    // and not worth the library's warning.
    QString file = parser.value(iniOption);
    if (!parser.isSet(iniOption)) {
        file = QCoreApplication::applicationName() + QStringLiteral(".ini");
        if (!QFileInfo(file).isFile()) {
            file.clear();
        }
    }

    if (!file.isEmpty()) {
        const QString reason = unreadableReason(file);
        if (!reason.isEmpty()) {
            return fail(QStringLiteral("cannot read %1: %2").arg(file, reason));
        }
        warnAboutUnknownKeys(file);
        HmiCoreInitializer().loadConfig(file, placeholders);
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
