#include "resources/ResourceFile.h"

#include "resources/NodeColor.h"
#include "resources/NodeDefaults.h"
#include "resources/NodeFont.h"
#include "resources/NodeImage.h"
#include "resources/NodeRectangle.h"
#include "resources/NodeShader.h"

#include <QDebug>

namespace Hmi::Core {

namespace {
    bool isValidType(ResourceType aType)
    {
        return int(aType) >= 0 && int(aType) < ResourceTypeCount;
    }

    template <typename T>
    QSharedPointer<XmlNode> makeNode(const QString& aBasePath)
    {
        if constexpr (std::is_constructible_v<T, QString, QString>) {
            return QSharedPointer<T>::create(aBasePath, QString());
        } else {
            Q_UNUSED(aBasePath)
            return QSharedPointer<T>::create(QString());
        }
    }

} // namespace

ResourceFile::ResourceFile(const QString& aBasePath)
    : mBasePath(aBasePath)
{
}

ResourceFile::~ResourceFile() = default;

QSharedPointer<XmlNode> ResourceFile::createNode(ResourceType aType, const QString& aBasePath)
{
    switch (aType) {
    case ResourceType::Color:
        return makeNode<NodeColor>(aBasePath);
    case ResourceType::Defaults:
        return makeNode<NodeDefaults>(aBasePath);
    case ResourceType::Font:
        return makeNode<NodeFont>(aBasePath);
    case ResourceType::Image:
        return makeNode<NodeImage>(aBasePath);
    case ResourceType::Rectangle:
        return makeNode<NodeRectangle>(aBasePath);
    case ResourceType::Shader:
        return makeNode<NodeShader>(aBasePath);
    }
    return {};
}

void ResourceFile::insertNode(ResourceType aType, const QSharedPointer<const Node>& aNode)
{
    if (!isValidType(aType)) {
        qWarning("ERROR: Trying to insert invalid resource.");
        return;
    }
    table(aType).insert(aNode->getName(), aNode);
}

QSharedPointer<const Node> ResourceFile::getNode(ResourceType aType, const QString& aName) const
{
    if (!isValidType(aType)) {
        qWarning("ERROR: Trying to get node of an invalid <ResourceType>.");
        return {};
    }
    return mTables[size_t(aType)].value(aName);
}

const ResourceFile::NodeTable& ResourceFile::getNodes(ResourceType aType) const
{
    static const NodeTable sEmpty;
    return isValidType(aType) ? mTables[size_t(aType)] : sEmpty;
}

void ResourceFile::clear()
{
    for (NodeTable& nodes : mTables) {
        nodes.clear();
    }
}

} // namespace Hmi::Core
