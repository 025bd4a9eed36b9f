#include "language/HandleTextMutable.h"

namespace Hmi::Core {

HandleTextMutable::HandleTextMutable(QObject* aParent)
    : HandleText(aParent)
{
}

HandleTextMutable::HandleTextMutable(const QString& aText, QObject* aParent)
    : HandleText(aParent)
    , mText(aText)
{
}

HandleTextMutable::~HandleTextMutable() = default;

void HandleTextMutable::setText(const QString& aText)
{
    if (aText == mText) {
        return;
    }
    mText = aText;
    emit textChanged();
    // Bindings made through the base class's property listen to its signal.
    emit HandleText::textChanged();
}

} // namespace Hmi::Core
