#include "resources/NodeColor.h"

#include "handles/CssUtils.h"
#include "resources/StreamReader.h"

#include <QDataStream>
#include <QStringList>
#include <QtDebug>

namespace Hmi::Core {

NodeColor::NodeColor(const QString& aName)
    : XmlNode(aName)
{ }

NodeColor::~NodeColor() = default;

void NodeColor::setColor(const QColor& aColor)
{
    if (aColor == mColor) {
        return;
    }
    mColor = aColor;
    mColorCss = CssUtils::getColorCss(mColor);
}

QColor NodeColor::getColorFromString(const QString& aText)
{
    const QStringList parts = aText.split(QLatin1Char(','), Qt::KeepEmptyParts);
    bool ok = parts.size() >= 3;
    // Components beyond 255 would make QColor silently invalid; treat them like any other typo.
    const auto component = [&ok](const QString& aPart) {
        const uint value = ok ? aPart.toUInt(&ok, 16) : 0;
        ok = ok && value <= 255;
        return int(value);
    };
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 255;
    if (ok) {
        red = component(parts.at(0));
        green = component(parts.at(1));
        blue = component(parts.at(2));
        if (parts.size() == 4) {
            alpha = component(parts.at(3));
        }
    }
    if (!ok) {
        qWarning("ERROR: invalid color");
        return QColor();
    }
    return QColor(red, green, blue, alpha);
}

void NodeColor::registerTags(XmlLoader& aLoader)
{
    XmlNode::registerTags(aLoader);
    addTag(aLoader, QStringLiteral("value"), &NodeColor::onValueTagEnd);
}

void NodeColor::onValueTagEnd(const QString& aText)
{
    setColor(getColorFromString(aText));
}

void NodeColor::writeFields(QDataStream& aStream) const
{
    aStream << qint8(mColor.red()) << qint8(mColor.green()) << qint8(mColor.blue()) << qint8(mColor.alpha());
}

void NodeColor::readFields(QDataStream& aStream)
{
    StreamReader reader(aStream);
    if (reader.readBlock(4)) {
        const int red = reader.takeUInt8();
        const int green = reader.takeUInt8();
        const int blue = reader.takeUInt8();
        setColor(QColor(red, green, blue, reader.takeUInt8()));
    }
}

} // namespace Hmi::Core
