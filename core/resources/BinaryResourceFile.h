#pragma once

#include "resources/ResourceFile.h"

#include <QByteArray>

class QDataStream;

namespace Hmi::Core {

/**
 * The binary form of a resource description: a header (magic, version, the content hash the
 * caller supplies), then the nodes of each type in type order, names ascending. It loads many
 * times faster than the XML it was made from, and serves both as a pre-built description and as
 * the cache of an XML one.
 */
class HMICORE_EXPORT BinaryResourceFile final : public ResourceFile
{
public:
    static constexpr qint32 sMagic = 0x65B57724;
    static constexpr qint32 sVersion = 7;

    explicit BinaryResourceFile(const QString& aBasePath = QString());
    ~BinaryResourceFile() override;

    /**
     * Reads the file at aPath. False, with no message, when it is not a binary resource file of this
     * version, was written for another content hash, or is damaged; the caller then discards it.
     */
    bool loadFile(const QString& aPath, const QString& aBasePath, const QByteArray& aHash);
    /// Same, from bytes already in memory.
    bool loadData(const QByteArray& aData, const QString& aBasePath, const QByteArray& aHash);

    /// Writes the nodes of aSource atomically: a failed write leaves any earlier file in place.
    bool saveFile(const QString& aPath, const QByteArray& aHash, const ResourceFile& aSource);

    /// The stream of the running load or save; null, with a message, outside them.
    QDataStream* getStream() const;

private:
    bool load(QDataStream& aStream, const QByteArray& aHash);
    bool readSection(ResourceType aType);

    QDataStream* mStream = nullptr;
};

} // namespace Hmi::Core
