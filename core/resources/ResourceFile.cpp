#include "resources/ResourceFile.h"

#include <QDebug>

namespace Hmi::Core {

namespace {
    bool isValidType(ResourceType aType)
    {
        return int(aType) >= 0 && int(aType) < ResourceTypeCount;
    }
} // namespace

ResourceFile::ResourceFile(const QString& aBasePath)
    : mBasePath(aBasePath)
{
}

ResourceFile::~ResourceFile() = default;

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
