#include "handles/HandleColorResource.h"

#include "resources/NodeColor.h"

namespace Hmi::Core {

HandleColorResource::HandleColorResource(QObject* aParent)
    : HandleColor(aParent)
    , mState(this, ResourceType::Color,
          { [this] { emit nameChanged(); }, [this] { emit nameExistsChanged(); }, [this] { emit colorChanged(); } })
{
}

HandleColorResource::~HandleColorResource() = default;

QColor HandleColorResource::getColor() const
{
    const auto node = mState.get<NodeColor>();
    return node ? node->getColor() : HandleColor::getColor();
}

QString HandleColorResource::getColorCss() const
{
    const auto node = mState.get<NodeColor>();
    return node ? node->getColorCss() : HandleColor::getColorCss();
}

} // namespace Hmi::Core
