#pragma once

#include "hmicore_export.h"

#include <QDataStream>
#include <QString>
#include <QStringList>

#include <algorithm>

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

    /// Writes the count of aNodes, then their records in ascending order of name, so that the
    /// same content always gives the same bytes.
    template <typename Table>
    static void writeRecords(QDataStream& aStream, const Table& aNodes)
    {
        QStringList names = aNodes.keys();
        std::sort(names.begin(), names.end());
        aStream << qint32(names.size());
        for (const QString& name : qAsConst(names)) {
            aNodes.value(name)->writeRecord(aStream);
        }
    }

protected:
    virtual void writeFields(QDataStream& aStream) const = 0;
    virtual void readFields(QDataStream& aStream) = 0;

private:
    QString mName;
};

} // namespace Hmi::Core
