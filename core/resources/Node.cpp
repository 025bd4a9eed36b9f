#include "resources/Node.h"

#include "resources/StreamReader.h"

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
    {
        // Gone before readFields(), which reads the stream itself.
        StreamReader reader(aStream);
        if (!reader.readString(mName)) {
            return;
        }
    }
    readFields(aStream);
}

} // namespace Hmi::Core
