#pragma once

#include "frame/PerfEventPolicyBase.h"

#include <QElapsedTimer>
#include <QHash>
#include <QString>
#include <QVariantList>

/**
 * Prints how long each start-up phase of the library took. The library raises a pair of events per
 * phase, "Hmi/Core/<phase>Start" and "Hmi/Core/<phase>End"; a product would forward them to its
 * profiler instead.
 */
class StartupTimingPolicy final : public Hmi::Core::PerfEventPolicyBase
{
    Q_OBJECT

public:
    explicit StartupTimingPolicy(QObject* aParent = nullptr);

    void raiseEvent(const QString& aEventName) override;

    /// The finished phases in the order they ended, as { phase, milliseconds } maps for QML.
    QVariantList getTimings() const { return mTimings; }

private:
    // Phases nest (loadThemes runs inside loadResources), so each has its own clock.
    QHash<QString, QElapsedTimer> mRunning;
    QVariantList mTimings;
};
