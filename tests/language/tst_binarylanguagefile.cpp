#include "language/BinaryLanguageFile.h"
#include "language/NodeText.h"
#include "language/XmlLanguageFile.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

using namespace Hmi::Core;

namespace {

// Little-endian by hand rather than QDataStream, so that a writer with the wrong byte order,
// stream version or float precision cannot agree with the expectation by sharing its settings.
class Bytes
{
public:
    Bytes& u8(quint8 aValue)
    {
        mData.append(char(aValue));
        return *this;
    }
    Bytes& i32(qint64 aValue)
    {
        for (int i = 0; i < 4; ++i) {
            u8(quint8(quint64(aValue) >> (8 * i)));
        }
        return *this;
    }
    Bytes& f64(double aValue)
    {
        quint64 bits = 0;
        std::memcpy(&bits, &aValue, sizeof bits);
        for (int i = 0; i < 8; ++i) {
            u8(quint8(bits >> (8 * i)));
        }
        return *this;
    }
    Bytes& str(const QString& aText)
    {
        if (aText.isNull()) {
            return i32(0xFFFFFFFF);
        }
        i32(aText.size() * 2);
        for (const QChar c : aText) {
            u8(quint8(c.unicode() & 0xFF)).u8(quint8(c.unicode() >> 8));
        }
        return *this;
    }
    Bytes& header(qint64 aMagic = 0x0C0E7492, qint64 aVersion = 1) { return i32(aMagic).i32(aVersion); }
    Bytes& catalog()
    {
        return str("UTF-8").str("en_US").str("American English").str(QString()).u8(0).f64(1.0);
    }
    int size() const { return mData.size(); }
    operator QByteArray() const { return mData; }

private:
    QByteArray mData;
};

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
    void initTestCase();
    void roundTrip();
    void writerLayout();
    void saveRefusesCatalogOnly();
    void records_data();
    void records();
    void errors_data();
    void errors();
    void cutAtEveryOffset();
    void unopenableGivesNoReason();

private:
    QString write(const QByteArray& aData, const QString& aName = QStringLiteral("test.glx.dat"));

    QTemporaryDir mDirectory;
    QString mFixture;
};

void tst_BinaryLanguageFile::initTestCase()
{
    QVERIFY(mDirectory.isValid());
    mFixture = QFINDTESTDATA("../data/language/en_US.glx");
    QVERIFY(!mFixture.isEmpty());
}

QString tst_BinaryLanguageFile::write(const QByteArray& aData, const QString& aName)
{
    const QString path = mDirectory.filePath(aName);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(aData) != aData.size()) {
        return QString();
    }
    return path;
}

void tst_BinaryLanguageFile::roundTrip()
{
    const auto xml = XmlLanguageFile::load(mFixture, false);
    QVERIFY(xml);
    const QString path = mDirectory.filePath(QStringLiteral("en_US.glx.dat"));
    QVERIFY(BinaryLanguageFile::save(path, *xml));

    const auto catalog = BinaryLanguageFile::load(path, true);
    QVERIFY(catalog);
    QVERIFY(!catalog->getIsFullyLoaded());
    QCOMPARE(catalog->getLanguage(), QStringLiteral("en_US"));
    QCOMPARE(catalog->getDisplayName(), QStringLiteral("American English"));
    QCOMPARE(catalog->getCodePage(), QStringLiteral("UTF-8"));
    QCOMPARE(catalog->getRightToLeft(), false);
    QCOMPARE(catalog->getVersion(), 1.0f);
    QVERIFY(!catalog->hasNode(QStringLiteral("STR_TEST")));
    QVERIFY(!catalog->getNode(QStringLiteral("STR_TEST")));

    QString error = QStringLiteral("stale");
    const auto full = BinaryLanguageFile::load(path, false, &error);
    QVERIFY2(full, qPrintable(error));
    QVERIFY(full->getIsFullyLoaded());
    QVERIFY(full->hasNode(QStringLiteral("STR_TEST")));
    QVERIFY(full->hasNode(QStringLiteral("STR_TEST2")));
    QCOMPARE(full->getLanguage(), xml->getLanguage());
    QCOMPARE(full->getCatalogExtra(), xml->getCatalogExtra());
    QCOMPARE(full->getNodes().size(), xml->getNodes().size());
    for (auto it = xml->getNodes().cbegin(); it != xml->getNodes().cend(); ++it) {
        const QSharedPointer<const NodeText> node = full->getNode(it.key());
        QVERIFY2(node, qPrintable(it.key()));
        QCOMPARE(node->getName(), it.key());
        QCOMPARE(node->getText(), it.value()->getText());
        QCOMPARE(node->getText().isNull(), it.value()->getText().isNull());
        QCOMPARE(node->getPronunciation(), it.value()->getPronunciation());
        QCOMPARE(node->getPronunciation().isNull(), it.value()->getPronunciation().isNull());
        QCOMPARE(usage(*node), usage(*it.value()));
    }
    // Stored as the XML reader left it: the line feed, not the escape.
    QCOMPARE(full->getNode(QStringLiteral("STR_TEST2"))->getText(), QStringLiteral("Two\nlines"));
}

