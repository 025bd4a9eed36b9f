#include "frame/ConfigManager.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>

namespace Hmi::Core {

ConfigManager::ConfigManager(QQmlEngine* /*aEngine*/, QJSEngine* /*aScriptEngine*/)
{ }

namespace {

// QSettings splits an unquoted value at its commas and trims the parts, so "/opt/a, b" and
// "/opt/a,b" come back as the same list and the path as written cannot be recovered. Rather
// than guess, such a path counts as not set, and the user is told how to quote it.
bool isUnusablePath(const ConfigRecord& aRecord)
{
    return aRecord.isPath && aRecord.value.userType() == QMetaType::QStringList;
}

void warnUnusablePath(const QString& aKey)
{
    qWarning("WARNING: The path in %s has an unquoted comma, which makes it a list; using the "
             "default instead. Put the value in double quotes to keep the comma.",
        qUtf8Printable(aKey));
}

} // namespace

void ConfigManager::setDefault(const QString& aKey, const QVariant& aDefaultValue, bool aIsPath)
{
    ConfigRecord& record = mConfigs[aKey];
    const bool wasUnusable = isUnusablePath(record);
    record.isPath = aIsPath;
    record.defaultValue = aDefaultValue;
    // A file read before the key was known as a path has not been warned about yet.
    if (!wasUnusable && isUnusablePath(record)) {
        warnUnusablePath(aKey);
    }
}

bool ConfigManager::addConfig(const QString& aPath)
{
    const QFileInfo info(aPath);
    if (!info.exists()) {
        qWarning("WARNING: The config file, %s, could not be loaded because it does not exist.",
            qUtf8Printable(aPath));
        return false;
    }

    QSettings settings(aPath, QSettings::IniFormat);
    const QString directory = info.absolutePath() + QLatin1Char('/');
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        ConfigRecord& record = mConfigs[key];
        record.directory = directory;
        QVariant value = settings.value(key);
        if (!mPlaceholders.isEmpty()) {
            // An unquoted value with commas comes back as a list; fill each of its parts.
            if (value.userType() == QMetaType::QStringList) {
                QStringList parts = value.toStringList();
                bool replaced = false;
                for (QString& part : parts) {
                    replaced |= substitutePlaceholders(part);
                }
                if (replaced) {
                    value = parts;
                }
            } else {
                QString text = value.toString();
                if (substitutePlaceholders(text)) {
                    value = text;
                }
            }
        }
        record.value = value;
        if (isUnusablePath(record)) {
            warnUnusablePath(key);
        }
    }
    return true;
}

void ConfigManager::setPlaceholders(const QHash<QString, QString>& aPlaceholders)
{
    for (auto it = aPlaceholders.cbegin(); it != aPlaceholders.cend(); ++it) {
        mPlaceholders.insert(it.key(), it.value());
    }
}

QVariant ConfigManager::getConfig(const QString& aKey, bool aResolvePath) const
{
    const auto it = mConfigs.constFind(aKey);
    if (it == mConfigs.cend()) {
        return {};
    }
    if (it->value.isValid() && !isUnusablePath(*it)) {
        return resolved(*it, aResolvePath);
    }
    return it->defaultValue;
}

QVariant ConfigManager::getConfigValue(const QString& aKey, bool aResolvePath) const
{
    const auto it = mConfigs.constFind(aKey);
    if (it == mConfigs.cend() || !it->value.isValid() || isUnusablePath(*it)) {
        return {};
    }
    return resolved(*it, aResolvePath);
}

QVariant ConfigManager::resolved(const ConfigRecord& aRecord, bool aResolvePath) const
{
    if (aResolvePath && aRecord.isPath) {
        const QString path = aRecord.value.toString();
        if (QDir::isRelativePath(path)) {
            return QVariant(aRecord.directory + path);
        }
    }
    return aRecord.value;
}

bool ConfigManager::substitutePlaceholders(QString& aText) const
{
    if (mPlaceholders.isEmpty()) {
        return false;
    }
    static const QRegularExpression sPattern(QStringLiteral("%%([0-9a-zA-Z]{1,100})%%"));

    // Matches are found on the original text, so each replacement shifts the later ones.
    const QString original = aText;
    int offset = 0;
    bool replaced = false;
    auto matches = sPattern.globalMatch(original);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QString name = match.captured(1);
        // QMultiHash::value() returns the most recently inserted entry for a name.
        const QString replacement = mPlaceholders.value(name);
        if (replacement.isEmpty()) {
            qWarning("WARNING: Found placeholder, %s, but no corresponding value to replace it.",
                qUtf8Printable(name));
            continue;
        }
        aText.replace(match.capturedStart() + offset, match.capturedLength(), replacement);
        offset += replacement.size() - match.capturedLength();
        replaced = true;
    }
    return replaced;
}

} // namespace Hmi::Core
