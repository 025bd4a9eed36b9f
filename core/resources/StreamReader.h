#pragma once

#include <QBuffer>
#include <QDataStream>
#include <QString>
#include <QSysInfo>
#include <QtEndian>

#include <cstring>

namespace Hmi::Core {

/**
 * Reads the fields of a node record with the results and stream status that QDataStream's
 * operators give, but faster: fixed-size fields are read as one block and decoded from memory,
 * and a string is read with a single allocation, after its length has been checked against the
 * bytes left. On a QBuffer (what binary resource files are loaded from) it reads the buffer's
 * bytes directly and moves the device on when it is destroyed; so while a reader lives, read
 * the stream through it only. Readers may take turns on one stream. Only where a failed read
 * leaves the device may differ from the operators.
 *
 * \code
 * StreamReader reader(aStream);
 * QString name;
 * if (!reader.readString(name) || !reader.readBlock(4 + 4)) {
 *     return;
 * }
 * const int width = reader.takeInt32();
 * const int height = reader.takeInt32();
 * \endcode
 */
class StreamReader final
{
public:
    /// The most bytes that one readBlock() takes.
    static constexpr int sBlockCapacity = 96;

    explicit StreamReader(QDataStream& aStream);
    ~StreamReader();
    Q_DISABLE_COPY(StreamReader)

    /// The bytes that a double takes in this stream: 8, or 4 at single precision.
    int getRealSize() const { return mRealSize; }
    /// The bytes that a float takes in this stream: 4, or 8 at double precision.
    int getFloatSize() const { return mFloatSize; }
    /// The bytes left to read, for checking a count before allocating for it.
    qint64 getBytesAvailable() const;

    /**
     * Reads the next aSize bytes (at most sBlockCapacity) for the take functions. False when
     * the stream is not Ok afterwards; too few bytes set ReadPastEnd, and the block reads as
     * zeros then, as the operators give 0.
     */
    bool readBlock(int aSize);

    // The next field of the block, in record order; as many bytes as the operator reads.
    qint8 takeInt8() { return qint8(*next(1)); }
    quint8 takeUInt8() { return quint8(*next(1)); }
    bool takeBool() { return *next(1) != 0; }
    qint32 takeInt32() { return qint32(take<quint32>()); }
    quint32 takeUInt32() { return take<quint32>(); }
    qint64 takeInt64() { return qint64(take<quint64>()); }
    quint64 takeUInt64() { return take<quint64>(); }
    /// A double as operator>>(double&) reads it: 8 bytes, or a float at single precision.
    double takeReal()
    {
        if (mRealSize == 4) {
            return double(bitCast<float>(take<quint32>()));
        }
        return bitCast<double>(take<quint64>());
    }
    /// A float as operator>>(float&) reads it: 4 bytes, or a double at double precision.
    float takeFloat()
    {
        if (mFloatSize == 8) {
            return float(bitCast<double>(take<quint64>()));
        }
        return bitCast<float>(take<quint32>());
    }

    /**
     * Reads a string as operator>>(QString&) does: 0xFFFFFFFF gives a null string, an odd byte
     * count sets ReadCorruptData, a count beyond the bytes left sets ReadPastEnd. False, with
     * aText cleared, unless the stream is Ok afterwards. The current block stays readable.
     */
    bool readString(QString& aText);

private:
    const char* next(int aSize)
    {
        Q_ASSERT(mUsed + aSize <= mSize);
        const char* field = mBlock + mUsed;
        mUsed += aSize;
        return field;
    }

    template <typename T> T take()
    {
        const char* field = next(int(sizeof(T)));
        return mLittleEndian ? qFromLittleEndian<T>(field) : qFromBigEndian<T>(field);
    }

    template <typename To, typename From> static To bitCast(From aValue)
    {
        static_assert(sizeof(To) == sizeof(From), "bit cast between different sizes");
        To result;
        std::memcpy(&result, &aValue, sizeof result);
        return result;
    }

    // The next aSize bytes, in the buffer's memory or read into aCopy; null, with the stream
    // status set, when fewer are left.
    const char* readBytes(int aSize, char* aCopy);

