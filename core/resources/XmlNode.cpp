#include "resources/XmlNode.h"

namespace Hmi::Core {

XmlNode::~XmlNode() = default;

void XmlNode::registerTags(XmlLoader& aLoader)
{
    addTag(aLoader, QStringLiteral("handle"), &XmlNode::onHandleTagEnd);
}

void XmlNode::unregisterTags(XmlLoader& aLoader)
{
    for (const QString& tag : qAsConst(mRegisteredTags)) {
        aLoader.unregisterTag(tag, this);
    }
    mRegisteredTags.clear();
}

void XmlNode::onHandleTagEnd(const QString& aText)
{
    setName(aText);
}

void XmlNode::addTag(XmlLoader& aLoader, const QString& aTag,
    std::function<void(const QXmlStreamReader&)> aOnStart, std::function<void(const QString&)> aOnEnd)
{
    aLoader.registerTag(aTag, { this, std::move(aOnStart), std::move(aOnEnd) });
    mRegisteredTags.append(aTag);
}

} // namespace Hmi::Core
