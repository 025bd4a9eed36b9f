#pragma once

#include "hmicore_export.h"

#include <QHash>
#include <QString>
#include <QXmlStreamReader>

#include <functional>

class QIODevice;

namespace Hmi::Core {

/**
 * Drives a QXmlStreamReader and hands each element's start and end to the handler registered for
 * its name. Handlers come and go while parsing: a node registers its child tags when its element
 * starts and removes them when it ends, so the same tag name can mean different things in
 * different elements.
 */
class HMICORE_EXPORT XmlLoader
{
public:
    struct TagHandlerRecord
    {
        /// The object the callbacks act on; lets a receiver remove exactly its own handlers.
        const void* receiver = nullptr;
        std::function<void(const QXmlStreamReader&)> onStart;
        std::function<void(const QString&)> onEnd;
    };

    XmlLoader();
    virtual ~XmlLoader();
    Q_DISABLE_COPY(XmlLoader)

    /// Inserts or replaces the handler for aTag.
    void registerTag(const QString& aTag, TagHandlerRecord aRecord);
    /// Removes the handler for aTag if aReceiver registered it.
    void unregisterTag(const QString& aTag, const void* aReceiver);

    bool parse(QIODevice* aDevice);
    bool parse(const QByteArray& aData);
    /**
     * Parses a sequence of chunks, each a 32-bit big-endian length L followed by L + 4 bytes in
     * the form qCompress() writes (a 4-byte big-endian uncompressed size, then zlib data).
     */
    bool parseCompressed(const QByteArray& aData);

    /// Ends the running parse after the current token.
    void stop() { mStop = true; }

    /// Upper bound on one chunk's uncompressed size; a larger size header is refused unread.
    static constexpr quint32 sMaxChunkSize = 64 * 1024 * 1024;
    /// Deflate's best case is 258 bytes from 2 bits, about 1032:1; a chunk claiming more than its
    /// zlib data times this is refused unread as well.
    static constexpr quint32 sMaxZlibRatio = 1032;

protected:
    const QXmlStreamReader& getReader() const { return mReader; }

private:
    void run(bool aMoreToCome);
    void logReaderError(bool aMoreToCome);
    bool finish(bool aSuccess);

    bool mStop = false;
    QString mText;
    QXmlStreamReader mReader;
    QHash<QString, TagHandlerRecord> mHandlers;
};

} // namespace Hmi::Core
