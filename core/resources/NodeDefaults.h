#pragma once

#include "resources/ResourceType.h"
#include "resources/XmlNode.h"

#include <QMap>
#include <QString>
#include <QVariant>

namespace Hmi::Core {

/**
 * A named set of key/value defaults, read from "property" tags:
 *
 * \code
 * <property name="visible">false</property>   <!-- bool false -->
 * <property name="count">5</property>          <!-- the string "5"; reads back as 5 via toInt() -->
 * \endcode
 *
 * Only the exact text "false" becomes a boolean, so that a "false" default is falsy in QML;
 * every other text stays a string and callers convert it.
 */
class HMICORE_EXPORT NodeDefaults final : public XmlNode
{
public:
    static constexpr ResourceType sResourceType = ResourceType::Defaults;

    explicit NodeDefaults(const QString& aName = QString());
    ~NodeDefaults() override;

    const QMap<QString, QVariant>& getDefaults() const { return mDefaults; }
    /// An invalid variant for an unknown name.
    QVariant getDefault(const QString& aName) const { return mDefaults.value(aName); }
    /// Replaces any earlier value of the same name.
    void insertDefault(const QString& aName, const QVariant& aValue);

    void registerTags(XmlLoader& aLoader) override;
    void onPropertyTagStart(const QXmlStreamReader& aReader);
    void onPropertyTagEnd(const QString& aText);

protected:
    /// Only strings, booleans and numbers can be written; any other value fails the stream.
    void writeFields(QDataStream& aStream) const override;
    void readFields(QDataStream& aStream) override;

private:
    QMap<QString, QVariant> mDefaults;
    // Parse state only: the name attribute of the open property tag.
    QString mPropertyName;
};

} // namespace Hmi::Core
