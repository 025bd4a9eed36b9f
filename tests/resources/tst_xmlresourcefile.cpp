#include "resources/NodeColor.h"
#include "resources/NodeFont.h"
#include "resources/NodeRectangle.h"
#include "resources/XmlResourceFile.h"

#include "common/MessageLog.h"

#include <QElapsedTimer>
#include <QtEndian>
#include <QtTest>

using namespace Hmi::Core;

namespace {

const QString sBase = QStringLiteral("/themes/day/");

QByteArray document(const QByteArray& aBody)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<NvkQtResourceFile>" + aBody
        + "</NvkQtResourceFile>\n";
}

QByteArray unrecognized(const char* aTag)
{
    return QByteArray("ERROR: Unrecognized tag \"") + aTag + '"';
}

// qCompress() output already starts with the 4-byte big-endian uncompressed size; a chunk puts
// the length of the zlib data in front of it.
QByteArray chunk(const QByteArray& aPiece)
{
    const QByteArray compressed = qCompress(aPiece);
    QByteArray length(4, '\0');
    qToBigEndian<quint32>(quint32(compressed.size() - 4), length.data());
    return length + compressed;
}

QByteArray chunks(const QByteArray& aDocument, const QList<int>& aCuts)
{
    QByteArray result;
    int from = 0;
    for (const int cut : aCuts) {
        result += chunk(aDocument.mid(from, cut - from));
        from = cut;
    }
    return result + chunk(aDocument.mid(from));
}

QStringList colorNames(const ResourceFile& aFile)
{
    QStringList names = aFile.getNodes(ResourceType::Color).keys();
    names.sort();
    return names;
}

} // namespace

class tst_XmlResourceFile : public QObject
{
    Q_OBJECT

private slots:
    // Every case is followed by a valid colour, which must still be read.
    void recoverableProblems_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QByteArrayList>("warnings");
        QTest::addColumn<QStringList>("colors");

