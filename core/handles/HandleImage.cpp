#include "handles/HandleImage.h"

namespace Hmi::Core {

HandleImage::HandleImage(QObject* aParent)
    : QObject(aParent)
{ }

HandleImage::~HandleImage() = default;

QString HandleImage::getDefaultsName() const
{
    return QString();
}

int HandleImage::getFrameCount() const
{
    return 1;
}

QSize HandleImage::getFrameSize() const
{
    return QSize(-1, -1);
}

QSizeF HandleImage::getImplicitSize() const
{
    return QSizeF(0, 0);
}

QMargins HandleImage::getPaddingExternal() const
{
    return QMargins();
}

QMargins HandleImage::getPaddingInternal() const
{
    return QMargins();
}

QUrl HandleImage::getSource() const
{
    return QUrl();
}

QSize HandleImage::getSourceSize() const
{
    return QSize(-1, -1);
}

QMargins HandleImage::getTileMargins() const
{
    return QMargins();
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
