#include "handles/HandleDefaults.h"

namespace Hmi::Core {

HandleDefaults::HandleDefaults(QObject* aParent)
    : QObject(aParent)
{ }

HandleDefaults::~HandleDefaults() = default;

QVariantMap HandleDefaults::getDefaults() const
{
    return QVariantMap();
}

} // namespace Hmi::Core
