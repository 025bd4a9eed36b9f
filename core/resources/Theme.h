#pragma once

#include "hmicore_export.h"

#include <QList>
#include <QObject>
#include <QStringList>

namespace Hmi::Core {

class ThemeMode;

/**
 * A theme as a theme file describes it: a name, the resource packages it is made of (highest
 * priority first) and its modes, each adding packages of its own.
 *
 * \code
 * <theme name="Ocean">
 *     <package>ocean.rcc</package>
 *     <mode name="day"><package>ocean_day.rcc</package></mode>
 *     <mode name="night"><package>ocean_night.rcc</package></mode>
 * </theme>
 * \endcode
 */
class HMICORE_EXPORT Theme final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName CONSTANT)
    Q_PROPERTY(QStringList packages READ getPackages CONSTANT)
    Q_PROPERTY(QStringList modeNames READ getModeNames CONSTANT)

public:
    ~Theme() override;
    Q_DISABLE_COPY(Theme)

    /// Reads a theme file; null, with a warning, when it is unreadable or not a theme.
    static Theme* load(const QString& aPath, QObject* aParent = nullptr);

    const QString& getName() const { return mName; }
    const QString& getFilePath() const { return mFilePath; }
    const QStringList& getPackages() const { return mPackages; }
    const QList<ThemeMode*>& getModes() const { return mModes; }
    QStringList getModeNames() const;
    /// Null when the theme has no mode of that name.
    ThemeMode* getMode(const QString& aName) const;

private:
    explicit Theme(QObject* aParent);

    QString mName;
    QString mFilePath;
    QStringList mPackages;
    QList<ThemeMode*> mModes;
};

} // namespace Hmi::Core
