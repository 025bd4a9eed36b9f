#pragma once

#include "resources/ResourceType.h"
#include "resources/XmlNode.h"

#include <QFont>
#include <QString>

#include <memory>

namespace Hmi::Core {

/**
 * A named font. Besides the resolved QFont, the node keeps the values the resource file asked
 * for (FontInfo), so that a missing font can be reported field by field and the binary form
 * carries only what was given.
 */
class HMICORE_EXPORT NodeFont : public XmlNode
{
public:
    static constexpr ResourceType sResourceType = ResourceType::Font;

    /// The values that were explicitly given; each stays at -1 (or empty) until given.
    struct FontInfo
    {
        qint8 bold = -1;
        qint8 italic = -1;
        qint8 overline = -1;
        qint8 strikeOut = -1;
        qint8 underline = -1;
        QString family;
        qint32 pixelSize = -1;
        float pointSize = -1.0f;
        qint32 weight = -1;
    };

    explicit NodeFont(const QString& aName = QString());
    ~NodeFont() override;

    const QFont& getFont() const { return mFont; }
    const QString& getFontCss() const { return mFontCss; }
    /// Stores aFont and describes every one of its values as given.
    void setFont(const QFont& aFont);

    /// The requested values; null only after releaseFontInfo().
    const FontInfo* getFontInfo() const { return mFontInfo.get(); }

    void registerTags(XmlLoader& aLoader) override;
    void onFamilyTagEnd(const QString& aText);
    void onPixelSizeTagEnd(const QString& aText);
    void onPointSizeTagEnd(const QString& aText);
    void onBoldTagEnd(const QString& aText);
    void onItalicTagEnd(const QString& aText);
    void onOverlineTagEnd(const QString& aText);
    void onStrikeOutTagEnd(const QString& aText);
    void onUnderlineTagEnd(const QString& aText);
    void onWeightTagEnd(const QString& aText);

protected:
    /// Drops the requested values. The font stays usable but can no longer be written.
    void releaseFontInfo() { mFontInfo.reset(); }

    /// Fails the stream, with a critical message, when there is no FontInfo.
    void writeFields(QDataStream& aStream) const override;
    void readFields(QDataStream& aStream) override;

private:
    FontInfo& requested();
    void updateCss();

    QFont mFont;
    QString mFontCss;
    std::unique_ptr<FontInfo> mFontInfo;
};

} // namespace Hmi::Core
