#include "handles/HandleColor.h"

#include "handles/CssUtils.h"

namespace Hmi::Core {

HandleColor::HandleColor(QObject* aParent)
    : QObject(aParent)
{ }

HandleColor::~HandleColor() = default;

QColor HandleColor::getColor() const
{
    return QColor(0, 0, 0, 0);
}

QString HandleColor::getColorCss() const
{
    return CssUtils::getColorCss(getColor());
}

} // namespace Hmi::Core