void tst_BinaryLanguageFile::writerLayout()
{
    const QString source = mDirectory.filePath(QStringLiteral("layout.glx"));
    QFile xml(source);
    QVERIFY(xml.open(QIODevice::WriteOnly));
    xml.write(
        "<catalog codepage=\"cp\" direction=\"1\" language=\"xx\" display_name=\"X\" file_version=\"1.5\">"
        "<strings><entry handle=\"B\"><string default=\"true\"><visual>b</visual></string>"
        "<string><usage speechrec=\"true\"/></string></entry>"
        "<entry handle=\"A\"><string default=\"true\"><visual>a</visual><pronunciation>p</pronunciation>"
        "</string></entry><entry handle=\"C\"><string><usage visual=\"false\"/></string></entry>"
        "</strings></catalog>");
    xml.close();
    const auto file = XmlLanguageFile::load(source, false);
    QVERIFY(file);
    const QString path = mDirectory.filePath(QStringLiteral("layout.glx.dat"));
    QVERIFY(BinaryLanguageFile::save(path, *file));

    // Names ascending; only strings that were given, each with its present bit set.
    Bytes expected;
    expected.header().str("cp").str("xx").str("X").str(QString()).u8(1).f64(1.5).i32(3);
    expected.str("STR_A").u8(0x04).u8(2).u8(0x03).str("a").u8(0x01).str("p");
    expected.str("STR_B").u8(0x05).u8(1).u8(0x03).str("b");
    expected.str("STR_C").u8(0x00).u8(0);
    QFile written(path);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll().toHex(' '), QByteArray(expected).toHex(' '));
}

void tst_BinaryLanguageFile::saveRefusesCatalogOnly()
{
    const auto catalog = XmlLanguageFile::load(mFixture, true);
    QVERIFY(catalog);
    const QString path = mDirectory.filePath(QStringLiteral("catalog.glx.dat"));
    QVERIFY(!BinaryLanguageFile::save(path, *catalog));
    QVERIFY(!QFileInfo::exists(path));
}

void tst_BinaryLanguageFile::records_data()
{
    // The records of a file with the fixture's catalog; the node under test is "A".
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pronunciation");
    QTest::addColumn<QString>("usage");

    QTest::newRow("no strings") << QByteArray(Bytes().i32(1).str("A").u8(0).u8(0)) << QString() << QString()
                                << "000";
    QTest::newRow("kinds in either order")
        << QByteArray(Bytes().i32(1).str("A").u8(0x07).u8(2).u8(0x01).str("p").u8(0x03).str("t")) << "t"
        << "p"
        << "111";
    QTest::newRow("other flag bits are ignored")
        << QByteArray(Bytes().i32(1).str("A").u8(0xFA).u8(0)) << QString() << QString() << "010";
    QTest::newRow("entry without present bit is dropped")
        << QByteArray(Bytes().i32(1).str("A").u8(0x04).u8(2).u8(0x02).str("t").u8(0x01).str("p")) << QString()
        << "p"
        << "001";
    QTest::newRow("texts are kept as stored")
        << QByteArray(Bytes().i32(1).str("A").u8(0x04).u8(2).u8(0x03).str("a\\nb").u8(0x01).str(""))
        << "a\\nb"
        << ""
        << "001";
    QTest::newRow("a later record of the same name replaces the earlier")
        << QByteArray(Bytes().i32(2).str("A").u8(0x01).u8(1).u8(0x03).str("old").str("A").u8(0x02).u8(0))
        << QString() << QString() << "010";
}

