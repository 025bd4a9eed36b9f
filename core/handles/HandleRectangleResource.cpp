#include "handles/HandleRectangleResource.h"

#include "resources/NodeRectangle.h"

namespace Hmi::Core {

HandleRectangleResource::HandleRectangleResource(QObject* aParent)
    : HandleRectangle(aParent)
    , mState(this, ResourceType::Rectangle,
          { [this] { emit nameChanged(); }, [this] { emit nameExistsChanged(); }, [this] { emitAllChanged(); } })
{
}

HandleRectangleResource::~HandleRectangleResource() = default;

QString HandleRectangleResource::getDefaultsName() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getDefaultsName() : HandleRectangle::getDefaultsName();
}

int HandleRectangleResource::getFrameCount() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getFrameCount() : HandleRectangle::getFrameCount();
}

QSize HandleRectangleResource::getFrameSize() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getFrameSize() : HandleRectangle::getFrameSize();
}

QSizeF HandleRectangleResource::getImplicitSize() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getImplicitSize() : HandleRectangle::getImplicitSize();
}

QMargins HandleRectangleResource::getPaddingExternal() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getPaddingExternal() : HandleRectangle::getPaddingExternal();
}

QMargins HandleRectangleResource::getPaddingInternal() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getPaddingInternal() : HandleRectangle::getPaddingInternal();
}

QUrl HandleRectangleResource::getSource() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getSource() : HandleRectangle::getSource();
}

QSize HandleRectangleResource::getSourceSize() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getSourceSize() : HandleRectangle::getSourceSize();
}

QMargins HandleRectangleResource::getTileMargins() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getTileMargins() : HandleRectangle::getTileMargins();
}

QColor HandleRectangleResource::getColor() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getColor() : HandleRectangle::getColor();
}

bool HandleRectangleResource::getColorSet() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getColorSet() : HandleRectangle::getColorSet();
}

QColor HandleRectangleResource::getBorderColor() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getBorderColor() : HandleRectangle::getBorderColor();
}

bool HandleRectangleResource::getBorderColorSet() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getBorderColorSet() : HandleRectangle::getBorderColorSet();
}

int HandleRectangleResource::getBorderWidth() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getBorderWidth() : HandleRectangle::getBorderWidth();
}

qreal HandleRectangleResource::getRadius() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getRadius() : HandleRectangle::getRadius();
}

int HandleRectangleResource::getGradientType() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getGradientType() : HandleRectangle::getGradientType();
}

qreal HandleRectangleResource::getGradientAngle() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getGradientAngle() : HandleRectangle::getGradientAngle();
}

QPointF HandleRectangleResource::getGradientBegin() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getGradientBegin() : HandleRectangle::getGradientBegin();
}

QPointF HandleRectangleResource::getGradientEnd() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getGradientEnd() : HandleRectangle::getGradientEnd();
}

bool HandleRectangleResource::getGradientEndSet() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getGradientEndSet() : HandleRectangle::getGradientEndSet();
}

int HandleRectangleResource::getGradientStopsCount() const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getGradientStopsCount() : HandleRectangle::getGradientStopsCount();
}

HmiGradientStop* HandleRectangleResource::getGradientStopAt(int aIndex) const
{
    const auto node = mState.get<NodeRectangle>();
    return node ? node->getGradientStopAt(aIndex) : HandleRectangle::getGradientStopAt(aIndex);
}

} // namespace Hmi::Core
