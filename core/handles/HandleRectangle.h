#pragma once

#include "handles/HandleImage.h"
#include "hmicore_export.h"
#include "resources/HmiGradientStop.h"

#include <QColor>
#include <QPointF>
#include <QQmlListProperty>

namespace Hmi::Core {

/**
 * Read-only themed rectangle for QML: fill, border, corner radius and gradient, on top of the
 * image fields (a rectangle may be drawn from an image). The plain handle is fully transparent
 * and has no gradient; the mutable and resource-backed handles derive from it and override the
 * getters.
 *
 * gradientType takes the values of HmiCoreGlobal::GradientType; GRADIENT_TYPE_INVALID (3) means
 * no gradient.
 */
class HMICORE_EXPORT HandleRectangle : public HandleImage
{
    Q_OBJECT
    Q_PROPERTY(QColor color READ getColor NOTIFY colorChanged)
    Q_PROPERTY(bool colorSet READ getColorSet NOTIFY colorChanged)
    Q_PROPERTY(QColor borderColor READ getBorderColor NOTIFY borderColorChanged)
    Q_PROPERTY(bool borderColorSet READ getBorderColorSet NOTIFY borderColorChanged)
    Q_PROPERTY(int borderWidth READ getBorderWidth NOTIFY borderWidthChanged)
    Q_PROPERTY(qreal radius READ getRadius NOTIFY radiusChanged)
    Q_PROPERTY(int gradientType READ getGradientType NOTIFY gradientTypeChanged)
    Q_PROPERTY(qreal gradientAngle READ getGradientAngle NOTIFY gradientAngleChanged)
    Q_PROPERTY(QPointF gradientBegin READ getGradientBegin NOTIFY gradientBeginChanged)
    Q_PROPERTY(QPointF gradientEnd READ getGradientEnd NOTIFY gradientEndChanged)
    Q_PROPERTY(bool gradientEndSet READ getGradientEndSet NOTIFY gradientEndChanged)
    Q_PROPERTY(QQmlListProperty<Hmi::Core::HmiGradientStop> gradientStops READ getGradientStops NOTIFY
            gradientStopsChanged)

public:
    explicit HandleRectangle(QObject* aParent = nullptr);
    ~HandleRectangle() override;
    Q_DISABLE_COPY(HandleRectangle)

    /// The fill; transparent when none is given (see getColorSet()).
    virtual QColor getColor() const;
    /// True when a fill colour was given, as opposed to an image or a gradient only.
    virtual bool getColorSet() const;
    virtual QColor getBorderColor() const;
    virtual bool getBorderColorSet() const;
    virtual int getBorderWidth() const;
    virtual qreal getRadius() const;
    virtual int getGradientType() const;
    /// In degrees, for conical gradients.
    virtual qreal getGradientAngle() const;
    virtual QPointF getGradientBegin() const;
    virtual QPointF getGradientEnd() const;
    /// False while the gradient end was not given, so that the view may pick one by itself.
    virtual bool getGradientEndSet() const;
    virtual int getGradientStopsCount() const;
    /// Null when aIndex is out of range. The stop stays owned by whoever provides it.
    virtual HmiGradientStop* getGradientStopAt(int aIndex) const;

    /// The stops as a read-only QML list, built on the two getters above.
    QQmlListProperty<HmiGradientStop> getGradientStops();

signals:
    void colorChanged();
    void borderColorChanged();
    void borderWidthChanged();
    void radiusChanged();
    void gradientTypeChanged();
    void gradientAngleChanged();
    void gradientBeginChanged();
    void gradientEndChanged();
    void gradientStopsChanged();

protected:
    void emitAllChanged() override;
};

} // namespace Hmi::Core
