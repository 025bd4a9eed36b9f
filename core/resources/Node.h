#pragma once

#include "hmicore_export.h"

#include <QString>

class QDataStream;

namespace Hmi::Core {

/**
 * A named value read from a resource or language file. Once loaded, nodes are immutable and shared
 * between threads as QSharedPointer<const Node>.
 *
 * Each kind writes and reads one record of the binary form; the record starts with the name.
 */
class HMICORE_EXPORT Node
{
public:
    explicit Node(const QString& aName = QString());
    virtual ~Node();
    Q_DISABLE_COPY(Node)

    const QString& getName() const { return mName; }
    void setName(const QString& aName) { mName = aName; }

    /// Writes the name, then the kind's own fields; failures show in the stream's status.
    void writeRecord(QDataStream& aStream) const;
    /// Reads a record written by writeRecord(); failures show in the stream's status.
    void readRecord(QDataStream& aStream);

protected:
    virtual void writeFields(QDataStream& aStream) const = 0;
    virtual void readFields(QDataStream& aStream) = 0;

private:
    QString mName;
};

} // namespace Hmi::Core
