#include "StartupTimingPolicy.h"

#include <QVariantMap>

#include <cstdio>

namespace {

const QString sPrefix = QStringLiteral("Hmi/Core/");
const QString sStart = QStringLiteral("Start");
const QString sEnd = QStringLiteral("End");

} // namespace

StartupTimingPolicy::StartupTimingPolicy(QObject* aParent)
    : PerfEventPolicyBase(aParent)
{ }

void StartupTimingPolicy::raiseEvent(const QString& aEventName)
{
    const QString marker = aEventName.startsWith(sPrefix) ? aEventName.mid(sPrefix.size()) : aEventName;
    if (marker.endsWith(sStart)) {
        mRunning[marker.chopped(sStart.size())].start();
        return;
    }
    if (!marker.endsWith(sEnd)) {
        return;
    }
    const auto running = mRunning.find(marker.chopped(sEnd.size()));
    if (running == mRunning.end()) {
        return;
    }
    const double milliseconds = double(running->nsecsElapsed()) / 1e6;
    std::printf("showcase: %s %.2f ms\n", qUtf8Printable(running.key()), milliseconds);
    std::fflush(stdout);
    mTimings.append(QVariantMap {
        { QStringLiteral("phase"), running.key() }, { QStringLiteral("milliseconds"), milliseconds } });
    mRunning.erase(running);
}
