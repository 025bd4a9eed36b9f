#pragma once

#include "hmicore_export.h"

#include <QObject>

namespace Hmi::Core {

/**
 * Lets the application decide the theme and mode, for example night mode from a light sensor or
 * a theme per user profile. The theme manager calls initialize() once when the policy is
 * installed; the policy then switches through requestTheme() and requestMode().
 *
 * \code
 * class LightSensorPolicy : public Hmi::Core::ThemePolicyBase {
 *     void initialize() override {
 *         connect(sensor, &Sensor::darkChanged, this, [this](bool aDark) {
 *             requestMode(aDark ? QStringLiteral("night") : QStringLiteral("day"));
 *         });
 *     }
 * };
 * \endcode
 */
class HMICORE_EXPORT ThemePolicyBase : public QObject
{
    Q_OBJECT

public:
    explicit ThemePolicyBase(QObject* aParent = nullptr);
    ~ThemePolicyBase() override;
    Q_DISABLE_COPY(ThemePolicyBase)

    /// Set-up hook, run once when the policy is installed.
    virtual void initialize();

    /// Whether a switch asked for from QML or native code may happen; the base allows all.
    virtual bool allowThemeChange(const QString& aTheme, const QString& aMode);

protected:
    /// Switches theme or mode, bypassing allowThemeChange(); false for an unknown name.
    bool requestTheme(const QString& aTheme);
    bool requestMode(const QString& aMode);
};

} // namespace Hmi::Core
