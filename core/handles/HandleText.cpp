#include "handles/HandleText.h"

namespace Hmi::Core {

HandleText::HandleText(QObject* aParent)
    : QObject(aParent)
{ }

HandleText::HandleText(const QString& aText, QObject* aParent)
    : QObject(aParent)
    , mText(aText)
{ }

HandleText::~HandleText() = default;

QString HandleText::getText() const
{
    return mText;
}

} // namespace Hmi::Core
