#include "handles/HandleDefaultsResource.h"

#include "resources/NodeDefaults.h"

namespace Hmi::Core {

HandleDefaultsResource::HandleDefaultsResource(QObject* aParent)
    : HandleDefaults(aParent)
    , mState(this, ResourceType::Defaults,
          { [this] { emit nameChanged(); }, [this] { emit nameExistsChanged(); }, [this] { emit defaultsChanged(); } })
{
}

HandleDefaultsResource::~HandleDefaultsResource() = default;

QVariantMap HandleDefaultsResource::getDefaults() const
{
    const auto node = mState.get<NodeDefaults>();
    return node ? QVariantMap(node->getDefaults()) : HandleDefaults::getDefaults();
}

} // namespace Hmi::Core
