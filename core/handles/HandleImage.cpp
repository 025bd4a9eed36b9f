#include "handles/HandleImage.h"

#include "handles/MutableProperty.h"

namespace Hmi::Core {

HandleImage::HandleImage(QObject* aParent)
    : QObject(aParent)
{ }

HandleImage::~HandleImage() = default;

void HandleImage::setDefaultsName(const QString& aDefaultsName)
{
    assignAndNotify(mDefaultsName, aDefaultsName, [this] { emit defaultsNameChanged(); });
}

void HandleImage::setFrameCount(int aFrameCount)
{
    assignAndNotify(mFrameCount, aFrameCount, [this] { emit frameCountChanged(); });
}

void HandleImage::setFrameSize(const QSize& aFrameSize)
{
    assignAndNotify(mFrameSize, aFrameSize, [this] { emit frameSizeChanged(); });
}

void HandleImage::setImplicitSize(const QSizeF& aImplicitSize)
{
    assignAndNotify(mImplicitSize, aImplicitSize, [this] { emit implicitSizeChanged(); });
}

void HandleImage::setPaddingExternal(const QMargins& aPaddingExternal)
{
    assignAndNotify(mPaddingExternal, aPaddingExternal, [this] { emit paddingExternalChanged(); });
}

void HandleImage::setPaddingInternal(const QMargins& aPaddingInternal)
{
    assignAndNotify(mPaddingInternal, aPaddingInternal, [this] { emit paddingInternalChanged(); });
}

void HandleImage::setSource(const QUrl& aSource)
{
    assignAndNotify(mSource, aSource, [this] { emit sourceChanged(); });
}

void HandleImage::setSourceSize(const QSize& aSourceSize)
{
    assignAndNotify(mSourceSize, aSourceSize, [this] { emit sourceSizeChanged(); });
}

void HandleImage::setTileMargins(const QMargins& aTileMargins)
{
    assignAndNotify(mTileMargins, aTileMargins, [this] { emit tileMarginsChanged(); });
}

void HandleImage::emitAllChanged()
{
    emit defaultsNameChanged();
    emit frameCountChanged();
    emit frameSizeChanged();
    emit implicitSizeChanged();
    emit paddingExternalChanged();
    emit paddingInternalChanged();
    emit sourceChanged();
    emit sourceSizeChanged();
    emit tileMarginsChanged();
}

} // namespace Hmi::Core
