#include "handles/HandleColorMutable.h"

#include "handles/CssUtils.h"

namespace Hmi::Core {

HandleColorMutable::HandleColorMutable(QObject* aParent)
    : HandleColor(aParent)
{
}

HandleColorMutable::~HandleColorMutable() = default;

void HandleColorMutable::setColor(const QColor& aColor)
{
    if (aColor == mColor) {
        return;
    }
    mColor = aColor;
    mColorCss.clear();
    emit colorChanged();
}

QString HandleColorMutable::getColorCss() const
{
    if (mColorCss.isEmpty()) {
        mColorCss = CssUtils::getColorCss(mColor);
    }
    return mColorCss;
}

} // namespace Hmi::Core
