#pragma once

#include "hmicore_export.h"

#include <QObject>

namespace Hmi::Core {

/**
 * Decides which view the application shows (normal, settings, a widget). The global object keeps
 * the first policy the application installs and calls initialize() once, where a derived policy
 * connects itself to the application's state changes.
 *
 * \code
 * class CarViewPolicy : public Hmi::Core::ApplicationViewPolicyBase {
 *     void initialize() override { connect(vehicle, &Vehicle::reverseGear, this, [this] {
 *         setApplicationViewMode(HmiCoreGlobal::ApplicationViewModeSettings); }); }
 * };
 * \endcode
 */
class HMICORE_EXPORT ApplicationViewPolicyBase : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int applicationViewMode READ getApplicationViewMode NOTIFY applicationViewModeChanged)

public:
    explicit ApplicationViewPolicyBase(QObject* aParent = nullptr);
    ~ApplicationViewPolicyBase() override;
    Q_DISABLE_COPY(ApplicationViewPolicyBase)

    /// Set-up hook, run once when the policy is installed.
    virtual void initialize();

    /// A HmiCoreGlobal::ApplicationViewMode value.
    int getApplicationViewMode() const { return mApplicationViewMode; }
    /// Asks for another view; the base policy grants every request.
    Q_INVOKABLE virtual void requestApplicationViewMode(int aMode);

signals:
    void applicationViewModeChanged();

protected:
    void setApplicationViewMode(int aMode);

private:
    int mApplicationViewMode = 0;
};

} // namespace Hmi::Core
