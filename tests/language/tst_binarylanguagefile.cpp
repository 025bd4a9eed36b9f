#include "language/BinaryLanguageFile.h"
#include "language/NodeText.h"
#include "language/XmlLanguageFile.h"

#include "common/ByteWriter.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Hmi::Core;

namespace {

ByteWriter header(qint64 aMagic = 0x0C0E7492, qint64 aVersion = 1)
{
    return ByteWriter().i32(aMagic).i32(aVersion);
}

// Code page, language, display name, extra, direction and version.
ByteWriter catalog()
{
    return header().str("UTF-8").str("en_US").str("American English").str(QString()).u8(0).f64(1.0);
}

// Speech recognition, TTS and visual as "010".
QString usage(const NodeText& aNode)
{
    return QString::number(int(aNode.getUseSpeechRecognition())) + QString::number(int(aNode.getUseTTS()))
        + QString::number(int(aNode.getUseVisual()));
}

} // namespace

class tst_BinaryLanguageFile : public QObject
{
    Q_OBJECT

private slots:
    void writeAndReadBack()
    {
        const QString source
            = write("<catalog codepage=\"cp\" direction=\"1\" language=\"xx\" display_name=\"X\" "
                    "file_version=\"1.5\">"
                    "<strings><entry handle=\"B\"><string default=\"true\"><visual>b</visual></string>"
                    "<string><usage speechrec=\"true\"/></string></entry>"
                    "<entry handle=\"A\"><string "
                    "default=\"true\"><visual>a\\n</visual><pronunciation>p</pronunciation>"
                    "</string></entry><entry handle=\"C\"><string><usage visual=\"false\"/></string></entry>"
                    "</strings></catalog>",
                QStringLiteral("layout.glx"));
        const auto xml = XmlLanguageFile::load(source, false);
        QVERIFY(xml);
        const QString path = mDirectory.filePath(QStringLiteral("layout.glx.dat"));
        QVERIFY(!BinaryLanguageFile::save(path, *XmlLanguageFile::load(source, true)));
        QVERIFY(!QFileInfo::exists(path));
        QVERIFY(BinaryLanguageFile::save(path, *xml));

        // Names ascending; only strings that were given, each with its present bit set. The text is
        // stored as the XML reader left it: a line feed, not the escape.
        ByteWriter expected = header();
        expected.str("cp").str("xx").str("X").str(QString()).u8(1).f64(1.5).i32(3);
        expected.str("STR_A").u8(0x04).u8(2).u8(0x03).str("a\n").u8(0x01).str("p");
        expected.str("STR_B").u8(0x05).u8(1).u8(0x03).str("b");
        expected.str("STR_C").u8(0x00).u8(0);
        QFile written(path);
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(written.readAll().toHex(' '), QByteArray(expected).toHex(' '));

        const auto catalogOnly = BinaryLanguageFile::load(path, true);
        QVERIFY(catalogOnly);
        QVERIFY(!catalogOnly->getIsFullyLoaded());
        QVERIFY(!catalogOnly->hasNode(QStringLiteral("STR_A")));
        const QStringList catalogFields { catalogOnly->getCodePage(), catalogOnly->getLanguage(),
            catalogOnly->getDisplayName(), QString::number(catalogOnly->getRightToLeft()),
            QString::number(catalogOnly->getVersion()) };
        QCOMPARE(catalogFields, (QStringList { "cp", "xx", "X", "1", "1.5" }));
        // records() reads the texts back; tst_hmicoretool compares whole files after a round trip.
    }

    void records_data()
    {
        // The records of a file with the usual catalog; the node under test is "A".
        QTest::addColumn<QByteArray>("records");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("pronunciation");
        QTest::addColumn<QString>("usage");

        const auto a = [](int aCount, quint8 aFlags, quint8 aStrings) {
            return ByteWriter().i32(aCount).str("A").u8(aFlags).u8(aStrings);
        };
        const QString none;
        // clang-format off
        QTest::newRow("no strings") << QByteArray(a(1, 0, 0)) << none << none << "000";
        QTest::newRow("kinds in either order")
            << QByteArray(a(1, 0x07, 2).u8(0x01).str("p").u8(0x03).str("t")) << "t" << "p" << "111";
        QTest::newRow("other flag bits are ignored") << QByteArray(a(1, 0xFA, 0)) << none << none << "010";
        QTest::newRow("entry without present bit is dropped")
            << QByteArray(a(1, 0x04, 2).u8(0x02).str("t").u8(0x01).str("p")) << none << "p" << "001";
        QTest::newRow("texts are kept as stored")
            << QByteArray(a(1, 0x04, 2).u8(0x03).str("a\\nb").u8(0x01).str("")) << "a\\nb" << "" << "001";
        QTest::newRow("a later record of the same name replaces the earlier")
            << QByteArray(a(2, 0x01, 1).u8(0x03).str("old").str("A").u8(0x02).u8(0)) << none << none << "010";
        // clang-format on
    }

