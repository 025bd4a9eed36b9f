#include "ConfigSource.h"

#include "Console.h"

#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreInitializer.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSettings>

namespace Hmi::Core::Tool {

namespace {

const QString sSection = QStringLiteral("HmiCore");

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
QString unreadableIniReason(const QString& aFile)
{
    const QString reason = Tool::unreadableReason(aFile);
    if (!reason.isEmpty()) {
        return reason;
    }
    QSettings settings(aFile, QSettings::IniFormat);
    if (settings.status() != QSettings::NoError) {
        return QStringLiteral("not a valid ini file");
    }
    return {};
}

// A misspelt key is silently ignored by the library and leaves its default in place; that is
// exactly what someone running the tool is looking for.
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

ConfigSource::ConfigSource(QCommandLineParser& aParser)
    : mIni(QStringLiteral("ini"),
        QStringLiteral("The ini file to read (default: NAME.ini in the current directory, when it exists)."),
        QStringLiteral("FILE"))
    , mApp(QStringLiteral("app"),
          QStringLiteral("Derive the defaults as the application NAME would (default: hmicore)."),
          QStringLiteral("NAME"))
    , mPlaceholder(QStringLiteral("placeholder"),
          QStringLiteral(
              "Replace %%NAME%% in the file's values by VALUE. May be repeated; the last one wins."),
          QStringLiteral("NAME=VALUE"))
{
    aParser.addOptions({ mIni, mApp, mPlaceholder });
}

int ConfigSource::load(const QCommandLineParser& aParser, const QString& aUsage) const
{
    QHash<QString, QString> placeholders;
    QString error;
    if (!parsePlaceholders(aParser.values(mPlaceholder), placeholders, error)) {
        return usageError(error, aUsage);
    }

    if (aParser.isSet(mApp)) {
        const QString appName = aParser.value(mApp);
        if (appName.isEmpty()) {
            return usageError(QStringLiteral("the application name must not be empty"), aUsage);
        }
        // Must precede the first use of HmiCoreConfigs, which derives its defaults from it.
        QCoreApplication::setApplicationName(appName);
    }

    // Without --ini the tool looks where the library would, but a missing default file is normal
    // and not worth the library's warning.
    QString file = aParser.value(mIni);
    if (!aParser.isSet(mIni)) {
        file = QCoreApplication::applicationName() + QStringLiteral(".ini");
        if (!QFileInfo(file).isFile()) {
            file.clear();
        }
    }
    if (!file.isEmpty()) {
        const QString reason = unreadableIniReason(file);
        if (!reason.isEmpty()) {
            return fail(QStringLiteral("cannot read %1: %2").arg(file, reason));
        }
        warnAboutUnknownKeys(file);
        HmiCoreInitializer().loadConfig(file, placeholders);
    }
    return ExitSuccess;
}

} // namespace Hmi::Core::Tool
