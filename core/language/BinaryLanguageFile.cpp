#include "language/BinaryLanguageFile.h"

#include "language/NodeText.h"

#include <QDataStream>
#include <QFile>
#include <QSaveFile>
#include <QStringList>
#include <QtEndian>

#include <algorithm>

namespace Hmi::Core {

namespace {

// The fewest bytes a text record takes: an empty name, the usage flags and a string count
// of 0. The node count is checked against it before anything is allocated.
constexpr qint64 sMinRecordSize = 4 + 1 + 1;

// The text record as NodeText::writeFields() lays it out.
constexpr quint8 sFlagSpeechRecognition = 0x01;
constexpr quint8 sFlagTTS = 0x02;
constexpr quint8 sFlagVisual = 0x04;
constexpr quint8 sTagPresent = 0x01;
constexpr quint8 sKindPronunciation = 0;
constexpr quint8 sKindText = 1;

// Reads the records from the file's bytes in memory. Through QDataStream each field was a call
// into QIODevice, and those calls took most of the load time. The results are those of
// QDataStream's operators in the little-endian stream; NodeText::readFields() reads the same
// record from a stream, and the two must stay in step.
class RecordReader
{
public:
    RecordReader(const char* aData, qint64 aSize)
        : mNext(aData)
        , mEnd(aData + aSize)
    { }

    qint64 getBytesLeft() const { return mEnd - mNext; }

    bool readUInt8(quint8& aValue)
    {
        if (mNext == mEnd) {
            return false;
        }
        aValue = quint8(*mNext++);
        return true;
    }

    bool readUInt32(quint32& aValue)
    {
        if (getBytesLeft() < 4) {
            return false;
        }
        aValue = qFromLittleEndian<quint32>(mNext);
        mNext += 4;
        return true;
    }

    // A byte count (0xFFFFFFFF for a null string), then UTF-16. An odd count, or one beyond the
    // bytes left, is refused before anything is allocated.
    bool readString(QString& aText)
    {
        quint32 bytes = 0;
        if (!readUInt32(bytes)) {
            return false;
        }
        if (bytes == 0xFFFFFFFFu) {
            aText = QString();
            return true;
        }
        if ((bytes & 1u) || bytes > quint64(getBytesLeft())) {
            return false;
        }
        if (bytes == 0) {
            // Empty, not null: the writer keeps the two apart.
            aText = QString(QLatin1String(""));
            return true;
        }
        aText = QString(int(bytes / 2), Qt::Uninitialized);
        qFromLittleEndian<quint16>(mNext, bytes / 2, aText.data());
        mNext += bytes;
        return true;
    }

private:
    const char* mNext;
    const char* const mEnd;
};

void prepare(QDataStream& aStream)
{
    aStream.setVersion(QDataStream::Qt_5_6);
    aStream.setByteOrder(QDataStream::LittleEndian);
    aStream.setFloatingPointPrecision(QDataStream::DoublePrecision);
}

QSharedPointer<BinaryLanguageFile> failure(QString* aError, const QString& aReason)
{
    if (aError) {
        *aError = aReason;
    }
    return {};
}

} // namespace

BinaryLanguageFile::BinaryLanguageFile(const QString& aPath, bool aCatalogOnly)
    : LanguageFile(aPath, aCatalogOnly)
{ }

BinaryLanguageFile::~BinaryLanguageFile() = default;

QSharedPointer<BinaryLanguageFile> BinaryLanguageFile::load(
    const QString& aPath, bool aCatalogOnly, QString* aError)
{
    QFile device(aPath);
    // An empty path is checked here: QFile would add a warning of its own.
    if (aPath.isEmpty() || !device.open(QIODevice::ReadOnly)) {
        return failure(aError, QString());
    }
    QDataStream stream(&device);
    prepare(stream);

    qint32 magic = 0;
    qint32 version = 0;
    stream >> magic >> version;
    if (stream.status() != QDataStream::Ok) {
        return failure(aError, QStringLiteral("unable to read header"));
    }
    if (magic != sMagic) {
        return failure(aError, QStringLiteral("magic bytes don't match"));
    }
    if (version != sVersion) {
        return failure(aError, QStringLiteral("version doesn't match latest"));
    }

    QSharedPointer<BinaryLanguageFile> file(new BinaryLanguageFile(aPath, aCatalogOnly));
    Content& content = file->mContent;
    stream >> content.codePage >> content.language >> content.displayName >> content.catalogExtra
        >> content.rightToLeft >> content.version;
    if (stream.status() != QDataStream::Ok) {
        return failure(aError, QStringLiteral("unable to read language info"));
    }
    if (aCatalogOnly) {
        return file;
    }

    const QString nodesError = QStringLiteral("unable to read text nodes");
    // Unsigned, so that a negative count fails the size check like any other impossible one.
    quint32 count = 0;
    stream >> count;
    if (stream.status() != QDataStream::Ok) {
        return failure(aError, nodesError);
    }
    // Mapped: reading the records into a copy first added close to a tenth to the load time.
    // What cannot be mapped is read.
    const qint64 start = device.pos();
    const qint64 size = device.size() - start;
    const uchar* mapped = size > 0 ? device.map(start, size) : nullptr;
    QByteArray copy;
    if (!mapped) {
        copy = device.readAll();
    }
    RecordReader reader(
        mapped ? reinterpret_cast<const char*>(mapped) : copy.constData(), mapped ? size : copy.size());
    if (count > quint64(reader.getBytesLeft()) / sMinRecordSize) {
        return failure(aError, nodesError);
    }

    NodeTable nodes;
    nodes.reserve(int(count));
    QString name;
    QString value;
    for (quint32 i = 0; i < count; ++i) {
        quint8 flags = 0;
        quint8 strings = 0;
        if (!reader.readString(name) || !reader.readUInt8(flags) || !reader.readUInt8(strings)) {
            return failure(aError, nodesError);
        }
        auto node = QSharedPointer<NodeText>::create(name);
        node->setUseSpeechRecognition(flags & sFlagSpeechRecognition);
        node->setUseTTS(flags & sFlagTTS);
        node->setUseVisual(flags & sFlagVisual);
        for (int s = 0; s < strings; ++s) {
            quint8 tag = 0;
            if (!reader.readUInt8(tag)) {
                return failure(aError, nodesError);
            }
            const quint8 kind = tag >> 1;
            if ((kind != sKindPronunciation && kind != sKindText) || !reader.readString(value)) {
                return failure(aError, nodesError);
            }
            if (!(tag & sTagPresent)) {
                continue;
            }
            if (kind == sKindText) {
                node->setTextRaw(value);
            } else {
                node->setPronunciationRaw(value);
            }
        }
        // Moved in: a copy of the pointer would cost four atomic reference count updates.
        nodes[name] = std::move(node);
    }
    content.nodes = std::move(nodes);
    return file;
}

bool BinaryLanguageFile::save(const QString& aPath, const LanguageFile& aFile)
{
    if (!aFile.getIsFullyLoaded()) {
        return false;
    }
    QSaveFile device(aPath);
    if (!device.open(QIODevice::WriteOnly)) {
        return false;
    }
    QDataStream stream(&device);
    prepare(stream);

    stream << sMagic << sVersion << aFile.getCodePage() << aFile.getLanguage() << aFile.getDisplayName()
           << aFile.getCatalogExtra() << aFile.getRightToLeft() << aFile.getVersion();
    Node::writeRecords(stream, aFile.getNodes());
    if (stream.status() != QDataStream::Ok) {
        device.cancelWriting();
        return false;
    }
    return device.commit();
}

} // namespace Hmi::Core
