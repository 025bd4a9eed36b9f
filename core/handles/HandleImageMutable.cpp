#include "handles/HandleImageMutable.h"

namespace Hmi::Core {

HandleImageMutable::HandleImageMutable(QObject* aParent)
    : HandleImage(aParent)
{
}

HandleImageMutable::~HandleImageMutable() = default;

} // namespace Hmi::Core
