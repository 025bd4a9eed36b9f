#pragma once

#include "hmicore_export.h"

#include <QtGlobal>

#include <atomic>

namespace Hmi::Core {

/**
 * Holds the one instance of a singleton class and remembers whether a QML engine owns it.
 *
 * Every tracker that ever received an instance is listed in a process-wide registry, in the order
 * of first use, so that tearDown() can destroy the singletons in reverse order of creation.
 */
class HMICORE_EXPORT InstanceTracker final
{
public:
    using Deleter = void (*)(void*);

    explicit constexpr InstanceTracker(Deleter aDeleter) noexcept
        : mDeleter(aDeleter)
    {
    }
    ~InstanceTracker();
    Q_DISABLE_COPY(InstanceTracker)

    void* get() const noexcept { return mInstance.load(std::memory_order_acquire); }
    void set(void* aInstance);
    bool isQmlOwned() const noexcept { return mQmlOwned.load(std::memory_order_acquire); }
    void setQmlOwned(bool aQmlOwned) noexcept { mQmlOwned.store(aQmlOwned, std::memory_order_release); }

    /// Destroys every tracked instance that no QML engine owns, last created first.
    static void tearDown();

private:
    std::atomic<void*> mInstance { nullptr };
    std::atomic<bool> mQmlOwned { false };
    const Deleter mDeleter;
};

} // namespace Hmi::Core