    QDataStream& mStream;
    const bool mLittleEndian;
    const int mRealSize;
    const int mFloatSize;
    // Set when reading the memory of a QBuffer directly: its bytes, and where we are in them.
    QBuffer* mBuffer = nullptr;
    const char* mMemory = nullptr;
    qint64 mPosition = 0;
    qint64 mStart = 0;
    qint64 mEnd = 0;
    // The block that the take functions decode: in the buffer's memory, or copied to mCopy.
    const char* mBlock = mCopy;
    int mSize = 0;
    int mUsed = 0;
    char mCopy[sBlockCapacity];
};

// Defined here rather than in a .cpp: the fuzz target compiles the node sources it names,
// without the library, and needs nothing more for the reader.
inline StreamReader::StreamReader(QDataStream& aStream)
    : mStream(aStream)
    , mLittleEndian(aStream.byteOrder() == QDataStream::LittleEndian)
    // The precision setting applies from Qt 4.6 on; before, doubles and floats kept their sizes.
    , mRealSize(aStream.version() >= QDataStream::Qt_4_6
                  && aStream.floatingPointPrecision() == QDataStream::SinglePrecision
              ? 4
              : 8)
    , mFloatSize(aStream.version() >= QDataStream::Qt_4_6
                  && aStream.floatingPointPrecision() == QDataStream::DoublePrecision
              ? 8
              : 4)
{
    // QIODevice::read() costs more per call than decoding a whole field; a QBuffer's bytes are in
    // memory anyway. Only a plain QBuffer, as a subclass may change what readData() gives. A
    // transaction needs its reads to go through the device, and version 1 strings are left to Qt.
    QIODevice* device = aStream.device();
    if (device && device->metaObject() == &QBuffer::staticMetaObject && device->isReadable()
        && !device->isTransactionStarted() && aStream.version() != 1) {
        auto* buffer = static_cast<QBuffer*>(device);
        mBuffer = buffer;
        mMemory = buffer->data().constData();
        mStart = buffer->pos();
        mPosition = mStart;
        mEnd = buffer->data().size();
    }
}

inline StreamReader::~StreamReader()
{
    if (mBuffer && mPosition != mStart) {
        mBuffer->seek(mPosition);
    }
}

inline qint64 StreamReader::getBytesAvailable() const
{
    if (mMemory) {
        return mEnd - mPosition;
    }
    const QIODevice* device = mStream.device();
    return device ? device->bytesAvailable() : 0;
}

inline bool StreamReader::readBlock(int aSize)
{
    Q_ASSERT(aSize >= 0 && aSize <= sBlockCapacity);
    mSize = aSize;
    mUsed = 0;
    mBlock = readBytes(aSize, mCopy);
    if (!mBlock) {
        std::memset(mCopy, 0, size_t(aSize));
        mBlock = mCopy;
        return false;
    }
    return mStream.status() == QDataStream::Ok;
}

inline bool StreamReader::readString(QString& aText)
{
    if (mStream.version() == 1) {
        // Latin-1 bytes in that version; rare enough to leave to Qt.
        mStream >> aText;
        return mStream.status() == QDataStream::Ok;
    }
    char lengthCopy[4];
    const char* lengthBytes = readBytes(4, lengthCopy);
    if (!lengthBytes) {
        aText.clear();
        return false;
    }
    const quint32 bytes
        = mLittleEndian ? qFromLittleEndian<quint32>(lengthBytes) : qFromBigEndian<quint32>(lengthBytes);
    if (bytes == 0xFFFFFFFFu) {
        aText = QString();
        return mStream.status() == QDataStream::Ok;
    }
    if (bytes == 0) {
        aText = QString(QLatin1String(""));
        return mStream.status() == QDataStream::Ok;
    }
    if (bytes & 1u) {
        aText.clear();
        mStream.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    // Checked before allocating: a damaged length must not cost gigabytes first.
    if (bytes > quint64(getBytesAvailable())) {
        aText.clear();
        mStream.setStatus(QDataStream::ReadPastEnd);
        return false;
    }
    QString text(int(bytes / 2), Qt::Uninitialized);
    char* characters = reinterpret_cast<char*>(text.data());
    const char* source = readBytes(int(bytes), characters);
    if (!source) {
        aText.clear();
        return false;
    }
    if (source != characters) {
        std::memcpy(characters, source, bytes);
    }
    if (mLittleEndian != (QSysInfo::ByteOrder == QSysInfo::LittleEndian)) {
        for (QChar& c : text) {
            c = QChar(qbswap(c.unicode()));
        }
    }
    aText = std::move(text);
    return mStream.status() == QDataStream::Ok;
}

inline const char* StreamReader::readBytes(int aSize, char* aCopy)
{
    if (mMemory) {
        if (mEnd - mPosition < aSize) {
            // As a read from the device would: what is left is consumed.
            mPosition = mEnd;
            mStream.setStatus(QDataStream::ReadPastEnd);
            return nullptr;
        }
        const char* bytes = mMemory + mPosition;
        mPosition += aSize;
        return bytes;
    }
    if (mStream.readRawData(aCopy, aSize) == aSize) {
        return aCopy;
    }
    // readRawData() sets this itself when the device runs out, but not without a device.
    mStream.setStatus(QDataStream::ReadPastEnd);
    return nullptr;
}

} // namespace Hmi::Core
