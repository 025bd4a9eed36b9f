#pragma once

#include "hmicore_export.h"
#include "resources/Node.h"
#include "resources/ResourceType.h"

#include <QHash>
#include <QSharedPointer>
#include <QString>

#include <array>

namespace Hmi::Core {

class XmlNode;

/**
 * The nodes of one resource description, one table per resource type, keyed by node name.
 * A later node of the same name replaces an earlier one.
 */
class HMICORE_EXPORT ResourceFile
{
public:
    using NodeTable = QHash<QString, QSharedPointer<const Node>>;

    explicit ResourceFile(const QString& aBasePath = QString());
    virtual ~ResourceFile();
    Q_DISABLE_COPY(ResourceFile)

    /// The directory that image, rectangle and shader file names resolve against.
    const QString& getBasePath() const { return mBasePath; }
    void setBasePath(const QString& aBasePath) { mBasePath = aBasePath; }

    void insertNode(ResourceType aType, const QSharedPointer<const Node>& aNode);
    QSharedPointer<const Node> getNode(ResourceType aType, const QString& aName) const;

    /// A new, empty node of aType; image, rectangle and shader nodes resolve file names against aBasePath.
    static QSharedPointer<XmlNode> createNode(ResourceType aType, const QString& aBasePath);

    /// The table of aType; an empty table for a type out of range.
    const NodeTable& getNodes(ResourceType aType) const;

    /// The node of kind T (NodeColor, NodeFont, ...), or null.
    template <typename T>
    QSharedPointer<const T> get(const QString& aName) const
    {
        return getNode(T::sResourceType, aName).template staticCast<const T>();
    }

protected:
    NodeTable& table(ResourceType aType) { return mTables[size_t(aType)]; }
    void clear();

private:
    std::array<NodeTable, ResourceTypeCount> mTables;
    QString mBasePath;
};

} // namespace Hmi::Core
