#include "resources/NodeRectangle.h"

#include "resources/HmiGradientStop.h"
#include "resources/NodeColor.h"

#include <QDataStream>
#include <QIODevice>
#include <QtDebug>

namespace Hmi::Core {

namespace {

void writeColor(QDataStream& aStream, const QColor& aColor)
{
    aStream << qint8(aColor.red()) << qint8(aColor.green()) << qint8(aColor.blue()) << qint8(aColor.alpha());
}

QColor readColor(QDataStream& aStream)
{
    quint8 red = 0;
    quint8 green = 0;
    quint8 blue = 0;
    quint8 alpha = 0;
    aStream >> red >> green >> blue >> alpha;
    return QColor(red, green, blue, alpha);
}

// A stop in the binary form: its position (a real) and four colour bytes.
qint64 stopSize(const QDataStream& aStream)
{
    return (aStream.floatingPointPrecision() == QDataStream::DoublePrecision ? 8 : 4) + 4;
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

    bool colorSet = false;
    aStream >> colorSet;
    const QColor color = colorSet ? readColor(aStream) : QColor();
    qint32 borderWidth = 0;
    bool borderColorSet = false;
    aStream >> borderWidth >> borderColorSet;
    const QColor borderColor = borderColorSet ? readColor(aStream) : QColor();
    double gradientAngle = 0;
    double beginX = 0;
    double beginY = 0;
    bool gradientEndSet = false;
    double endX = 0;
    double endY = 0;
    aStream >> gradientAngle >> beginX >> beginY >> gradientEndSet;
    if (gradientEndSet) {
        aStream >> endX >> endY;
    }
    qint32 stopCount = 0;
    aStream >> stopCount;
    if (aStream.status() != QDataStream::Ok) {
        return;
    }
    // Checked before anything is created: a damaged count must not make us build millions of
    // QObjects only to fail at the end of the data.
    const QIODevice* device = aStream.device();
    if (stopCount < 0 || (device && stopCount > device->bytesAvailable() / stopSize(aStream))) {
        aStream.setStatus(QDataStream::ReadCorruptData);
        return;
    }
    std::vector<std::unique_ptr<HmiGradientStop>> stops;
    stops.reserve(size_t(stopCount));
    for (qint32 i = 0; i < stopCount; ++i) {
        double position = 0;
        aStream >> position;
        const QColor stopColor = readColor(aStream);
        stops.push_back(std::make_unique<HmiGradientStop>(position, stopColor));
    }
    qint32 gradientType = sGradientTypeNone;
    double radius = 0;
    aStream >> gradientType >> radius;
    if (aStream.status() != QDataStream::Ok) {
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
    mGradientType = gradientType;
    mRadius = radius;
}

} // namespace Hmi::Core
