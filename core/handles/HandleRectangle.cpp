#include "handles/HandleRectangle.h"

namespace Hmi::Core {

namespace {

// HmiCoreGlobal::GRADIENT_TYPE_INVALID; the frame header is not pulled in for one number.
constexpr int sGradientTypeNone = 3;

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

QColor HandleRectangle::getColor() const
{
    return QColor(0, 0, 0, 0);
}

bool HandleRectangle::getColorSet() const
{
    return false;
}

QColor HandleRectangle::getBorderColor() const
{
    return QColor(0, 0, 0, 0);
}

bool HandleRectangle::getBorderColorSet() const
{
    return false;
}

int HandleRectangle::getBorderWidth() const
{
    return 0;
}

qreal HandleRectangle::getRadius() const
{
    return 0.0;
}

int HandleRectangle::getGradientType() const
{
    return sGradientTypeNone;
}

qreal HandleRectangle::getGradientAngle() const
{
    return 0.0;
}

QPointF HandleRectangle::getGradientBegin() const
{
    return QPointF(0, 0);
}

QPointF HandleRectangle::getGradientEnd() const
{
    return QPointF(0, 0);
}

bool HandleRectangle::getGradientEndSet() const
{
    return false;
}

int HandleRectangle::getGradientStopsCount() const
{
    return 0;
}

HmiGradientStop* HandleRectangle::getGradientStopAt(int aIndex) const
{
    Q_UNUSED(aIndex)
    return nullptr;
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
