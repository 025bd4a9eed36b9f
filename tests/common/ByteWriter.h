#pragma once

#include <QByteArray>
#include <QString>

#include <cstring>

/**
 * Builds expected file contents little-endian by hand rather than with QDataStream, so that a
 * writer with the wrong byte order, stream version or float precision cannot agree with the
 * expectation by sharing its settings.
 */
class ByteWriter
{
public:
    ByteWriter& u8(quint8 aValue) { return le(aValue, 1); }
    ByteWriter& i32(qint64 aValue) { return le(quint64(aValue), 4); }
    ByteWriter& f64(double aValue)
    {
        quint64 bits = 0;
        std::memcpy(&bits, &aValue, sizeof bits);
        return le(bits, 8);
    }
    // A QString: its length in bytes (all ones for a null string), then UTF-16 code units.
    ByteWriter& str(const QString& aText)
    {
        if (aText.isNull()) {
            return i32(0xFFFFFFFF);
        }
        i32(aText.size() * 2);
        for (const QChar c : aText) {
            le(c.unicode(), 2);
        }
        return *this;
    }
    ByteWriter& raw(const QByteArray& aBytes)
    {
        mData += aBytes;
        return *this;
    }
    ByteWriter& hex(const char* aHex) { return raw(QByteArray::fromHex(aHex)); }
    ByteWriter& zeros(int aInt32Count)
    {
        mData += QByteArray(4 * aInt32Count, '\0');
        return *this;
    }
    int size() const { return mData.size(); }
    operator QByteArray() const { return mData; }

private:
    ByteWriter& le(quint64 aBits, int aSize)
    {
        for (int i = 0; i < aSize; ++i) {
            mData.append(char(aBits >> (8 * i)));
        }
        return *this;
    }

    QByteArray mData;
};
