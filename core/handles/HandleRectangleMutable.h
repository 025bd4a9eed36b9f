#pragma once

#include "handles/HandleRectangle.h"

namespace Hmi::Core {

/**
 * A rectangle whose values are set directly from QML or C++.
 *
 * \code
 * HandleRectangleMutable {
 *     gradientType: HmiCore.GRADIENT_TYPE_LINEAR
 *     gradientStops: [ HmiGradientStop { position: 0; color: "black" },
 *                      HmiGradientStop { position: 1; color: "white" } ]
 * }
 * \endcode
 */
class HMICORE_EXPORT HandleRectangleMutable : public HandleRectangle
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
    Q_PROPERTY(QColor color READ getColor WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(QColor borderColor READ getBorderColor WRITE setBorderColor NOTIFY borderColorChanged)
    Q_PROPERTY(int borderWidth READ getBorderWidth WRITE setBorderWidth NOTIFY borderWidthChanged)
    Q_PROPERTY(qreal radius READ getRadius WRITE setRadius NOTIFY radiusChanged)
    Q_PROPERTY(int gradientType READ getGradientType WRITE setGradientType NOTIFY gradientTypeChanged)
    Q_PROPERTY(qreal gradientAngle READ getGradientAngle WRITE setGradientAngle NOTIFY gradientAngleChanged)
    Q_PROPERTY(QPointF gradientBegin READ getGradientBegin WRITE setGradientBegin NOTIFY gradientBeginChanged)
    Q_PROPERTY(QPointF gradientEnd READ getGradientEnd WRITE setGradientEnd NOTIFY gradientEndChanged)
    Q_PROPERTY(QQmlListProperty<Hmi::Core::HmiGradientStop> gradientStops READ getWritableGradientStops NOTIFY
            gradientStopsChanged)

public:
    explicit HandleRectangleMutable(QObject* aParent = nullptr);
    ~HandleRectangleMutable() override;
    Q_DISABLE_COPY(HandleRectangleMutable)

    /// The stops as a QML list that QML may also fill and clear.
    QQmlListProperty<HmiGradientStop> getWritableGradientStops();
};

} // namespace Hmi::Core
