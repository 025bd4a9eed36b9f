#include "resources/NodeRectangle.h"

#include "resources/HmiGradientStop.h"
#include "resources/NodeColor.h"
#include "resources/StreamReader.h"

#include <QDataStream>
#include <QtDebug>

namespace Hmi::Core {

namespace {

void writeColor(QDataStream& aStream, const QColor& aColor)
{
    aStream << qint8(aColor.red()) << qint8(aColor.green()) << qint8(aColor.blue()) << qint8(aColor.alpha());
}

QColor takeColor(StreamReader& aReader)
{
    const int red = aReader.takeUInt8();
    const int green = aReader.takeUInt8();
    const int blue = aReader.takeUInt8();
    return QColor(red, green, blue, aReader.takeUInt8());
}

} // namespace

NodeRectangle::NodeRectangle(const QString& aBasePath, const QString& aName)
    : NodeImage(aBasePath, aName)
{ }

NodeRectangle::~NodeRectangle() = default;

// The flags tell a renderer whether to draw the colour at all; an unparsable colour string
// leaves them false, so that XML and binary forms of the same node agree.

void NodeRectangle::setColor(const QColor& aColor)
{
    mColor = aColor;
    mColorSet = aColor.isValid();
}

void NodeRectangle::setBorderColor(const QColor& aColor)
{
    mBorderColor = aColor;
    mBorderColorSet = aColor.isValid();
}

void NodeRectangle::setGradientEnd(const QPointF& aPoint)
{
    mGradientEnd = aPoint;
    mGradientEndSet = true;
}

HmiGradientStop* NodeRectangle::getGradientStopAt(int aIndex) const
{
    if (aIndex < 0 || aIndex >= getGradientStopsCount()) {
        return nullptr;
    }
    return mGradientStops[size_t(aIndex)].get();
}

void NodeRectangle::addGradientStop(qreal aPosition, const QColor& aColor)
{
    mGradientStops.push_back(std::make_unique<HmiGradientStop>(aPosition, aColor));
}

void NodeRectangle::registerTags(XmlLoader& aLoader)
{
    NodeImage::registerTags(aLoader);
    addTag(aLoader, QStringLiteral("value"), &NodeRectangle::onValueTagEnd);
    addTag(aLoader, QStringLiteral("borderColor"), &NodeRectangle::onBorderColorTagEnd);
    addTag(aLoader, QStringLiteral("borderWidth"), &NodeRectangle::onBorderWidthTagEnd);
    addTag(aLoader, QStringLiteral("radius"), &NodeRectangle::onRadiusTagEnd);
    addTag(aLoader, QStringLiteral("gradientAngle"), &NodeRectangle::onGradientAngleTagEnd);
    addTag(aLoader, QStringLiteral("gradientBeginX"), &NodeRectangle::onGradientBeginXTagEnd);
    addTag(aLoader, QStringLiteral("gradientBeginY"), &NodeRectangle::onGradientBeginYTagEnd);
    addTag(aLoader, QStringLiteral("gradientEndX"), &NodeRectangle::onGradientEndXTagEnd);
    addTag(aLoader, QStringLiteral("gradientEndY"), &NodeRectangle::onGradientEndYTagEnd);
    addTag(aLoader, QStringLiteral("gradientType"), &NodeRectangle::onGradientTypeTagEnd);
    addTag(aLoader, QStringLiteral("gradientStop"), &NodeRectangle::onGradientStopTagStart,
        &NodeRectangle::onGradientStopTagEnd);
}

void NodeRectangle::onValueTagEnd(const QString& aText)
{
    setColor(NodeColor::getColorFromString(aText));
}

void NodeRectangle::onBorderColorTagEnd(const QString& aText)
{
    setBorderColor(NodeColor::getColorFromString(aText));
}

void NodeRectangle::onBorderWidthTagEnd(const QString& aText)
{
    mBorderWidth = aText.toInt();
}

void NodeRectangle::onRadiusTagEnd(const QString& aText)
{
    mRadius = double(aText.toFloat());
}

void NodeRectangle::onGradientAngleTagEnd(const QString& aText)
{
    mGradientAngle = double(aText.toFloat());
}

void NodeRectangle::onGradientBeginXTagEnd(const QString& aText)
{
    mGradientBegin.setX(double(aText.toFloat()));
}

void NodeRectangle::onGradientBeginYTagEnd(const QString& aText)
{
    mGradientBegin.setY(double(aText.toFloat()));
}

void NodeRectangle::onGradientEndXTagEnd(const QString& aText)
{
    setGradientEnd(QPointF(double(aText.toFloat()), mGradientEnd.y()));
}

void NodeRectangle::onGradientEndYTagEnd(const QString& aText)
{
    setGradientEnd(QPointF(mGradientEnd.x(), double(aText.toFloat())));
}

void NodeRectangle::onGradientTypeTagEnd(const QString& aText)
{
    if (aText == QLatin1String("conical")) {
        mGradientType = 0;
    } else if (aText == QLatin1String("linear")) {
        mGradientType = 1;
    } else if (aText == QLatin1String("radial")) {
        mGradientType = 2;
    } else {
        qCritical("ERROR: Invalid gradient type %s specified.", qUtf8Printable(aText));
    }
}

void NodeRectangle::onGradientStopTagStart(const QXmlStreamReader& aReader)
{
    if (mPendingStop) {
        qCritical("ERROR: Encountered gradientStop tag start twice before tag end.");
    }
    mPendingStop = std::make_unique<HmiGradientStop>();
    const QStringRef position = aReader.attributes().value(QLatin1String("position"));
    if (!position.isEmpty()) {
        mPendingStop->setPosition(qreal(position.toFloat()));
    }
}

void NodeRectangle::onGradientStopTagEnd(const QString& aText)
{
    if (!mPendingStop) {
        qCritical("ERROR: Encountered gradientStop tag end without start.");
        return;
    }
    mPendingStop->setColor(NodeColor::getColorFromString(aText));
    mGradientStops.push_back(std::move(mPendingStop));
}

void NodeRectangle::writeFields(QDataStream& aStream) const
{
    NodeImage::writeFields(aStream);
    aStream << mColorSet;
    if (mColorSet) {
        writeColor(aStream, mColor);
    }
    aStream << qint32(mBorderWidth) << mBorderColorSet;
    if (mBorderColorSet) {
        writeColor(aStream, mBorderColor);
    }
    aStream << mGradientAngle << mGradientBegin.x() << mGradientBegin.y() << mGradientEndSet;
    if (mGradientEndSet) {
        aStream << mGradientEnd.x() << mGradientEnd.y();
    }
    aStream << qint32(mGradientStops.size());
    for (const auto& stop : mGradientStops) {
        aStream << double(stop->getPosition());
        writeColor(aStream, stop->getColor());
    }
    aStream << qint32(mGradientType) << mRadius;
}

void NodeRectangle::readFields(QDataStream& aStream)
{
    NodeImage::readFields(aStream);
    if (aStream.status() != QDataStream::Ok) {
        return;
    }

    // Few reads rather than one per field: each block runs up to the next flag or count that
    // decides the size of what follows.
    StreamReader reader(aStream);
    const int realSize = reader.getRealSize();
    if (!reader.readBlock(1)) {
        return;
    }
    const bool colorSet = reader.takeBool();
    if (!reader.readBlock((colorSet ? 4 : 0) + 4 + 1)) {
        return;
    }
    const QColor color = colorSet ? takeColor(reader) : QColor();
    const qint32 borderWidth = reader.takeInt32();
    const bool borderColorSet = reader.takeBool();
    // The border colour, the angle, the begin point and the end flag.
    if (!reader.readBlock((borderColorSet ? 4 : 0) + 3 * realSize + 1)) {
        return;
    }
    const QColor borderColor = borderColorSet ? takeColor(reader) : QColor();
    const double gradientAngle = reader.takeReal();
    const double beginX = reader.takeReal();
    const double beginY = reader.takeReal();
    const bool gradientEndSet = reader.takeBool();
    // The end point if set, and the stop count.
    if (!reader.readBlock((gradientEndSet ? 2 * realSize : 0) + 4)) {
        return;
    }
    double endX = 0;
    double endY = 0;
    if (gradientEndSet) {
        endX = reader.takeReal();
        endY = reader.takeReal();
    }
    const qint32 stopCount = reader.takeInt32();
    // Checked before anything is created: a damaged count must not make us build millions of
    // QObjects only to fail at the end of the data. A stop is a real and four colour bytes.
    const int stopSize = realSize + 4;
    if (stopCount < 0 || stopCount > reader.getBytesAvailable() / stopSize) {
        aStream.setStatus(QDataStream::ReadCorruptData);
        return;
    }
    std::vector<std::unique_ptr<HmiGradientStop>> stops;
    stops.reserve(size_t(stopCount));
    for (qint32 i = 0; i < stopCount; ++i) {
        if (!reader.readBlock(stopSize)) {
            return;
        }
        const double position = reader.takeReal();
        stops.push_back(std::make_unique<HmiGradientStop>(position, takeColor(reader)));
    }
    // The gradient type and the radius.
    if (!reader.readBlock(4 + realSize)) {
        return;
    }

    mColor = color;
    mColorSet = colorSet;
    mBorderWidth = borderWidth;
    mBorderColor = borderColor;
    mBorderColorSet = borderColorSet;
    mGradientAngle = gradientAngle;
    mGradientBegin = QPointF(beginX, beginY);
    mGradientEnd = QPointF(endX, endY);
    mGradientEndSet = gradientEndSet;
    mGradientStops = std::move(stops);
    mGradientType = reader.takeInt32();
    mRadius = reader.takeReal();
}

} // namespace Hmi::Core
