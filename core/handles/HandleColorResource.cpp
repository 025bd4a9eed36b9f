#include "handles/HandleColorResource.h"

#include "handles/CssUtils.h"
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
    // Not HandleColor::getColorCss(): it reads getColor() again, and a miss would be reported twice.
    return node ? node->getColorCss() : CssUtils::getColorCss(HandleColor::getColor());
}

} // namespace Hmi::Core