    void records()
    {
        QFETCH(QByteArray, records);
        QFETCH(QString, text);
        QFETCH(QString, pronunciation);
        QFETCH(QString, usage);

        QString error;
        const auto file = BinaryLanguageFile::load(write(catalog() + records), false, &error);
        QVERIFY2(file, qPrintable(error));
        QCOMPARE(file->getNodes().size(), 1);
        const QSharedPointer<const NodeText> node = file->getNode(QStringLiteral("A"));
        QVERIFY(node);
        QCOMPARE(node->getText(), text);
        QCOMPARE(node->getText().isNull(), text.isNull());
        QCOMPARE(node->getPronunciation(), pronunciation);
        QCOMPARE(node->getPronunciation().isNull(), pronunciation.isNull());
        QCOMPARE(::usage(*node), usage);
    }

    void errors_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<bool>("catalogOnly");
        QTest::addColumn<QString>("reason"); // null: the load succeeds

        const QString nodes = QStringLiteral("unable to read text nodes");
        const QByteArray valid = catalog();

        const auto node = [&](quint8 aKind) {
            return valid + ByteWriter().i32(1).str("A").u8(0).u8(1).u8(aKind).str("x");
        };
        // clang-format off
        QTest::newRow("wrong magic") << header(0x0C0E7493) + valid.mid(8) << false << "magic bytes don't match";
        QTest::newRow("version 2") << header(0x0C0E7492, 2) + valid.mid(8) << true << "version doesn't match latest";
        QTest::newRow("odd string length")
            << QByteArray(header().i32(3).u8(0).u8(0).u8(0)) + valid.mid(8) << true << "unable to read language info";
        QTest::newRow("catalog only reads no node count") << valid << true << QString();
        QTest::newRow("catalog only ignores broken nodes")
            << valid + ByteWriter().i32(0x7FFFFFFF).u8(1) << true << QString();
        QTest::newRow("no nodes") << valid + ByteWriter().i32(0) << false << QString();
        QTest::newRow("record of the fewest bytes")
            << valid + ByteWriter().i32(1).str("").u8(0).u8(0) << false << QString();
        QTest::newRow("node count 2^31") << valid + ByteWriter().i32(0x80000000) << false << nodes;
        QTest::newRow("node count 2^31-1") << valid + ByteWriter().i32(0x7FFFFFFF) << false << nodes;
        QTest::newRow("kind 2") << node(0x05) << false << nodes;
        QTest::newRow("kind 127 in an absent entry") << node(0xFE) << false << nodes;
        // clang-format on
    }

    void errors()
    {
        QFETCH(QByteArray, data);
        QFETCH(bool, catalogOnly);
        QFETCH(QString, reason);

        QString error = QStringLiteral("stale");
        const auto file = BinaryLanguageFile::load(write(data), catalogOnly, &error);
        if (reason.isNull()) {
            QVERIFY2(file, qPrintable(error));
            QCOMPARE(file->getIsFullyLoaded(), !catalogOnly);
            QCOMPARE(file->getDisplayName(), QStringLiteral("American English"));
        } else {
            QVERIFY(!file);
            QCOMPARE(error, reason);
        }
    }

    void cutAtEveryOffset()
    {
        const int catalogEnd = catalog().size();
        ByteWriter bytes = catalog();
        bytes.i32(2).str("STR_TEST").u8(0x04).u8(2).u8(0x03).str("Test").u8(0x01).str("test");
        bytes.str("STR_TEST2").u8(0x06).u8(1).u8(0x03).str("x");
        const QByteArray data = bytes;
        QVERIFY(BinaryLanguageFile::load(write(data), false));

        for (int size = 0; size < data.size(); ++size) {
            const QString path = write(data.left(size));
            const QString reason = size < 8 ? QStringLiteral("unable to read header")
                : size < catalogEnd         ? QStringLiteral("unable to read language info")
                                            : QStringLiteral("unable to read text nodes");
            QString error;
            QVERIFY2(!BinaryLanguageFile::load(path, false, &error), qPrintable(QString::number(size)));
            QCOMPARE(error, reason);

            error.clear();
            const auto catalog = BinaryLanguageFile::load(path, true, &error);
            QCOMPARE(bool(catalog), size >= catalogEnd);
            if (!catalog) {
                QCOMPARE(error, reason);
            }
        }
    }

    void unopenableGivesNoReason()
    {
        for (const QString& path : { mDirectory.filePath(QStringLiteral("missing.glx.dat")), QString() }) {
            QString error = QStringLiteral("stale");
            QVERIFY(!BinaryLanguageFile::load(path, false, &error));
            QVERIFY2(error.isEmpty(), qPrintable(error));
        }
    }

private:
    QString write(const QByteArray& aData, const QString& aName = QStringLiteral("test.glx.dat"))
    {
        const QString path = mDirectory.filePath(aName);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(aData) != aData.size()) {
            return QString();
        }
        return path;
    }

    QTemporaryDir mDirectory;
};

// Cuts are covered by cutAtEveryOffset; these are complete files with a bad value.

QTEST_GUILESS_MAIN(tst_BinaryLanguageFile)

#include "tst_binarylanguagefile.moc"
