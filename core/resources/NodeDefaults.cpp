#include "resources/NodeDefaults.h"

#include <QDataStream>
#include <QIODevice>
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

template <typename T> QVariant readValue(QDataStream& aStream)
{
    T value {};
    aStream >> value;
    return QVariant::fromValue(value);
}

// Reads the stream form of a QVariant (type id, null flag, payload) for the storable types
// only. QVariant's own operator>> would build whatever type the file names, including ones
// that need a GUI or recurse without bound, so the type is checked before any payload is read.
QVariant readVariant(QDataStream& aStream)
{
    quint32 type = 0;
    qint8 isNull = 0;
    aStream >> type >> isNull;
    if (aStream.status() != QDataStream::Ok) {
        return QVariant();
    }
    switch (type) {
    case QMetaType::UnknownType:
        return QVariant();
    case QMetaType::Bool:
        return readValue<bool>(aStream);
    case QMetaType::Int:
        return readValue<qint32>(aStream);
    case QMetaType::UInt:
        return readValue<quint32>(aStream);
    case QMetaType::LongLong:
        return readValue<qint64>(aStream);
    case QMetaType::ULongLong:
        return readValue<quint64>(aStream);
    case QMetaType::Double:
        return readValue<double>(aStream);
    case QMetaType::Float:
        return readValue<float>(aStream);
    case QMetaType::QString:
        return readValue<QString>(aStream);
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
    qint32 count = 0;
    aStream >> count;
    if (aStream.status() != QDataStream::Ok) {
        return;
    }
    const QIODevice* device = aStream.device();
    if (count < 0 || (device && count > device->bytesAvailable() / sMinPairSize)) {
        aStream.setStatus(QDataStream::ReadCorruptData);
        return;
    }
    for (qint32 i = 0; i < count; ++i) {
        QString key;
        aStream >> key;
        const QVariant value = readVariant(aStream);
        if (aStream.status() != QDataStream::Ok) {
            return;
        }
        mDefaults.insert(key, value);
    }
}

} // namespace Hmi::Core
