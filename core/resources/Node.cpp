#include "resources/Node.h"

#include <QDataStream>

namespace Hmi::Core {

Node::Node(const QString& aName)
    : mName(aName)
{
}

Node::~Node() = default;

void Node::writeRecord(QDataStream& aStream) const
{
    aStream << mName;
    writeFields(aStream);
}

void Node::readRecord(QDataStream& aStream)
{
    aStream >> mName;
    if (aStream.status() == QDataStream::Ok) {
        readFields(aStream);
    }
}

} // namespace Hmi::Core
