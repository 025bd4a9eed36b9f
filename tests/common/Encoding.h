#pragma once

#include <QByteArray>
#include <QString>
#include <QtEndian>

/**
 * aText in one of the encodings a file may come in: "UTF-8", "UTF-8 BOM", "UTF-16LE" and
 * "UTF-16BE" with their byte-order mark, and "UTF-16LE no BOM".
 */
inline QByteArray encode(const QString& aText, const QByteArray& aEncoding)
{
    if (aEncoding.startsWith("UTF-8")) {
        return (aEncoding.endsWith("BOM") ? QByteArray("\xEF\xBB\xBF") : QByteArray()) + aText.toUtf8();
    }
    const bool littleEndian = aEncoding.startsWith("UTF-16LE");
    QByteArray bytes;
    if (!aEncoding.endsWith("no BOM")) {
        bytes = littleEndian ? "\xFF\xFE" : "\xFE\xFF";
    }
    for (const QChar c : aText) {
        char unit[2];
        if (littleEndian) {
            qToLittleEndian<quint16>(c.unicode(), unit);
        } else {
            qToBigEndian<quint16>(c.unicode(), unit);
        }
        bytes.append(unit, 2);
    }
    return bytes;
}
