#include "handles/HandleImageResource.h"

#include "resources/NodeImage.h"

namespace Hmi::Core {

HandleImageResource::HandleImageResource(QObject* aParent)
    : HandleImage(aParent)
    , mState(this, ResourceType::Image,
          { [this] { emit nameChanged(); }, [this] { emit nameExistsChanged(); }, [this] { emitAllChanged(); } })
{
}

HandleImageResource::~HandleImageResource() = default;

QString HandleImageResource::getDefaultsName() const
{
    const auto node = mState.get<NodeImage>();
    return node ? node->getDefaultsName() : HandleImage::getDefaultsName();
}

int HandleImageResource::getFrameCount() const
{
    const auto node = mState.get<NodeImage>();
    return node ? node->getFrameCount() : HandleImage::getFrameCount();
}

QSize HandleImageResource::getFrameSize() const
{
    const auto node = mState.get<NodeImage>();
    return node ? node->getFrameSize() : HandleImage::getFrameSize();
}

QSizeF HandleImageResource::getImplicitSize() const
{
    const auto node = mState.get<NodeImage>();
    return node ? node->getImplicitSize() : HandleImage::getImplicitSize();
}

QMargins HandleImageResource::getPaddingExternal() const
{
    const auto node = mState.get<NodeImage>();
    return node ? node->getPaddingExternal() : HandleImage::getPaddingExternal();
}

QMargins HandleImageResource::getPaddingInternal() const
{
    const auto node = mState.get<NodeImage>();
    return node ? node->getPaddingInternal() : HandleImage::getPaddingInternal();
}

QUrl HandleImageResource::getSource() const
{
    const auto node = mState.get<NodeImage>();
    return node ? node->getSource() : HandleImage::getSource();
}

QSize HandleImageResource::getSourceSize() const
{
    const auto node = mState.get<NodeImage>();
    return node ? node->getSourceSize() : HandleImage::getSourceSize();
}

QMargins HandleImageResource::getTileMargins() const
{
    const auto node = mState.get<NodeImage>();
    return node ? node->getTileMargins() : HandleImage::getTileMargins();
}

} // namespace Hmi::Core
