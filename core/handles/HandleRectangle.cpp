#include "handles/HandleRectangle.h"

#include "handles/MutableProperty.h"

namespace Hmi::Core {

namespace {

int countGradientStops(QQmlListProperty<HmiGradientStop>* aList)
{
    return static_cast<const HandleRectangle*>(aList->object)->getGradientStopsCount();
}

HmiGradientStop* gradientStopAt(QQmlListProperty<HmiGradientStop>* aList, int aIndex)
{
    return static_cast<const HandleRectangle*>(aList->object)->getGradientStopAt(aIndex);
}

} // namespace

HandleRectangle::HandleRectangle(QObject* aParent)
    : HandleImage(aParent)
{ }

HandleRectangle::~HandleRectangle() = default;

HmiGradientStop* HandleRectangle::getGradientStopAt(int aIndex) const
{
    return aIndex >= 0 && aIndex < mGradientStops.size() ? mGradientStops.at(aIndex).data() : nullptr;
}

void HandleRectangle::setColor(const QColor& aColor)
{
    if (mColorSet && mColor == aColor) {
        return;
    }
    mColor = aColor;
    mColorSet = true;
    emit colorChanged();
}

void HandleRectangle::setBorderColor(const QColor& aBorderColor)
{
    if (mBorderColorSet && mBorderColor == aBorderColor) {
        return;
    }
    mBorderColor = aBorderColor;
    mBorderColorSet = true;
    emit borderColorChanged();
}

void HandleRectangle::setBorderWidth(int aBorderWidth)
{
    assignAndNotify(mBorderWidth, aBorderWidth, [this] { emit borderWidthChanged(); });
}

void HandleRectangle::setRadius(qreal aRadius)
{
    assignAndNotify(mRadius, aRadius, [this] { emit radiusChanged(); });
}

void HandleRectangle::setGradientType(int aGradientType)
{
    assignAndNotify(mGradientType, aGradientType, [this] { emit gradientTypeChanged(); });
}

void HandleRectangle::setGradientAngle(qreal aGradientAngle)
{
    assignAndNotify(mGradientAngle, aGradientAngle, [this] { emit gradientAngleChanged(); });
}

void HandleRectangle::setGradientBegin(const QPointF& aGradientBegin)
{
    assignAndNotify(mGradientBegin, aGradientBegin, [this] { emit gradientBeginChanged(); });
}

void HandleRectangle::setGradientEnd(const QPointF& aGradientEnd)
{
    if (mGradientEndSet && mGradientEnd == aGradientEnd) {
        return;
    }
    mGradientEnd = aGradientEnd;
    mGradientEndSet = true;
    emit gradientEndChanged();
}

void HandleRectangle::appendGradientStop(HmiGradientStop* aStop)
{
    mGradientStops.append(aStop);
    emit gradientStopsChanged();
}

void HandleRectangle::clearGradientStops()
{
    if (mGradientStops.isEmpty()) {
        return;
    }
    mGradientStops.clear();
    emit gradientStopsChanged();
}

QQmlListProperty<HmiGradientStop> HandleRectangle::getGradientStops()
{
    return QQmlListProperty<HmiGradientStop>(this, nullptr, &countGradientStops, &gradientStopAt);
}

void HandleRectangle::emitAllChanged()
{
    HandleImage::emitAllChanged();
    emit colorChanged();
    emit borderColorChanged();
    emit borderWidthChanged();
    emit radiusChanged();
    emit gradientTypeChanged();
    emit gradientAngleChanged();
    emit gradientBeginChanged();
    emit gradientEndChanged();
    emit gradientStopsChanged();
}

} // namespace Hmi::Core
