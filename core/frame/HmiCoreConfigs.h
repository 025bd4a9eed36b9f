#pragma once

#include "hmicore_export.h"

#include <QList>
#include <QObject>
#include <QSize>
#include <QString>
#include <QVariant>

#include <array>
#include <mutex>

namespace Hmi::Core {

/**
 * Typed access to every "HmiCore/..." configuration key, with the library's defaults.
 *
 * The defaults are installed when the object is built, from whatever configuration was read up to
 * then, so a configured GnuPrefix moves every path derived from it. Each value is read once and
 * cached; later configuration does not change it.
 */
class HMICORE_EXPORT HmiCoreConfigs final : public QObject
{
    Q_OBJECT

public:
    enum Key {
        AlphaChannelEnabled,
        FontFamilyDefault,
        GnuPrefix,
        GnuBindir,
        GnuLibdir,
        GnuLocalstatedir,
        GnuSysconfdir,
        GnuDatadir,
        KeyboardsPath,
        LanguagesPath,
        SuggestionsPath,
        ThemesPath,
        StringDatabaseName,
        ResourceCachePath,
        HighlightSystemEnabled,
        IntervalPressAndHold,
        ItemIdentifierEnabled,
        PrimaryDisplayIndex,
        SecondaryDisplayIndex,
        PrimaryDisplayResolution,
        SecondaryDisplayResolution,
        SuggestionsUserWordsLimit,
        TouchDragStartDistance,
        UseSecondaryDisplay,
        WindowState,
        WindowStaysOnTopHint,
        KeyCount
    };
    Q_ENUM(Key)

    explicit HmiCoreConfigs(QObject* aParent = nullptr);
    Q_DISABLE_COPY(HmiCoreConfigs)

    /// The full configuration key, e.g. "HmiCore/ThemesPath".
    static QString getKeyName(Key aKey);
    /// Whether the key holds a file-system path that resolves against the ini file's directory.
    static bool isPathKey(Key aKey);
    /// The value of aKey converted to its type, as the typed getter returns it.
    QVariant getValue(Key aKey) const;

    Q_INVOKABLE bool getAlphaChannelEnabled() const;
    Q_INVOKABLE QString getFontFamilyDefault() const;
    Q_INVOKABLE QString getGnuPrefix() const;
    Q_INVOKABLE QString getGnuBindir() const;
    Q_INVOKABLE QString getGnuLibdir() const;
    Q_INVOKABLE QString getGnuLocalstatedir() const;
    Q_INVOKABLE QString getGnuSysconfdir() const;
    Q_INVOKABLE QString getGnuDatadir() const;
    Q_INVOKABLE QString getKeyboardsPath() const;
    Q_INVOKABLE QString getLanguagesPath() const;
    Q_INVOKABLE QString getSuggestionsPath() const;
    Q_INVOKABLE QString getThemesPath() const;
    Q_INVOKABLE QString getStringDatabaseName() const;
    Q_INVOKABLE QString getResourceCachePath() const;
    Q_INVOKABLE bool getHighlightSystemEnabled() const;
    Q_INVOKABLE int getIntervalPressAndHold() const;
    Q_INVOKABLE bool getItemIdentifierEnabled() const;
    Q_INVOKABLE int getPrimaryDisplayIndex() const;
    Q_INVOKABLE int getSecondaryDisplayIndex() const;
    Q_INVOKABLE QList<QSize> getPrimaryDisplayResolution() const;
    Q_INVOKABLE QList<QSize> getSecondaryDisplayResolution() const;
    Q_INVOKABLE uint getSuggestionsUserWordsLimit() const;
    Q_INVOKABLE int getTouchDragStartDistance() const;
    Q_INVOKABLE bool getUseSecondaryDisplay() const;
    /// A Qt::WindowState value.
    Q_INVOKABLE int getWindowState() const;
    Q_INVOKABLE bool getWindowStaysOnTopHint() const;

    /// Parses "800x480 1280x720"; stops at the first malformed entry, with a warning naming aKey.
    static QList<QSize> parseResolutionList(const QString& aText, const QString& aKey);
    /// Maps "WindowNoState", "WindowMinimized", "WindowMaximized", "WindowFullScreen" to Qt's values.
    static int parseWindowState(const QString& aText);

private:
    void installDefaults();
    QVariant convert(Key aKey, const QVariant& aRaw) const;

    mutable std::mutex mCacheLock;
    mutable std::array<QVariant, KeyCount> mCache;
};

} // namespace Hmi::Core

Q_DECLARE_METATYPE(QList<QSize>)
