#include "language/BinaryLanguageFile.h"

#include "language/NodeText.h"

#include <QDataStream>
#include <QFile>
#include <QSaveFile>
#include <QStringList>

#include <algorithm>

namespace Hmi::Core {

namespace {

// The fewest bytes a text record takes: an empty name, the usage flags and a string count
// of 0. The node count is checked against it before anything is allocated.
constexpr qint64 sMinRecordSize = 4 + 1 + 1;

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
    if (stream.status() != QDataStream::Ok || count > quint64(device.bytesAvailable()) / sMinRecordSize) {
        return failure(aError, nodesError);
    }
    NodeTable nodes;
    nodes.reserve(int(count));
    for (quint32 i = 0; i < count; ++i) {
        auto node = QSharedPointer<NodeText>::create();
        node->readRecord(stream);
        if (stream.status() != QDataStream::Ok) {
            return failure(aError, nodesError);
        }
        nodes.insert(node->getName(), node);
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
    const NodeTable& nodes = aFile.getNodes();
    QStringList names = nodes.keys();
    std::sort(names.begin(), names.end());
    stream << qint32(names.size());
    for (const QString& name : qAsConst(names)) {
        nodes.value(name)->writeRecord(stream);
    }
    if (stream.status() != QDataStream::Ok) {
        device.cancelWriting();
        return false;
    }
    return device.commit();
}

} // namespace Hmi::Core
