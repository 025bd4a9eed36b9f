#pragma once

#include "handles/HandleImage.h"
#include "hmicore_export.h"
#include "resources/HmiGradientStop.h"

#include <QColor>
#include <QList>
#include <QPointF>
#include <QPointer>
#include <QQmlListProperty>

namespace Hmi::Core {

/**
 * Read-only themed rectangle for QML: fill, border, corner radius and gradient, on top of the
 * image fields (a rectangle may be drawn from an image). The plain handle holds what its setters
 * were given (nothing: fully transparent, no gradient); the mutable handle makes the values
 * writable from QML, and the resource-backed handle overrides the getters.
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
    virtual QColor getColor() const { return mColor; }
    /// True when a fill colour was given, as opposed to an image or a gradient only.
    virtual bool getColorSet() const { return mColorSet; }
    virtual QColor getBorderColor() const { return mBorderColor; }
    virtual bool getBorderColorSet() const { return mBorderColorSet; }
    virtual int getBorderWidth() const { return mBorderWidth; }
    virtual qreal getRadius() const { return mRadius; }
    virtual int getGradientType() const { return mGradientType; }
    /// In degrees, for conical gradients.
    virtual qreal getGradientAngle() const { return mGradientAngle; }
    virtual QPointF getGradientBegin() const { return mGradientBegin; }
    virtual QPointF getGradientEnd() const { return mGradientEnd; }
    /// False while the gradient end was not given, so that the view may pick one by itself.
    virtual bool getGradientEndSet() const { return mGradientEndSet; }
    virtual int getGradientStopsCount() const { return mGradientStops.size(); }
    /// Null when aIndex is out of range. The stop stays owned by whoever provides it.
    virtual HmiGradientStop* getGradientStopAt(int aIndex) const;

    /// The stops as a read-only QML list, built on the two getters above.
    QQmlListProperty<HmiGradientStop> getGradientStops();

    // Each setter emits its signal only on a real change. A colour or gradient end that is set
    // counts as given from then on.
    void setColor(const QColor& aColor);
    void setBorderColor(const QColor& aBorderColor);
    void setBorderWidth(int aBorderWidth);
    void setRadius(qreal aRadius);
    void setGradientType(int aGradientType);
    void setGradientAngle(qreal aGradientAngle);
    void setGradientBegin(const QPointF& aGradientBegin);
    void setGradientEnd(const QPointF& aGradientEnd);
    /// The stops are not owned; a deleted stop reads as null.
    void appendGradientStop(HmiGradientStop* aStop);
    void clearGradientStops();

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

private:
    QColor mColor { 0, 0, 0, 0 };
    bool mColorSet = false;
    QColor mBorderColor { 0, 0, 0, 0 };
    bool mBorderColorSet = false;
    int mBorderWidth = 0;
    qreal mRadius = 0.0;
    // HmiCoreGlobal::GRADIENT_TYPE_INVALID: no gradient.
    int mGradientType = 3;
    qreal mGradientAngle = 0.0;
    QPointF mGradientBegin;
    QPointF mGradientEnd;
    bool mGradientEndSet = false;
    QList<QPointer<HmiGradientStop>> mGradientStops;
};

} // namespace Hmi::Core
