#include "resources/XmlLoader.h"

#include <QDebug>
#include <QIODevice>
#include <QtEndian>

namespace Hmi::Core {

XmlLoader::XmlLoader() = default;

XmlLoader::~XmlLoader() = default;

void XmlLoader::registerTag(const QString& aTag, TagHandlerRecord aRecord)
{
    mHandlers.insert(aTag, std::move(aRecord));
}

void XmlLoader::unregisterTag(const QString& aTag, const void* aReceiver)
{
    const auto it = mHandlers.find(aTag);
    if (it != mHandlers.end() && it->receiver == aReceiver) {
        mHandlers.erase(it);
    }
}

bool XmlLoader::parse(QIODevice* aDevice)
{
    mReader.setDevice(aDevice);
    run(false);
    return finish(!mReader.hasError());
}

bool XmlLoader::parse(const QByteArray& aData)
{
    mReader.addData(aData);
    run(false);
    return finish(!mReader.hasError());
}

bool XmlLoader::parseCompressed(const QByteArray& aData)
{
    const char* data = aData.constData();
    const qsizetype size = aData.size();
    qsizetype offset = 0;
    bool success = true;
    while (success && offset < size && !mStop) {
        // A chunk is its length, then the 4-byte uncompressed size and the zlib data.
        if (size - offset < 8) {
            qWarning("ERROR: Decompressing chunk of compressed xml failed!");
            success = false;
            break;
        }
        const quint32 length = qFromBigEndian<quint32>(data + offset);
        const quint32 expanded = qFromBigEndian<quint32>(data + offset + 4);
        const qsizetype available = size - offset - 4;
        // qUncompress() allocates whatever size the chunk claims before it inflates a byte, so a
        // claim is held against what the zlib data can expand to at most.
        const quint64 possible = quint64(length) * sMaxZlibRatio;
        if (length > quint32(available - 4) || expanded > sMaxChunkSize || expanded > possible) {
            qWarning("ERROR: Decompressing chunk of compressed xml failed!");
            success = false;
            break;
        }
        const QByteArray chunk
            = qUncompress(reinterpret_cast<const uchar*>(data + offset + 4), int(length) + 4);
        if (chunk.isEmpty()) {
            qWarning("ERROR: Decompressing chunk of compressed xml failed!");
            success = false;
            break;
        }
        offset += 8 + qsizetype(length);
        mReader.addData(chunk);
        run(offset < size);
    }
    return finish(success && !mReader.hasError());
}

void XmlLoader::run(bool aMoreToCome)
{
    while (!mReader.atEnd() && !mStop) {
        switch (mReader.readNext()) {
        case QXmlStreamReader::StartElement: {
            mText.clear();
            const QString name = mReader.name().toString();
            const auto it = mHandlers.constFind(name);
            if (it == mHandlers.cend()) {
                qWarning("ERROR: Unrecognized tag \"%s\"", qPrintable(name));
            } else if (it->onStart) {
                // Copy: the callback may replace or remove its own record.
                const auto onStart = it->onStart;
                onStart(mReader);
            }
            break;
        }
        case QXmlStreamReader::Characters:
            mText = mReader.text().toString();
            break;
        case QXmlStreamReader::EndElement: {
            const QString name = mReader.name().toString();
            const auto it = mHandlers.constFind(name);
            if (it == mHandlers.cend()) {
                qWarning("ERROR: Unrecognized tag \"%s\"", qPrintable(name));
            } else if (it->onEnd) {
                const auto onEnd = it->onEnd;
                onEnd(mText);
            }
            break;
        }
        default:
            break;
        }
    }
    // An invalid token ends the loop, so its error is reported once, here.
    logReaderError(aMoreToCome);
}

void XmlLoader::logReaderError(bool aMoreToCome)
{
    if (!mReader.hasError()) {
        return;
    }
    if (aMoreToCome && mReader.error() == QXmlStreamReader::PrematureEndOfDocumentError) {
        return;
    }
    qWarning("%s", qUtf8Printable(mReader.errorString()));
}

bool XmlLoader::finish(bool aSuccess)
{
    mReader.clear();
    mStop = false;
    mText.clear();
    return aSuccess;
}

} // namespace Hmi::Core
