#pragma once

#include "frame/ConfigRecord.h"
#include "frame/SingletonCpp.h"
#include "hmicore_export.h"

#include <QHash>
#include <QMultiHash>
#include <QString>
#include <QVariant>

class QJSEngine;
class QQmlEngine;

namespace Hmi::Core {

/**
 * The configuration store: ini files read in order, later files overriding earlier ones key by
 * key, with "%%Name%%" placeholders filled from a table the application provides.
 *
 * Keys are "Section/Key", e.g. "HmiCore/ThemesPath".
 */
class HMICORE_EXPORT ConfigManager final : public SingletonCpp<ConfigManager>
{
public:
    ConfigManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);
    Q_DISABLE_COPY(ConfigManager)

    void setDefault(const QString& aKey, const QVariant& aDefaultValue, bool aIsPath);
    bool addConfig(const QString& aPath);
    void setPlaceholders(const QHash<QString, QString>& aPlaceholders);

    /// The file's value when one was read (resolved against the file's directory when asked),
    /// else the default; an invalid variant for an unknown key. A path that the ini file gave
    /// with an unquoted comma comes back from QSettings as a list; it counts as not set, with a
    /// warning when it is read.
    QVariant getConfig(const QString& aKey, bool aResolvePath = true) const;
    /// As getConfig(), but without falling back to the default.
    QVariant getConfigValue(const QString& aKey, bool aResolvePath = true) const;

    /// Substitutes every known placeholder in aText; true when at least one was replaced.
    bool substitutePlaceholders(QString& aText) const;

private:
    QVariant resolved(const ConfigRecord& aRecord, bool aResolvePath) const;

    QHash<QString, ConfigRecord> mConfigs;
    QMultiHash<QString, QString> mPlaceholders;
};

} // namespace Hmi::Core
