#include "frame/InstanceTracker.h"

#include <QCoreApplication>
#include <QDebug>

#include <algorithm>
#include <vector>

namespace Hmi::Core {

namespace {

    // Deliberately leaked: trackers are static members of templates whose destruction order
    // relative to this list is unknown, so the list must outlive all of them.
    std::vector<InstanceTracker*>& registry()
    {
        static auto* sRegistry = new std::vector<InstanceTracker*>();
        return *sRegistry;
    }

} // namespace

InstanceTracker::~InstanceTracker()
{
    void* instance = mInstance.exchange(nullptr, std::memory_order_acq_rel);
    if (instance && !isQmlOwned()) {
        mDeleter(instance);
    }
}

void InstanceTracker::set(void* aInstance)
{
    if (aInstance) {
        auto& trackers = registry();
        if (std::find(trackers.cbegin(), trackers.cend(), this) == trackers.cend()) {
            if (trackers.empty()) {
                // The application object's destructor is the last moment at which singletons that
                // are QObjects can still be deleted safely.
                qAddPostRoutine(&InstanceTracker::tearDown);
            }
            trackers.push_back(this);
        } else {
            qWarning("Setting a new instance after the initial instance was destroyed is strongly discouraged!");
        }
    }
    mInstance.store(aInstance, std::memory_order_release);
}

void InstanceTracker::tearDown()
{
    const auto& trackers = registry();
    for (auto it = trackers.crbegin(); it != trackers.crend(); ++it) {
        InstanceTracker* tracker = *it;
        if (tracker->isQmlOwned()) {
            continue;
        }
        void* instance = tracker->mInstance.exchange(nullptr, std::memory_order_acq_rel);
        if (instance) {
            tracker->mDeleter(instance);
        }
    }
}

} // namespace Hmi::Core
