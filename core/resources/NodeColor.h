#pragma once

#include "resources/ResourceType.h"
#include "resources/XmlNode.h"

#include <QColor>
#include <QString>

namespace Hmi::Core {

/**
 * A named colour. The XML form is a "value" tag holding a colour string: three or four
 * comma-separated hexadecimal components (red, green, blue, optional alpha).
 */
class HMICORE_EXPORT NodeColor final : public XmlNode
{
public:
    static constexpr ResourceType sResourceType = ResourceType::Color;

    explicit NodeColor(const QString& aName = QString());
    ~NodeColor() override;

    const QColor& getColor() const { return mColor; }
    /// The colour as "rgba(r,g,b,a)"; empty until a colour is set.
    const QString& getColorCss() const { return mColorCss; }
    void setColor(const QColor& aColor);

    /**
     * Parses "rr,gg,bb" or "rr,gg,bb,aa" (hexadecimal, 0 to ff each). With five or more parts
     * the extra parts are ignored and the colour is opaque. Anything unparsable logs a warning
     * and gives an invalid colour.
     */
    static QColor getColorFromString(const QString& aText);

    void registerTags(XmlLoader& aLoader) override;
    void onValueTagEnd(const QString& aText);

protected:
    void writeFields(QDataStream& aStream) const override;
    void readFields(QDataStream& aStream) override;

private:
    QColor mColor;
    QString mColorCss;
};

} // namespace Hmi::Core
