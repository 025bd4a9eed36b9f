#pragma once

#include "resources/Node.h"
#include "resources/XmlLoader.h"

#include <QStringList>

namespace Hmi::Core {

/**
 * A node that reads itself from XML: while its element is open, it registers one handler per
 * child tag with the loader (the tag's text is the value) and removes them when the element ends.
 *
 * \code
 * void NodeColor::registerTags(XmlLoader& aLoader)
 * {
 *     XmlNode::registerTags(aLoader);
 *     addTag(aLoader, QStringLiteral("value"), &NodeColor::onValueTagEnd);
 * }
 * \endcode
 */
class HMICORE_EXPORT XmlNode : public Node
{
public:
    using Node::Node;
    ~XmlNode() override;

    /// Registers the "handle" tag, which names the node, and the kind's own child tags.
    virtual void registerTags(XmlLoader& aLoader);
    /// Removes every handler that registerTags() installed.
    void unregisterTags(XmlLoader& aLoader);

    void onHandleTagEnd(const QString& aText);

protected:
    template <typename T>
    void addTag(XmlLoader& aLoader, const QString& aTag, void (T::*aOnEnd)(const QString&))
    {
        T* self = static_cast<T*>(this);
        addTag(aLoader, aTag, {}, [self, aOnEnd](const QString& aText) { (self->*aOnEnd)(aText); });
    }

    template <typename T>
    void addTag(XmlLoader& aLoader, const QString& aTag, void (T::*aOnStart)(const QXmlStreamReader&),
        void (T::*aOnEnd)(const QString&))
    {
        T* self = static_cast<T*>(this);
        addTag(
            aLoader, aTag, [self, aOnStart](const QXmlStreamReader& aReader) { (self->*aOnStart)(aReader); },
            [self, aOnEnd](const QString& aText) { (self->*aOnEnd)(aText); });
    }

    void addTag(XmlLoader& aLoader, const QString& aTag, std::function<void(const QXmlStreamReader&)> aOnStart,
        std::function<void(const QString&)> aOnEnd);

private:
    // Parse state only: empty once the element has ended.
    QStringList mRegisteredTags;
};

} // namespace Hmi::Core
