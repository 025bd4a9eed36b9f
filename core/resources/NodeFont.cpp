#include "resources/NodeFont.h"

#include "handles/CssUtils.h"
#include "resources/StreamReader.h"

#include <QDataStream>
#include <QtDebug>

namespace Hmi::Core {

namespace {

bool isTrue(const QString& aText)
{
    return aText == QLatin1String("true");
}

int weightFromWord(const QString& aWord)
{
    if (aWord == QLatin1String("light")) {
        return QFont::Light;
    }
    if (aWord == QLatin1String("normal")) {
        return QFont::Normal;
    }
    if (aWord == QLatin1String("demiBold")) {
        return QFont::DemiBold;
    }
    if (aWord == QLatin1String("bold")) {
        return QFont::Bold;
    }
    if (aWord == QLatin1String("black")) {
        return QFont::Black;
    }
    return -1;
}

// QFont warns about sizes <= 0 and weights outside 0..99 and ignores them; a typo in a
// resource file or a damaged cache should leave the font as it was, quietly.
void applyPixelSize(QFont& aFont, int aSize)
{
    if (aSize > 0) {
        aFont.setPixelSize(aSize);
    }
}

void applyWeight(QFont& aFont, int aWeight)
{
    if (aWeight >= 0 && aWeight <= 99) {
        aFont.setWeight(aWeight);
    }
}

} // namespace

NodeFont::NodeFont(const QString& aName)
    : XmlNode(aName)
    , mFontInfo(std::make_unique<FontInfo>())
{ }

NodeFont::~NodeFont() = default;

void NodeFont::setFont(const QFont& aFont)
{
    mFont = aFont;
    updateCss();
    FontInfo& info = requested();
    // Above DemiBold's midpoint, as QFont::bold() draws the line.
    info.bold = aFont.weight() > 57 ? 1 : 0;
    info.italic = aFont.style() != QFont::StyleNormal ? 1 : 0;
    info.overline = aFont.overline() ? 1 : 0;
    info.strikeOut = aFont.strikeOut() ? 1 : 0;
    info.underline = aFont.underline() ? 1 : 0;
    info.family = aFont.family();
    info.pixelSize = aFont.pixelSize();
    info.pointSize = float(aFont.pointSizeF());
    info.weight = aFont.weight();
}

void NodeFont::registerTags(XmlLoader& aLoader)
{
    XmlNode::registerTags(aLoader);
    addTag(aLoader, QStringLiteral("family"), &NodeFont::onFamilyTagEnd);
    addTag(aLoader, QStringLiteral("pixelSize"), &NodeFont::onPixelSizeTagEnd);
    addTag(aLoader, QStringLiteral("pointSize"), &NodeFont::onPointSizeTagEnd);
    addTag(aLoader, QStringLiteral("bold"), &NodeFont::onBoldTagEnd);
    addTag(aLoader, QStringLiteral("italic"), &NodeFont::onItalicTagEnd);
    addTag(aLoader, QStringLiteral("overline"), &NodeFont::onOverlineTagEnd);
    addTag(aLoader, QStringLiteral("strikeOut"), &NodeFont::onStrikeOutTagEnd);
    addTag(aLoader, QStringLiteral("underline"), &NodeFont::onUnderlineTagEnd);
    addTag(aLoader, QStringLiteral("weight"), &NodeFont::onWeightTagEnd);
}

void NodeFont::onFamilyTagEnd(const QString& aText)
{
    mFont.setFamily(aText);
    requested().family = aText;
    updateCss();
}

void NodeFont::onPixelSizeTagEnd(const QString& aText)
{
    const int size = aText.toInt();
    applyPixelSize(mFont, size);
    requested().pixelSize = size;
    updateCss();
}

void NodeFont::onPointSizeTagEnd(const QString& aText)
{
    const float size = aText.toFloat();
    if (size > 0 && qIsFinite(size)) {
        mFont.setPointSizeF(double(size));
    }
    requested().pointSize = size;
    updateCss();
}

void NodeFont::onBoldTagEnd(const QString& aText)
{
    const bool bold = isTrue(aText);
    mFont.setWeight(bold ? QFont::Bold : QFont::Normal);
    requested().bold = bold ? 1 : 0;
    updateCss();
}

void NodeFont::onItalicTagEnd(const QString& aText)
{
    const bool italic = isTrue(aText);
    mFont.setItalic(italic);
    requested().italic = italic ? 1 : 0;
    updateCss();
}

void NodeFont::onOverlineTagEnd(const QString& aText)
{
    const bool overline = isTrue(aText);
    mFont.setOverline(overline);
    requested().overline = overline ? 1 : 0;
    updateCss();
}

void NodeFont::onStrikeOutTagEnd(const QString& aText)
{
    const bool strikeOut = isTrue(aText);
    mFont.setStrikeOut(strikeOut);
    requested().strikeOut = strikeOut ? 1 : 0;
    updateCss();
}

void NodeFont::onUnderlineTagEnd(const QString& aText)
{
    const bool underline = isTrue(aText);
    mFont.setUnderline(underline);
    requested().underline = underline ? 1 : 0;
    updateCss();
}

void NodeFont::onWeightTagEnd(const QString& aText)
{
    const int weight = weightFromWord(aText);
    if (weight < 0) {
        qWarning("ERROR: invalid weight %s specified", qUtf8Printable(aText));
        return;
    }
    mFont.setWeight(weight);
    requested().weight = weight;
    updateCss();
}

void NodeFont::writeFields(QDataStream& aStream) const
{
    if (!mFontInfo) {
        qCritical("Cannot serialize NodeFont without FontInfo");
        aStream.setStatus(QDataStream::WriteFailed);
        return;
    }
    const FontInfo& info = *mFontInfo;
    aStream << info.bold << info.italic << info.overline << info.strikeOut << info.underline << info.family
            << info.pixelSize << double(info.pointSize) << info.weight;
}

void NodeFont::readFields(QDataStream& aStream)
{
    StreamReader reader(aStream);
    FontInfo info;
    if (!reader.readBlock(5)) {
        return;
    }
    info.bold = reader.takeInt8();
    info.italic = reader.takeInt8();
    info.overline = reader.takeInt8();
    info.strikeOut = reader.takeInt8();
    info.underline = reader.takeInt8();
    // The family, then pixel size, point size (a real) and weight.
    if (!reader.readString(info.family) || !reader.readBlock(4 + reader.getRealSize() + 4)) {
        return;
    }
    info.pixelSize = reader.takeInt32();
    info.pointSize = float(reader.takeReal());
    info.weight = reader.takeInt32();

    QFont font;
    if (info.bold != -1) {
        font.setWeight(info.bold == 1 ? QFont::Bold : QFont::Normal);
    }
    if (info.italic != -1) {
        font.setItalic(info.italic == 1);
    }
    if (info.overline != -1) {
        font.setOverline(info.overline == 1);
    }
    if (info.strikeOut != -1) {
        font.setStrikeOut(info.strikeOut == 1);
    }
    if (info.underline != -1) {
        font.setUnderline(info.underline == 1);
    }
    if (!info.family.isEmpty()) {
        font.setFamily(info.family);
    }
    if (info.pixelSize != -1) {
        applyPixelSize(font, info.pixelSize);
    }
    // Whole points only, as binary resource files have always been read; a fractional size
    // survives in FontInfo.
    // The range check also refuses NaN and infinities from a damaged file before the conversion.
    if (info.pointSize >= 1.0f && info.pointSize < 2147483648.0f) {
        font.setPointSize(int(info.pointSize));
    }
    // After bold, so that an explicit weight wins.
    if (info.weight != -1) {
        applyWeight(font, info.weight);
    }

    mFont = font;
    updateCss();
    mFontInfo = std::make_unique<FontInfo>(info);
}

NodeFont::FontInfo& NodeFont::requested()
{
    if (!mFontInfo) {
        mFontInfo = std::make_unique<FontInfo>();
    }
    return *mFontInfo;
}

void NodeFont::updateCss()
{
    mFontCss = CssUtils::getFontCss(mFont);
}

} // namespace Hmi::Core
