#include "resources/BinaryResourceFile.h"
#include "resources/NodeColor.h"
#include "resources/NodeDefaults.h"
#include "resources/NodeFont.h"
#include "resources/NodeImage.h"
#include "resources/NodeRectangle.h"
#include "resources/NodeShader.h"

#include "common/ByteWriter.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

using namespace Hmi::Core;

namespace {

const QString sBase = QStringLiteral("/themes/day/");
const QString sOtherBase = QStringLiteral("/themes/night/");

QByteArray contentHash()
{
    return QCryptographicHash::hash("theme.xml", QCryptographicHash::Sha1);
}

ByteWriter header(const QByteArray& aHash = contentHash(), qint64 aMagic = 0x65B57724, qint64 aVersion = 7)
{
    return ByteWriter().i32(aMagic).i32(aVersion).i32(aHash.size()).raw(aHash);
}

// One node of each kind, with values chosen so that a swapped, dropped or mis-sized field shows;
// some reals have no exact single-precision form, so that a float anywhere on the way shows too.
void fillSample(ResourceFile& aFile)
{
    const auto color = [&](const char* aName, const QColor& aColor) {
        auto node = QSharedPointer<NodeColor>::create(QString::fromLatin1(aName));
        node->setColor(aColor);
        aFile.insertNode(ResourceType::Color, node);
    };
    color("mid", QColor(0x96, 0x64, 0x32));
    color("Zulu", QColor(0x12, 0x34, 0x56, 0x78));
    color("alpha", QColor(0xFF, 0x80, 0x00, 0x00));
    color("broken", QColor());

    auto defaults = QSharedPointer<NodeDefaults>::create(QStringLiteral("look"));
    defaults->insertDefault(QStringLiteral("visible"), false);
    defaults->insertDefault(QStringLiteral("label"), QStringLiteral("Grün"));
    defaults->insertDefault(QStringLiteral("count"), 5);
    aFile.insertNode(ResourceType::Defaults, defaults);

    auto font = QSharedPointer<NodeFont>::create(QStringLiteral("body"));
    font->onFamilyTagEnd(QStringLiteral("Hmi Sans"));
    font->onPixelSizeTagEnd(QStringLiteral("14"));
    font->onBoldTagEnd(QStringLiteral("false"));
    font->onItalicTagEnd(QStringLiteral("true"));
    font->onUnderlineTagEnd(QStringLiteral("true"));
    font->onWeightTagEnd(QStringLiteral("demiBold"));
    aFile.insertNode(ResourceType::Font, font);

    auto image = QSharedPointer<NodeImage>::create(sBase, QStringLiteral("icon"));
    image->setDefaultsName(QStringLiteral("look"));
    image->onFileTagEnd(QStringLiteral("img/ic on.png"));
    image->setFrameCount(3);
    image->setFrameSize(QSize(10, 20));
    image->setImplicitSize(QSizeF(1.1, 2.25));
    image->setPaddingExternal(QMargins(1, 2, 3, 4));
    image->setPaddingInternal(QMargins(5, 6, 7, 8));
    image->setSourceSize(QSize(30, 20));
    image->setTileMargins(QMargins(9, 10, 11, -12));
    aFile.insertNode(ResourceType::Image, image);

    auto rectangle = QSharedPointer<NodeRectangle>::create(sBase, QStringLiteral("panel"));
    rectangle->setColor(QColor(1, 2, 3, 4));
    rectangle->setBorderWidth(2);
    rectangle->setGradientAngle(45.1);
    rectangle->setGradientBegin(QPointF(0.1, 0.5));
    rectangle->setBorderColor(QColor(0xFF, 0xFE, 0xFD));
    rectangle->addGradientStop(0, QColor(0xFF, 0, 0));
    rectangle->addGradientStop(1, QColor(0, 0, 0xFF, 0x80));
    rectangle->setGradientType(1);
    rectangle->setRadius(4.5);
    aFile.insertNode(ResourceType::Rectangle, rectangle);

    auto shader = QSharedPointer<NodeShader>::create(sBase, QStringLiteral("wave"));
    shader->setDefaultsName(QStringLiteral("look"));
    shader->setMeshResolution(QSize(4, 2));
    shader->setShaderFragment(QStringLiteral("wave.frag"));
    shader->setShaderFragmentFile(true);
    shader->setSupportsAtlasTextures(true);
    aFile.insertNode(ResourceType::Shader, shader);
}

QByteArray sampleBytes()
{
    ByteWriter b = header();
    // Ordinal order: upper case before lower case. An invalid colour is written as the opaque
    // black it reports.
    b.i32(4).str("Zulu").hex("12345678").str("alpha").hex("ff800000");
    b.str("broken").hex("000000ff").str("mid").hex("966432ff");

    b.i32(1).str("look").i32(3);
    b.str("count").i32(2).u8(0).i32(5);
    b.str("label").i32(10).u8(0).str(QStringLiteral("Grün"));
    b.str("visible").i32(1).u8(0).u8(0);

    // Bold, italic, overline, strike-out and underline; 0xff for not given.
    b.i32(1).str("body").hex("0001ffff01").str("Hmi Sans").i32(14).f64(-1).i32(63);

    b.i32(1).str("icon").str("look").str("ic on.png").i32(3).i32(10).i32(20).f64(1.1).f64(2.25);
    b.i32(1).i32(2).i32(3).i32(4).i32(5).i32(6).i32(7).i32(8).i32(30).i32(20);
    b.i32(9).i32(10).i32(11).i32(-12);

    // The image fields of the rectangle are all unset.
    b.i32(1).str("panel").str(QString()).str(QString()).i32(1).i32(-1).i32(-1).f64(0).f64(0);
    b.zeros(8).i32(-1).i32(-1).zeros(4);
    b.u8(1).hex("01020304").i32(2).u8(1).hex("fffefdff");
    b.f64(45.1).f64(0.1).f64(0.5).u8(0);
    b.i32(2).f64(0).hex("ff0000ff").f64(1).hex("0000ff80");
    b.i32(1).f64(4.5);

    // The vertex shader was never given: a null string.
    b.i32(1).str("wave").str("look").i32(4).i32(2).str("wave.frag").u8(1);
    b.str(QString()).u8(0).u8(1);
    return b;
}

void compareBytes(const QByteArray& aActual, const QByteArray& aExpected)
{
    int offset = 0;
    while (offset < qMin(aActual.size(), aExpected.size()) && aActual.at(offset) == aExpected.at(offset)) {
        ++offset;
    }
    if (aActual != aExpected) {
        QFAIL(
            qPrintable(QStringLiteral("first difference at offset %1 (sizes %2, %3): actual %4, expected %5")
                           .arg(offset)
                           .arg(aActual.size())
                           .arg(aExpected.size())
                           .arg(QString::fromLatin1(aActual.mid(offset, 12).toHex(' ')))
                           .arg(QString::fromLatin1(aExpected.mid(offset, 12).toHex(' ')))));
    }
}

QByteArray readAll(const QString& aPath)
{
    QFile file(aPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class FontWithoutInfo : public NodeFont
{
public:
    FontWithoutInfo()
        : NodeFont(QStringLiteral("bare"))
    {
        releaseFontInfo();
    }
};

} // namespace

class tst_BinaryResourceFile : public QObject
{
    Q_OBJECT

private slots:
    void goldenBytes()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("theme.dat"));
        QVERIFY(BinaryResourceFile().saveFile(path, contentHash(), ResourceFile()));
        compareBytes(readAll(path), header().zeros(6));

        ResourceFile source;
        fillSample(source);
        QVERIFY(BinaryResourceFile().saveFile(path, contentHash(), source));
        compareBytes(readAll(path), sampleBytes());
        if (QTest::currentTestFailed()) {
            return;
        }

        // Whatever is read must be written again unchanged, and read into the right fields.
        BinaryResourceFile reread;
        QVERIFY(reread.loadFile(path, sOtherBase, contentHash()));
        QVERIFY(BinaryResourceFile().saveFile(path, contentHash(), reread));
        compareBytes(readAll(path), sampleBytes());
        QCOMPARE(reread.get<NodeFont>("body")->getFont(), source.get<NodeFont>("body")->getFont());
        // Only the file name is kept, under the base path of the load.
        QCOMPARE(reread.get<NodeImage>("icon")->getSource(), QUrl::fromLocalFile(sOtherBase + "ic on.png"));
    }

