#include "resources/HmiGradientStop.h"

namespace Hmi::Core {

HmiGradientStop::HmiGradientStop(QObject* aParent)
    : QObject(aParent)
{ }

HmiGradientStop::HmiGradientStop(qreal aPosition, const QColor& aColor, QObject* aParent)
    : QObject(aParent)
    , mPosition(aPosition)
    , mColor(aColor)
{ }

HmiGradientStop::~HmiGradientStop() = default;

void HmiGradientStop::setPosition(qreal aPosition)
{
    // Exact comparison on purpose: any new value, however close, is a change for bindings.
    if (mPosition == aPosition) {
        return;
    }
    mPosition = aPosition;
    emit positionChanged();
}

void HmiGradientStop::setColor(const QColor& aColor)
{
    if (mColor == aColor) {
        return;
    }
    mColor = aColor;
    emit colorChanged();
}

} // namespace Hmi::Core
