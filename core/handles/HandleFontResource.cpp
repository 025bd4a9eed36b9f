#include "handles/HandleFontResource.h"

#include "handles/CssUtils.h"
#include "resources/NodeFont.h"

namespace Hmi::Core {

HandleFontResource::HandleFontResource(QObject* aParent)
    : HandleFont(aParent)
    , mState(this, ResourceType::Font,
          { [this] { emit nameChanged(); }, [this] { emit nameExistsChanged(); }, [this] { emit fontChanged(); } })
{
}

HandleFontResource::~HandleFontResource() = default;

QFont HandleFontResource::getFont() const
{
    const auto node = mState.get<NodeFont>();
    return node ? node->getFont() : HandleFont::getFont();
}

QString HandleFontResource::getFontCss() const
{
    const auto node = mState.get<NodeFont>();
    // Not HandleFont::getFontCss(): it reads getFont() again, and a miss would be reported twice.
    return node ? node->getFontCss() : CssUtils::getFontCss(HandleFont::getFont());
}

} // namespace Hmi::Core