    void defaultNodesSurvive()
    {
        // Nothing set: null strings and unset flags and sizes must come back as such.
        const QString name = QStringLiteral("n");
        ResourceFile source;
        source.insertNode(ResourceType::Color, QSharedPointer<NodeColor>::create(name));
        source.insertNode(ResourceType::Defaults, QSharedPointer<NodeDefaults>::create(name));
        source.insertNode(ResourceType::Font, QSharedPointer<NodeFont>::create(name));
        source.insertNode(ResourceType::Image, QSharedPointer<NodeImage>::create(sBase, name));
        source.insertNode(ResourceType::Rectangle, QSharedPointer<NodeRectangle>::create(sBase, name));
        source.insertNode(ResourceType::Shader, QSharedPointer<NodeShader>::create(sBase, name));
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("theme.dat"));
        QVERIFY(BinaryResourceFile().saveFile(path, contentHash(), source));
        const QByteArray written = readAll(path);

        BinaryResourceFile reread;
        QVERIFY(reread.loadData(written, sBase, contentHash()));
        QVERIFY(BinaryResourceFile().saveFile(path, contentHash(), reread));
        compareBytes(readAll(path), written);
    }

    // Each refused file differs from an accepted one in a single field, so a refusal cannot come
    // from a mistake elsewhere in the bytes.
    void load_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<bool>("accepted");

        const QByteArray hash = contentHash();
        QByteArray otherHash = hash;
        otherHash[19] = char(otherHash[19] ^ 1);
        QTest::newRow("all sections empty") << QByteArray(header().zeros(6)) << true;
        QTest::newRow("empty") << QByteArray() << false;
        QTest::newRow("wrong magic") << QByteArray(header(hash, 0x65B57725).zeros(6)) << false;
        QTest::newRow("version 6") << QByteArray(header(hash, 0x65B57724, 6).zeros(6)) << false;
        QTest::newRow("version 8") << QByteArray(header(hash, 0x65B57724, 8).zeros(6)) << false;
        QTest::newRow("other hash") << QByteArray(header(otherHash).zeros(6)) << false;
        QTest::newRow("shorter hash") << QByteArray(header(hash.left(19)).zeros(6)) << false;
        QTest::newRow("longer hash") << QByteArray(header(hash + 'x').zeros(6)) << false;
        QTest::newRow("hash length beyond the data")
            << QByteArray(ByteWriter().i32(0x65B57724).i32(7).i32(0x7FFFFFFF)) << false;
        QTest::newRow("colour count 2^31-1") << QByteArray(header().i32(0x7FFFFFFF)) << false;
        QTest::newRow("negative count") << QByteArray(header().i32(-1).zeros(5)) << false;
        QTest::newRow("count above the records")
            << QByteArray(header().i32(2).str("c").hex("01020304").zeros(5)) << false;
        QTest::newRow("name length 2^31-2") << QByteArray(header().i32(1).i32(0x7FFFFFFE)) << false;
        // A damaged point size must never reach the float-to-int conversion, which is undefined
        // outside int's range (a sanitizer build stops there).
        for (const double size : { 1e10, qInf(), qQNaN() }) {
            QTest::addRow("point size %g", size) << QByteArray(header()
                                                                   .zeros(2)
                                                                   .i32(1)
                                                                   .str("f")
                                                                   .hex("ffffffffff")
                                                                   .str(QString())
                                                                   .i32(-1)
                                                                   .f64(size)
                                                                   .i32(-1)
                                                                   .zeros(3))
                                                 << true;
        }
    }

    void load()
    {
        QFETCH(QByteArray, data);
        QFETCH(bool, accepted);

        QElapsedTimer timer;
        timer.start();
        QCOMPARE(BinaryResourceFile().loadData(data, sBase, contentHash()), accepted);
        // A count taken on trust would allocate gigabytes or spin for minutes.
        QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    }

    void everyTruncationIsRefused()
    {
        const QByteArray data = sampleBytes();
        QVERIFY(BinaryResourceFile().loadData(data, sBase, contentHash()));
        for (int length = 0; length < data.size(); ++length) {
            QVERIFY2(!BinaryResourceFile().loadData(data.left(length), sBase, contentHash()),
                qPrintable(QStringLiteral("prefix of %1 bytes accepted").arg(length)));
        }
        QVERIFY(
            !BinaryResourceFile().loadFile(QStringLiteral("/nonexistent/theme.dat"), sBase, contentHash()));
    }

    void repeatedNameKeepsTheLast()
    {
        BinaryResourceFile file;
        QVERIFY(file.loadData(header().i32(2).str("c").hex("01020304").str("c").hex("05060708").zeros(5),
            sBase, contentHash()));
        QCOMPARE(file.getNodes(ResourceType::Color).size(), 1);
        QCOMPARE(file.get<NodeColor>("c")->getColor(), QColor(5, 6, 7, 8));
    }

    void streamOnlyDuringLoad()
    {
        BinaryResourceFile file;
        const auto noStream = [&file] {
            QTest::ignoreMessage(
                QtWarningMsg, "BinaryResourceFile::getStream() should not be called outside loadFile()!");
            return file.getStream() == nullptr;
        };
        QVERIFY(noStream());
        QVERIFY(file.loadData(sampleBytes(), sBase, contentHash()));
        QVERIFY(noStream());
        QVERIFY(!file.loadData(QByteArray("x"), sBase, contentHash()));
        QVERIFY(noStream());
    }

    void failedSaveKeepsEarlierFile()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("theme.dat"));
        QVERIFY(BinaryResourceFile().saveFile(path, contentHash(), ResourceFile()));

        ResourceFile bad;
        bad.insertNode(ResourceType::Font, QSharedPointer<FontWithoutInfo>::create());
        QTest::ignoreMessage(QtCriticalMsg, "Cannot serialize NodeFont without FontInfo");
        QVERIFY(!BinaryResourceFile().saveFile(path, contentHash(), bad));
        compareBytes(readAll(path), header().zeros(6));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList { "theme.dat" });
    }
};

QTEST_MAIN(tst_BinaryResourceFile)
#include "tst_binaryresourcefile.moc"
