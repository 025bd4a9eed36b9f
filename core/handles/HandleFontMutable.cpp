#include "handles/HandleFontMutable.h"

namespace Hmi::Core {

HandleFontMutable::HandleFontMutable(QObject* aParent)
    : HandleFont(aParent)
{
}

HandleFontMutable::~HandleFontMutable() = default;

void HandleFontMutable::setFont(const QFont& aFont)
{
    // QFont's == ignores which attributes were set explicitly, which is what a binding means here.
    if (aFont == mFont) {
        return;
    }
    mFont = aFont;
    emit fontChanged();
}

} // namespace Hmi::Core
