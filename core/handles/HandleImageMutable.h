#pragma once

#include "handles/HandleImage.h"

namespace Hmi::Core {

/// An image whose values are set directly from QML or C++, for images that do not come from the theme.
class HMICORE_EXPORT HandleImageMutable : public HandleImage
{
    Q_OBJECT
    Q_PROPERTY(QString defaultsName READ getDefaultsName WRITE setDefaultsName NOTIFY defaultsNameChanged)
    Q_PROPERTY(int frameCount READ getFrameCount WRITE setFrameCount NOTIFY frameCountChanged)
    Q_PROPERTY(QSize frameSize READ getFrameSize WRITE setFrameSize NOTIFY frameSizeChanged)
    Q_PROPERTY(QSizeF implicitSize READ getImplicitSize WRITE setImplicitSize NOTIFY implicitSizeChanged)
    Q_PROPERTY(QUrl source READ getSource WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(QSize sourceSize READ getSourceSize WRITE setSourceSize NOTIFY sourceSizeChanged)
    Q_PROPERTY(QMargins paddingExternal READ getPaddingExternal WRITE setPaddingExternal NOTIFY paddingExternalChanged)
    Q_PROPERTY(QMargins paddingInternal READ getPaddingInternal WRITE setPaddingInternal NOTIFY paddingInternalChanged)
    Q_PROPERTY(QMargins tileMargins READ getTileMargins WRITE setTileMargins NOTIFY tileMarginsChanged)

public:
    explicit HandleImageMutable(QObject* aParent = nullptr);
    ~HandleImageMutable() override;
    Q_DISABLE_COPY(HandleImageMutable)
};

} // namespace Hmi::Core