void tst_BinaryLanguageFile::records()
{
    QFETCH(QByteArray, records);
    QFETCH(QString, text);
    QFETCH(QString, pronunciation);
    QFETCH(QString, usage);

    QString error;
    const auto file = BinaryLanguageFile::load(write(Bytes().header().catalog() + records), false, &error);
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

void tst_BinaryLanguageFile::errors_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("catalogOnly");
    // Null: the load succeeds.
    QTest::addColumn<QString>("reason");

    const QString header = QStringLiteral("unable to read header");
    const QString info = QStringLiteral("unable to read language info");
    const QString nodes = QStringLiteral("unable to read text nodes");
    const QByteArray valid = Bytes().header().catalog();

    QTest::newRow("empty file") << QByteArray("") << false << header;
    QTest::newRow("cut in the version") << QByteArray(Bytes().header()).left(6) << false << header;
    QTest::newRow("short file with wrong magic") << QByteArray("GLX!") << true << header;
    QTest::newRow("wrong magic") << QByteArray(Bytes().header(0x0C0E7493).catalog()) << false
                                 << "magic bytes don't match";
    QTest::newRow("magic big-endian")
        << QByteArray(Bytes().header(0x92740E0C).catalog()) << true << "magic bytes don't match";
    QTest::newRow("version 2") << QByteArray(Bytes().header(0x0C0E7492, 2).catalog()) << true
                               << "version doesn't match latest";
    QTest::newRow("cut catalog") << QByteArray(Bytes().header().str("UTF-8").str("en_US")) << true << info;
    QTest::newRow("version cut to a float") << valid.left(valid.size() - 4) << true << info;
    QTest::newRow("odd string length")
        << QByteArray(Bytes().header().i32(3).u8(0).u8(0).u8(0).catalog()) << true << info;
    QTest::newRow("catalog only reads no node count") << valid << true << QString();
    QTest::newRow("catalog only ignores broken nodes")
        << valid + Bytes().i32(0x7FFFFFFF).u8(1) << true << QString();
    QTest::newRow("no nodes") << valid + Bytes().i32(0) << false << QString();
    QTest::newRow("record of the fewest bytes")
        << valid + Bytes().i32(1).str("").u8(0).u8(0) << false << QString();
    QTest::newRow("fewer records than counted")
        << valid + Bytes().i32(2).str("A").u8(0).u8(0).str("B").u8(0) << false << nodes;
    QTest::newRow("node count 2^31 with nothing behind") << valid + Bytes().i32(0x80000000) << false << nodes;
    QTest::newRow("node count 2^31-1 with nothing behind")
        << valid + Bytes().i32(0x7FFFFFFF) << false << nodes;
    QTest::newRow("string count 255 with nothing behind")
        << valid + Bytes().i32(1).str("A").u8(0).u8(255) << false << nodes;
    QTest::newRow("kind 2") << valid + Bytes().i32(1).str("A").u8(0).u8(1).u8(0x05).str("x") << false
                            << nodes;
    QTest::newRow("kind 127 in an absent entry")
        << valid + Bytes().i32(1).str("A").u8(0).u8(1).u8(0xFE).str("x") << false << nodes;
}

void tst_BinaryLanguageFile::errors()
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

void tst_BinaryLanguageFile::cutAtEveryOffset()
{
    const int catalogEnd = Bytes().header().catalog().size();
    Bytes bytes;
    bytes.header().catalog().i32(2);
    bytes.str("STR_TEST").u8(0x04).u8(2).u8(0x03).str("Test").u8(0x01).str("test");
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

void tst_BinaryLanguageFile::unopenableGivesNoReason()
{
    for (const QString& path : { mDirectory.filePath(QStringLiteral("missing.glx.dat")), QString() }) {
        QString error = QStringLiteral("stale");
        QVERIFY(!BinaryLanguageFile::load(path, false, &error));
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }
}

QTEST_GUILESS_MAIN(tst_BinaryLanguageFile)

#include "tst_binarylanguagefile.moc"
