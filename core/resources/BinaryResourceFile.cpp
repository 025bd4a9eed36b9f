#include "resources/BinaryResourceFile.h"

#include "resources/XmlNode.h"

#include <QBuffer>
#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QSaveFile>

#include <algorithm>

namespace Hmi::Core {

namespace {

    // The fewest bytes one record of each type can take; a section count is checked against them
    // before anything is allocated.
    constexpr qint64 sMinRecordSize[ResourceTypeCount] = {
        4 + 4, // colour: name, rgba
        4 + 4, // defaults: name, count
        4 + 5 + 4 + 4 + 8 + 4, // font
        4 + 4 + 4 + 4 + 8 + 16 + 16 + 16 + 8 + 16, // image
        4 + 4 + 4 + 4 + 8 + 16 + 16 + 16 + 8 + 16 + 1 + 4 + 1 + 8 + 16 + 1 + 4 + 4 + 8, // rectangle
        4 + 4 + 8 + 4 + 1 + 4 + 1 + 1, // shader
    };

    // Holds the stream pointer only while a load or save runs.
    class StreamScope
    {
    public:
        StreamScope(QDataStream*& aSlot, QDataStream& aStream)
            : mSlot(aSlot)
        {
            mSlot = &aStream;
        }
        ~StreamScope() { mSlot = nullptr; }
        Q_DISABLE_COPY(StreamScope)

    private:
        QDataStream*& mSlot;
    };

    void prepare(QDataStream& aStream)
    {
        aStream.setVersion(QDataStream::Qt_5_6);
        aStream.setByteOrder(QDataStream::LittleEndian);
        aStream.setFloatingPointPrecision(QDataStream::DoublePrecision);
    }

} // namespace

BinaryResourceFile::BinaryResourceFile(const QString& aBasePath)
    : ResourceFile(aBasePath)
{
}

BinaryResourceFile::~BinaryResourceFile() = default;

bool BinaryResourceFile::loadFile(const QString& aPath, const QString& aBasePath, const QByteArray& aHash)
{
    QFile file(aPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    // Read from memory: the records check their counts against bytesAvailable(), which costs a
    // stat() call per record on a QFile, and QFile's read buffer adds a copy per field.
    return loadData(file.readAll(), aBasePath, aHash);
}

bool BinaryResourceFile::loadData(const QByteArray& aData, const QString& aBasePath, const QByteArray& aHash)
{
    QBuffer buffer;
    buffer.setData(aData);
    // Unbuffered: the data is in memory already; QIODevice's own buffer would only copy it again.
    buffer.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    setBasePath(aBasePath);
    QDataStream stream(&buffer);
    return load(stream, aHash);
}

bool BinaryResourceFile::load(QDataStream& aStream, const QByteArray& aHash)
{
    prepare(aStream);
    StreamScope scope(mStream, aStream);

    qint32 magic = 0;
    qint32 version = 0;
    quint32 hashLength = 0;
    aStream >> magic >> version >> hashLength;
    // QDataStream writes a null QByteArray with the length 0xFFFFFFFF; a pre-built file written
    // that way still means "no hash".
    if (hashLength == 0xFFFFFFFFu) {
        hashLength = 0;
    }
    if (aStream.status() != QDataStream::Ok || magic != sMagic || version != sVersion
        || hashLength != quint32(aHash.size())) {
        return false;
    }
    QByteArray hash(aHash.size(), Qt::Uninitialized);
    if (aStream.readRawData(hash.data(), hash.size()) != hash.size() || hash != aHash) {
        return false;
    }
    for (int type = 0; type < ResourceTypeCount; ++type) {
        if (!readSection(ResourceType(type))) {
            return false;
        }
    }
    return aStream.status() == QDataStream::Ok;
}

bool BinaryResourceFile::readSection(ResourceType aType)
{
    QDataStream& stream = *mStream;
    qint32 count = 0;
    stream >> count;
    const qint64 remaining = stream.device()->bytesAvailable();
    if (stream.status() != QDataStream::Ok || count < 0 || count > remaining / sMinRecordSize[int(aType)]) {
        return false;
    }
    NodeTable& nodes = table(aType);
    nodes.reserve(nodes.size() + count);
    for (qint32 i = 0; i < count; ++i) {
        QSharedPointer<XmlNode> node = createNode(aType, getBasePath());
        node->readRecord(stream);
        if (stream.status() != QDataStream::Ok) {
            return false;
        }
        nodes.insert(node->getName(), node);
    }
    return true;
}

bool BinaryResourceFile::saveFile(const QString& aPath, const QByteArray& aHash, const ResourceFile& aSource)
{
    QSaveFile file(aPath);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QDataStream stream(&file);
    prepare(stream);
    StreamScope scope(mStream, stream);

    // Length and bytes written by hand: operator<< would give a null hash (a pre-built file's)
    // the length 0xFFFFFFFF rather than 0.
    stream << sMagic << sVersion << quint32(aHash.size());
    stream.writeRawData(aHash.constData(), aHash.size());
    for (int type = 0; type < ResourceTypeCount; ++type) {
        Node::writeRecords(stream, aSource.getNodes(ResourceType(type)));
    }
    if (stream.status() != QDataStream::Ok) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

QDataStream* BinaryResourceFile::getStream() const
{
    if (!mStream) {
        qWarning("BinaryResourceFile::getStream() should not be called outside loadFile()!");
    }
    return mStream;
}

} // namespace Hmi::Core
