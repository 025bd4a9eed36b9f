#pragma once

#include "resources/NodeImage.h"

#include <QColor>
#include <QPointF>

#include <memory>
#include <vector>

namespace Hmi::Core {

class HmiGradientStop;

/**
 * A named rectangle: fill colour, border, corner radius and gradient, drawn on its own or over
 * the image it inherits.
 *
 * The gradient type keeps the numbering of HmiCoreGlobal::GradientType: 0 conical, 1 linear,
 * 2 radial, 3 none.
 */
class HMICORE_EXPORT NodeRectangle final : public NodeImage
{
public:
    static constexpr ResourceType sResourceType = ResourceType::Rectangle;
    static constexpr int sGradientTypeNone = 3;

    explicit NodeRectangle(const QString& aBasePath = QString(), const QString& aName = QString());
    ~NodeRectangle() override;

    const QColor& getColor() const { return mColor; }
    /// True when a valid fill colour was given.
    bool getColorSet() const { return mColorSet; }
    void setColor(const QColor& aColor);
    int getBorderWidth() const { return mBorderWidth; }
    void setBorderWidth(int aWidth) { mBorderWidth = aWidth; }
    const QColor& getBorderColor() const { return mBorderColor; }
    /// True when a valid border colour was given.
    bool getBorderColorSet() const { return mBorderColorSet; }
    void setBorderColor(const QColor& aColor);
    double getGradientAngle() const { return mGradientAngle; }
    void setGradientAngle(double aAngle) { mGradientAngle = aAngle; }
    QPointF getGradientBegin() const { return mGradientBegin; }
    void setGradientBegin(const QPointF& aPoint) { mGradientBegin = aPoint; }
    QPointF getGradientEnd() const { return mGradientEnd; }
    bool getGradientEndSet() const { return mGradientEndSet; }
    void setGradientEnd(const QPointF& aPoint);
    int getGradientStopsCount() const { return int(mGradientStops.size()); }
    /// Null when aIndex is out of range. The node keeps ownership.
    HmiGradientStop* getGradientStopAt(int aIndex) const;
    void addGradientStop(qreal aPosition, const QColor& aColor);
    int getGradientType() const { return mGradientType; }
    void setGradientType(int aType) { mGradientType = aType; }
    double getRadius() const { return mRadius; }
    void setRadius(double aRadius) { mRadius = aRadius; }

    void registerTags(XmlLoader& aLoader) override;
    void onValueTagEnd(const QString& aText);
    void onBorderColorTagEnd(const QString& aText);
    void onBorderWidthTagEnd(const QString& aText);
    void onRadiusTagEnd(const QString& aText);
    void onGradientAngleTagEnd(const QString& aText);
    void onGradientBeginXTagEnd(const QString& aText);
    void onGradientBeginYTagEnd(const QString& aText);
    void onGradientEndXTagEnd(const QString& aText);
    void onGradientEndYTagEnd(const QString& aText);
    void onGradientTypeTagEnd(const QString& aText);
    void onGradientStopTagStart(const QXmlStreamReader& aReader);
    void onGradientStopTagEnd(const QString& aText);

protected:
    void writeFields(QDataStream& aStream) const override;
    void readFields(QDataStream& aStream) override;

private:
    QColor mColor;
    bool mColorSet = false;
    int mBorderWidth = 0;
    QColor mBorderColor;
    bool mBorderColorSet = false;
    double mGradientAngle = 0;
    QPointF mGradientBegin;
    QPointF mGradientEnd;
    bool mGradientEndSet = false;
    // Owned here: the stops have no QObject parent, and QML only borrows them.
    std::vector<std::unique_ptr<HmiGradientStop>> mGradientStops;
    // Parse state only: the stop between its start and end tags.
    std::unique_ptr<HmiGradientStop> mPendingStop;
    int mGradientType = sGradientTypeNone;
    double mRadius = 0;
};

} // namespace Hmi::Core
