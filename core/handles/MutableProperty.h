#pragma once

namespace Hmi::Core {

/// Stores aValue in aMember and emits through aEmit only when the value really changes.
template <typename T, typename Emit>
inline void assignAndNotify(T& aMember, const T& aValue, Emit aEmit)
{
    if (aMember == aValue) {
        return;
    }
    aMember = aValue;
    aEmit();
}

} // namespace Hmi::Core