        QTest::newRow("unknown element")
            << QByteArray("<blob>x</blob>") << QByteArrayList { unrecognized("blob"), unrecognized("blob") }
            << QStringList { "after" };
        QTest::newRow("node tags inside an unknown element")
            << QByteArray("<blob><handle>x</handle><value>1,2,3</value></blob>")
            << QByteArrayList { unrecognized("blob"), unrecognized("handle"), unrecognized("handle"),
                   unrecognized("value"), unrecognized("value"), unrecognized("blob") }
            << QStringList { "after" };
        QTest::newRow("unknown child of a node")
            << QByteArray("<color><handle>c</handle><shade>1</shade><value>1,2,3</value></color>")
            << QByteArrayList { unrecognized("shade"), unrecognized("shade") }
            << QStringList { "after", "c" };
        QTest::newRow("child tag after its element ended")
            << QByteArray("<color><handle>c</handle></color><value>1,2,3</value>")
            << QByteArrayList { unrecognized("value"), unrecognized("value") }
            << QStringList { "after", "c" };
        QTest::newRow("broken colour is still a node")
            << QByteArray("<color><handle>bad</handle><value>1,2</value></color>")
            << QByteArrayList { "ERROR: invalid color" } << QStringList { "after", "bad" };
        QTest::newRow("text split by a comment keeps the last piece")
            << QByteArray("<color><handle>first<!-- note -->last</handle><value>1,2,3</value></color>")
            << QByteArrayList {} << QStringList { "after", "last" };
    }

    void recoverableProblems()
    {
        QFETCH(QByteArray, body);
        QFETCH(QByteArrayList, warnings);
        QFETCH(QStringList, colors);

        for (const QByteArray& warning : qAsConst(warnings)) {
            QTest::ignoreMessage(QtWarningMsg, warning.constData());
        }
        MessageLog counter;
        XmlResourceFile file(sBase);
        QVERIFY(file.loadData(document(body + "<color><handle>after</handle><value>1,2,3</value></color>")));
        QCOMPARE(counter.getCount(), warnings.size());
        QCOMPARE(colorNames(file), colors);
        QCOMPARE(file.get<NodeColor>("after")->getColor(), QColor(1, 2, 3));
    }

    void nodeTables()
    {
        XmlResourceFile file(sBase);
        QVERIFY(file.loadData(document("<color><handle>c</handle><value>1,2,3</value></color>"
                                       "<rectangle><handle>c</handle></rectangle>"
                                       "<color><handle>c</handle><value>4,5,6</value></color>")));
        // A later node replaces an earlier one of the same type only.
        QCOMPARE(file.getNodes(ResourceType::Color).size(), 1);
        QCOMPARE(file.get<NodeColor>("c")->getColor(), QColor(4, 5, 6));
        QVERIFY(file.get<NodeRectangle>("c"));
    }

    void fontWithoutExactMatch()
    {
        QTest::ignoreMessage(QtWarningMsg,
            "Font 'title' does not have an exact match. The desired font needs to be installed.");
        QTest::ignoreMessage(QtDebugMsg, "             Requested, Actual");
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Family:      NoSuchFam, \\S"));
        // Requested bold is counted from weight 58, so demiBold (63) shows as bold.
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Bold:                1, [01]$"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Italic:              1, [01]$"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Overline:            0, 0$"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Pixel Size:         17, -?\\d+$"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Point Size:         -1, -?\\d+$"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Strikeout:           0, 0$"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Underline:           0, 0$"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Weight:             63, \\d+$"));
        XmlResourceFile file(sBase);
        QVERIFY(file.loadData(document("<font><handle>title</handle><family>NoSuchFam</family>"
                                       "<pixelSize>17</pixelSize><weight>demiBold</weight>"
                                       "<italic>true</italic></font>")));
        const auto font = file.get<NodeFont>("title");
        QVERIFY(font);
        QCOMPARE(font->getFont().family(), QStringLiteral("NoSuchFam"));
    }

    void compressed_data()
    {
        QTest::addColumn<QList<int>>("cuts");

        QTest::newRow("one chunk") << QList<int> {};
        // The "ü" of "grün" takes bytes 75 and 76 of the document.
        QTest::newRow("cut inside a tag") << QList<int> { 60 };
        QTest::newRow("cut inside a UTF-8 character") << QList<int> { 77 };
        QTest::newRow("three chunks") << QList<int> { 50, 100 };
    }

    void compressed()
    {
        QFETCH(QList<int>, cuts);

        const QByteArray xml = document("<color><handle>grün</handle><value>1,2,3</value></color>"
                                        "<color><handle>blue</handle><value>0,0,ff</value></color>");
        QCOMPARE(xml.indexOf("\xc3\xbc"), 75);
        MessageLog counter;
        XmlResourceFile file(sBase);
        QVERIFY(file.parseCompressed(chunks(xml, cuts)));
        QCOMPARE(counter.getCount(), 0);
        QCOMPARE(colorNames(file), QStringList({ "blue", QStringLiteral("grün") }));
    }

    // The first part of each input is good, the second is not.
    void refused_data()
    {
        QTest::addColumn<bool>("compressed");
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QByteArrayList>("warnings");

        const QByteArray failed = "ERROR: Decompressing chunk of compressed xml failed!";
        const QByteArray good = "<NvkQtResourceFile><color><handle>c</handle><value>1,2,3</value></color>";
        const QByteArray bad = "<color><handle>d</handle></colour></NvkQtResourceFile>";
        const QByteArray first = chunk(good);
        const QByteArray second = chunk("<color><handle>d</handle></color></NvkQtResourceFile>");
        QTest::newRow("malformed") << false << good + bad
                                   << QByteArrayList { "Opening and ending tag mismatch." };
        QTest::newRow("malformed chunk")
            << true << first + chunk(bad) << QByteArrayList { "Opening and ending tag mismatch." };
        QByteArray corrupt = second;
        corrupt[8] = 0; // the zlib header
        QTest::newRow("corrupt zlib data")
            << true << (first + corrupt)
            << QByteArrayList { "qUncompress: Z_DATA_ERROR: Input data is corrupted", failed };
        QByteArray huge = second;
        qToBigEndian<quint32>(0x7FFFFF00, huge.data() + 4);
        QTest::newRow("uncompressed size of 2 GB") << true << first + huge << QByteArrayList { failed };
        // Refused before qUncompress() reserves the claimed size, so it has nothing to report.
        QByteArray claim = second;
        qToBigEndian<quint32>(quint32(claim.size() - 8) * XmlLoader::sMaxZlibRatio + 1, claim.data() + 4);
        QTest::newRow("more than zlib can expand to") << true << first + claim << QByteArrayList { failed };
        QByteArray beyond = second;
        qToBigEndian<quint32>(quint32(second.size()), beyond.data());
        QTest::newRow("length beyond the data") << true << first + beyond << QByteArrayList { failed };
        QTest::newRow("short tail") << true << first + second.left(6) << QByteArrayList { failed };
    }

    void refused()
    {
        QFETCH(bool, compressed);
        QFETCH(QByteArray, data);
        QFETCH(QByteArrayList, warnings);

        for (const QByteArray& warning : qAsConst(warnings)) {
            QTest::ignoreMessage(QtWarningMsg, warning.constData());
        }
        MessageLog counter;
        QElapsedTimer timer;
        timer.start();
        XmlResourceFile file(sBase);
        QVERIFY(!(compressed ? file.parseCompressed(data) : file.loadData(data)));
        QVERIFY(timer.elapsed() < 2000);
        QCOMPARE(counter.getCount(), warnings.size());
        // What the good part held is kept.
        QVERIFY(file.get<NodeColor>("c"));

        // Nothing of the failed input is left in the reader.
        const QByteArray next = document("<color><handle>e</handle></color>");
        QVERIFY(compressed ? file.parseCompressed(chunk(next)) : file.loadData(next));
        QVERIFY(file.get<NodeColor>("e"));
    }
};

QTEST_MAIN(tst_XmlResourceFile)
#include "tst_xmlresourcefile.moc"
