#include "resources/NodeDefaults.h"

#include "resources/StreamReader.h"

#include <QDataStream>
#include <QtDebug>

namespace Hmi::Core {

namespace {

// The smallest pair: an empty key (length only), a type id and the null flag.
constexpr qint64 sMinPairSize = 4 + 4 + 1;

bool isStorableType(int aType)
{
    switch (aType) {
    case QMetaType::UnknownType: // an invalid variant has no payload
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::QString:
        return true;
    default:
        return false;
    }
}

// Reads the stream form of a QVariant (type id, null flag, payload) for the storable types
// only. QVariant's own operator>> would build whatever type the file names, including ones
// that need a GUI or recurse without bound, so the type is checked before any payload is read.
QVariant readVariant(StreamReader& aReader, QDataStream& aStream)
{
    // The null flag only matters to QVariant's own operator>>.
    if (!aReader.readBlock(4 + 1)) {
        return QVariant();
    }
    switch (aReader.takeUInt32()) {
    case QMetaType::UnknownType:
        return QVariant();
    case QMetaType::Bool:
        return aReader.readBlock(1) ? QVariant(aReader.takeBool()) : QVariant();
    case QMetaType::Int:
        return aReader.readBlock(4) ? QVariant(aReader.takeInt32()) : QVariant();
    case QMetaType::UInt:
        return aReader.readBlock(4) ? QVariant(aReader.takeUInt32()) : QVariant();
    case QMetaType::LongLong:
        return aReader.readBlock(8) ? QVariant(aReader.takeInt64()) : QVariant();
    case QMetaType::ULongLong:
        return aReader.readBlock(8) ? QVariant(aReader.takeUInt64()) : QVariant();
    case QMetaType::Double:
        return aReader.readBlock(aReader.getRealSize()) ? QVariant(aReader.takeReal()) : QVariant();
    case QMetaType::Float:
        return aReader.readBlock(aReader.getFloatSize()) ? QVariant(aReader.takeFloat()) : QVariant();
    case QMetaType::QString: {
        QString text;
        return aReader.readString(text) ? QVariant(text) : QVariant();
    }
    default:
        aStream.setStatus(QDataStream::ReadCorruptData);
        return QVariant();
    }
}

} // namespace

NodeDefaults::NodeDefaults(const QString& aName)
    : XmlNode(aName)
{ }

NodeDefaults::~NodeDefaults() = default;

void NodeDefaults::insertDefault(const QString& aName, const QVariant& aValue)
{
    mDefaults.insert(aName, aValue);
}

void NodeDefaults::registerTags(XmlLoader& aLoader)
{
    XmlNode::registerTags(aLoader);
    addTag(aLoader, QStringLiteral("property"), &NodeDefaults::onPropertyTagStart,
        &NodeDefaults::onPropertyTagEnd);
}

void NodeDefaults::onPropertyTagStart(const QXmlStreamReader& aReader)
{
    mPropertyName = aReader.attributes().value(QLatin1String("name")).toString();
}

void NodeDefaults::onPropertyTagEnd(const QString& aText)
{
    if (mPropertyName.isEmpty()) {
        qWarning("ERROR: no name attribute specified");
        return;
    }
    if (aText == QLatin1String("false")) {
        insertDefault(mPropertyName, false);
    } else {
        insertDefault(mPropertyName, aText);
    }
    mPropertyName.clear();
}

void NodeDefaults::writeFields(QDataStream& aStream) const
{
    for (const QVariant& value : mDefaults) {
        if (!isStorableType(value.userType())) {
            // Writing it would give a record that readFields() refuses.
            aStream.setStatus(QDataStream::WriteFailed);
            return;
        }
    }
    aStream << qint32(mDefaults.size());
    for (auto it = mDefaults.cbegin(); it != mDefaults.cend(); ++it) {
        aStream << it.key() << it.value();
    }
}

void NodeDefaults::readFields(QDataStream& aStream)
{
    StreamReader reader(aStream);
    if (!reader.readBlock(4)) {
        return;
    }
    const qint32 count = reader.takeInt32();
    if (count < 0 || count > reader.getBytesAvailable() / sMinPairSize) {
        aStream.setStatus(QDataStream::ReadCorruptData);
        return;
    }
    for (qint32 i = 0; i < count; ++i) {
        QString key;
        if (!reader.readString(key)) {
            return;
        }
        const QVariant value = readVariant(reader, aStream);
        if (aStream.status() != QDataStream::Ok) {
            return;
        }
        // The writer stores the keys in ascending order; the end as a hint spares the map its
        // search. A damaged file with another order still gives a valid map: QMap ignores a
        // wrong hint.
        mDefaults.insert(mDefaults.cend(), key, value);
    }
}

} // namespace Hmi::Core
