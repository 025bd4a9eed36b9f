#pragma once

#include "frame/SingletonCppQml.h"
#include "hmicore_export.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <mutex>

namespace Hmi::Core {

class Theme;
class ThemeMode;
class ThemePolicyBase;

/**
 * Knows the themes that start-up found and keeps the current theme and mode loaded in the
 * resource manager. A switch loads the new packages before it unloads the old ones, so a handle
 * never sees a value go missing in between.
 *
 * \code
 * // QML
 * Button { onClicked: ThemeManager.currentMode = "night" }
 * \endcode
 */
class HMICORE_EXPORT ThemeManager final : public QObject, public SingletonCppQml<ThemeManager>
{
    Q_OBJECT
    Q_PROPERTY(QStringList themes READ getThemes NOTIFY themesChanged)
    Q_PROPERTY(QString currentTheme READ getCurrentTheme WRITE setCurrentTheme NOTIFY currentThemeChanged)
    Q_PROPERTY(QStringList modes READ getModes NOTIFY modesChanged)
    Q_PROPERTY(QString currentMode READ getCurrentMode WRITE setCurrentMode NOTIFY currentModeChanged)

public:
    ThemeManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);
    ~ThemeManager() override;
    Q_DISABLE_COPY(ThemeManager)

    /// Reads a theme file; the first theme added becomes current, in its first mode.
    bool addTheme(const QString& aPath);

    QStringList getThemes() const;
    QString getCurrentTheme() const;
    /// The modes of the current theme.
    QStringList getModes() const;
    QString getCurrentMode() const;
    /// Null when no theme of that name exists. The manager keeps ownership.
    Theme* getTheme(const QString& aName) const;

    /// Switches theme (to its first mode) if the policy allows; false, with a warning, for an unknown name.
    Q_INVOKABLE bool setCurrentTheme(const QString& aTheme);
    /// Switches mode within the current theme; false, with a warning, for an unknown name.
    Q_INVOKABLE bool setCurrentMode(const QString& aMode);

    /// Takes ownership; a later policy replaces the earlier one.
    void setThemePolicy(ThemePolicyBase* aPolicy);

    /// Switches to aTheme in aMode (its first mode when empty), without asking the policy.
    bool activate(const QString& aTheme, const QString& aMode);

signals:
    void themesChanged();
    void currentThemeChanged();
    void modesChanged();
    void currentModeChanged();

private:
    mutable std::recursive_mutex mMutex;
    QList<Theme*> mThemes;
    Theme* mCurrentTheme = nullptr;
    ThemeMode* mCurrentMode = nullptr;
    QStringList mActivePackages;
    QPointer<ThemePolicyBase> mPolicy;
};

} // namespace Hmi::Core
