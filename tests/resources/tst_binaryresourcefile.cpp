#include "resources/BinaryResourceFile.h"
#include "resources/HmiGradientStop.h"
#include "resources/NodeColor.h"
#include "resources/NodeDefaults.h"
#include "resources/NodeFont.h"
#include "resources/NodeImage.h"
#include "resources/NodeRectangle.h"
#include "resources/NodeShader.h"
#include "resources/XmlResourceFile.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

using namespace Hmi::Core;

namespace {

const QString sBase = QStringLiteral("/themes/day/");
const QString sOtherBase = QStringLiteral("/themes/night/");

QByteArray contentHash()
{
    return QCryptographicHash::hash("theme.xml", QCryptographicHash::Sha1);
}

// Little-endian by hand rather than QDataStream, so that a writer with the wrong byte order,
// stream version or float precision cannot agree with the expectation by sharing its settings.
class Bytes
{
public:
    Bytes& u8(quint8 aValue) { return le(aValue, 1); }
    Bytes& i32(qint64 aValue) { return le(quint64(aValue), 4); }
    Bytes& f64(double aValue)
    {
        quint64 bits = 0;
        std::memcpy(&bits, &aValue, sizeof bits);
        return le(bits, 8);
    }
    Bytes& boolean(bool aValue) { return u8(aValue ? 1 : 0); }
    Bytes& str(const QString& aText)
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
    Bytes& rgba(quint8 aRed, quint8 aGreen, quint8 aBlue, quint8 aAlpha)
    {
        return u8(aRed).u8(aGreen).u8(aBlue).u8(aAlpha);
    }
    Bytes& header(const QByteArray& aHash = contentHash(), qint64 aMagic = 0x65B57724, qint64 aVersion = 7)
    {
        i32(aMagic).i32(aVersion).i32(aHash.size());
        mData += aHash;
        return *this;
    }
    // The five font flags, none given.
    Bytes& unsetFlags() { return le(0xFFFFFFFFFF, 5); }
    Bytes& zeros(int aCount) { return le(0, 4 * aCount); }
    // The image fields of a rectangle that sets none of them.
    Bytes& plainImageBody()
    {
        return str(QString())
            .str(QString())
            .i32(1)
            .i32(-1)
            .i32(-1)
            .f64(0)
            .f64(0)
            .zeros(8)
            .i32(-1)
            .i32(-1)
            .zeros(4);
    }
    operator QByteArray() const { return mData; }

private:
    Bytes& le(quint64 aBits, int aSize)
    {
        for (int i = 0; i < aSize; ++i) {
            mData.append(char(i < 8 ? aBits >> (8 * i) : 0));
        }
        return *this;
    }

    QByteArray mData;
};

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

    auto defaults = QSharedPointer<NodeDefaults>::create(QStringLiteral("look"));
    defaults->insertDefault(QStringLiteral("visible"), false);
    defaults->insertDefault(QStringLiteral("label"), QStringLiteral("Grün"));
    defaults->insertDefault(QStringLiteral("count"), 5);
    aFile.insertNode(ResourceType::Defaults, defaults);

    auto font = QSharedPointer<NodeFont>::create(QStringLiteral("body"));
    font->onFamilyTagEnd(QStringLiteral("Hmi Sans"));
    font->onPointSizeTagEnd(QStringLiteral("10.5"));
    font->onBoldTagEnd(QStringLiteral("false"));
    font->onItalicTagEnd(QStringLiteral("true"));
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
    rectangle->setGradientEnd(QPointF(1, 0.75));
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
    Bytes b;
    b.header();
    // Ordinal order: upper case before lower case.
    b.i32(3);
    b.str("Zulu").rgba(0x12, 0x34, 0x56, 0x78);
    b.str("alpha").rgba(0xFF, 0x80, 0x00, 0x00);
    b.str("mid").rgba(0x96, 0x64, 0x32, 0xFF);

    b.i32(1).str("look").i32(3);
    b.str("count").i32(2).u8(0).i32(5);
    b.str("label").i32(10).u8(0).str(QStringLiteral("Grün"));
    b.str("visible").i32(1).u8(0).boolean(false);

    b.i32(1).str("body").u8(0).u8(1).u8(0xFF).u8(0xFF).u8(0xFF).str("Hmi Sans").i32(-1).f64(10.5).i32(63);

    b.i32(1).str("icon").str("look").str("ic on.png").i32(3).i32(10).i32(20).f64(1.1).f64(2.25);
    b.i32(1).i32(2).i32(3).i32(4).i32(5).i32(6).i32(7).i32(8).i32(30).i32(20);
    b.i32(9).i32(10).i32(11).i32(-12);

    b.i32(1).str("panel").plainImageBody();
    b.boolean(true).rgba(1, 2, 3, 4).i32(2).boolean(false);
    b.f64(45.1).f64(0.1).f64(0.5).boolean(true).f64(1).f64(0.75);
    b.i32(2).f64(0).rgba(0xFF, 0, 0, 0xFF).f64(1).rgba(0, 0, 0xFF, 0x80);
    b.i32(1).f64(4.5);

    // The vertex shader was never given: a null string.
    b.i32(1).str("wave").str("look").i32(4).i32(2).str("wave.frag").boolean(true);
    b.str(QString()).boolean(false).boolean(true);
    return b;
}

void compareBytes(const QByteArray& aActual, const QByteArray& aExpected)
{
    const int common = qMin(aActual.size(), aExpected.size());
    int offset = 0;
    while (offset < common && aActual.at(offset) == aExpected.at(offset)) {
        ++offset;
    }
    if (offset == common && aActual.size() == aExpected.size()) {
        return;
    }
    const QString message
        = QStringLiteral("first difference at offset %1 (sizes %2, %3): actual %4, expected %5")
              .arg(offset)
              .arg(aActual.size())
              .arg(aExpected.size())
              .arg(QString::fromLatin1(aActual.mid(offset, 12).toHex(' ')))
              .arg(QString::fromLatin1(aExpected.mid(offset, 12).toHex(' ')));
    QFAIL(qPrintable(message));
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

template <typename T> const T& nodeOf(const ResourceFile& aFile, const QString& aName)
{
    // The table owns the node, so the reference outlives the local pointer.
    const QSharedPointer<const T> node = aFile.get<T>(aName);
    if (!node) {
        QTest::qFail(qPrintable(QStringLiteral("no node ") + aName), __FILE__, __LINE__);
        static const T sMissing;
        return sMissing;
    }
    return *node;
}

QStringList names(const ResourceFile& aFile, ResourceType aType)
{
    QStringList names = aFile.getNodes(aType).keys();
    names.sort();
    return names;
}

// Everything the getters show, as one text, so that a difference prints both sides whole. The
// source is left out: only its file name is stored.
QString describe(const NodeImage& aNode)
{
    QString text;
    QDebug(&text) << aNode.getDefaultsName() << aNode.getFrameCount() << aNode.getFrameSize()
                  << aNode.getImplicitSize() << aNode.getPaddingExternal() << aNode.getPaddingInternal()
                  << aNode.getSourceSize() << aNode.getTileMargins();
    return text;
}

QString describe(const NodeRectangle& aNode)
{
    QString text = describe(static_cast<const NodeImage&>(aNode));
    {
        // The text is complete only once the stream is gone.
        QDebug debug(&text);
        debug << aNode.getColorSet() << aNode.getColor() << aNode.getBorderWidth()
              << aNode.getBorderColorSet() << aNode.getBorderColor() << aNode.getGradientAngle()
              << aNode.getGradientBegin() << aNode.getGradientEndSet() << aNode.getGradientEnd()
              << aNode.getGradientType() << aNode.getRadius();
        for (int i = 0; i < aNode.getGradientStopsCount(); ++i) {
            debug << aNode.getGradientStopAt(i)->getPosition() << aNode.getGradientStopAt(i)->getColor();
        }
    }
    return text;
}

QString describe(const NodeShader& aNode)
{
    QString text;
    QDebug(&text) << aNode.getDefaultsName() << aNode.getMeshResolution() << aNode.getShaderFragment()
                  << aNode.isShaderFragmentFile() << aNode.getShaderVertex() << aNode.isShaderVertexFile()
                  << aNode.getSupportsAtlasTextures();
    return text;
}

QString describe(const NodeFont::FontInfo& aInfo)
{
    return QString::asprintf("%d %d %d %d %d '%s' %d %.9g %d", aInfo.bold, aInfo.italic, aInfo.overline,
        aInfo.strikeOut, aInfo.underline, qUtf8Printable(aInfo.family), aInfo.pixelSize,
        double(aInfo.pointSize), aInfo.weight);
}

QString describe(const QVariantMap& aMap)
{
    // With the type names: QVariant's operator== would take "false" for false.
    QString text;
    QDebug(&text) << aMap;
    return text;
}

const char sRoundTripXml[] = R"(<NvkQtResourceFile>
  <color><handle>ok</handle><value>19,32,4B,64</value></color>
  <color><handle>broken</handle><value>zz,0,0</value></color>
  <defaults><handle>look</handle><property name="label">Grün</property>
    <property name="visible">false</property><property name="count">5</property>
    <property name="on">true</property></defaults>
  <font><handle>body</handle><family>HmiNoSuchFamily</family><pixelSize>14</pixelSize>
    <bold>true</bold><italic>true</italic><underline>true</underline></font>
  <font><handle>small</handle><family>HmiNoSuchFamily</family><pointSize>7.5</pointSize>
    <weight>light</weight><overline>true</overline><strikeOut>false</strikeOut></font>
  <image><handle>icon</handle><file>img/ic on.png</file><defaultsName>look</defaultsName>
    <frameCount>2</frameCount><frameWidth>10</frameWidth><frameHeight>12</frameHeight>
    <desiredWidth>20.5</desiredWidth><width>40</width><height>24</height>
    <paddingExternalLeft>1</paddingExternalLeft><paddingExternalBottom>-4</paddingExternalBottom>
    <usableTopMargin>6</usableTopMargin><usableRightMargin>7</usableRightMargin>
    <tileLeftMargin>9</tileLeftMargin><tileBottomMargin>12</tileBottomMargin></image>
  <animation><handle>spin</handle><file>spin.png</file><frameCount>8</frameCount></animation>
  <rectangle><handle>panel</handle><file>bg.png</file><value>1,2,3,4</value>
    <borderColor>ff,ff,ff</borderColor><borderWidth>2</borderWidth><radius>4.5</radius>
    <gradientType>radial</gradientType><gradientAngle>30</gradientAngle>
    <gradientBeginX>0.25</gradientBeginX><gradientBeginY>0.5</gradientBeginY><gradientEndY>0.75</gradientEndY>
    <gradientStop position="0">ff,0,0</gradientStop><gradientStop position="0.4">0,ff,0,80</gradientStop></rectangle>
  <rectangle><handle>plain</handle><value>nope</value></rectangle>
  <shader><handle>wave</handle><defaultsName>look</defaultsName>
    <meshResolutionWidth>4</meshResolutionWidth><meshResolutionHeight>3</meshResolutionHeight>
    <shaderFragment file="true">wave.frag</shaderFragment><shaderVertex>void main() {}</shaderVertex>
    <supportsAtlasTextures>true</supportsAtlasTextures></shader>
</NvkQtResourceFile>)";

} // namespace

class tst_BinaryResourceFile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The font-match report adds debug lines that say nothing here.
        QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    }

    void goldenBytes()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("theme.dat"));
        ResourceFile source;
        fillSample(source);
        BinaryResourceFile writer;
        QVERIFY(writer.saveFile(path, contentHash(), source));
        compareBytes(readAll(path), sampleBytes());
        if (QTest::currentTestFailed()) {
            return;
        }

        // Whatever is read must be written again unchanged, elsewhere included.
        BinaryResourceFile reread;
        QVERIFY(reread.loadFile(path, sOtherBase, contentHash()));
        const QString again = dir.filePath(QStringLiteral("again.dat"));
        QVERIFY(BinaryResourceFile().saveFile(again, contentHash(), reread));
        compareBytes(readAll(again), sampleBytes());
    }

    void emptyFileHasSixEmptySections()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("empty.dat"));
        const QByteArray expected = Bytes().header().zeros(6);
        QVERIFY(BinaryResourceFile().saveFile(path, contentHash(), ResourceFile()));
        compareBytes(readAll(path), expected);

        BinaryResourceFile file;
        QVERIFY(file.loadData(expected, sBase, contentHash()));
        for (int type = 0; type < ResourceTypeCount; ++type) {
            QVERIFY(file.getNodes(ResourceType(type)).isEmpty());
        }
    }

    void roundTrip()
    {
        XmlResourceFile xml(sBase);
        QTest::ignoreMessage(QtWarningMsg, "ERROR: invalid color");
        QTest::ignoreMessage(QtWarningMsg, "ERROR: invalid color");
        for (const QString font : { "body", "small" }) {
            QTest::ignoreMessage(QtWarningMsg,
                qPrintable("Font '" + font
                    + "' does not have an exact match. The desired font needs to be installed."));
        }
        QVERIFY(xml.loadData(sRoundTripXml));

        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("theme.dat"));
        QVERIFY(BinaryResourceFile().saveFile(path, contentHash(), xml));
        BinaryResourceFile bin;
        QVERIFY(bin.loadFile(path, sOtherBase, contentHash()));
        for (int type = 0; type < ResourceTypeCount; ++type) {
            QCOMPARE(names(bin, ResourceType(type)), names(xml, ResourceType(type)));
        }

        QCOMPARE(nodeOf<NodeColor>(bin, "ok").getColorCss(), QStringLiteral("rgba(25,50,75,100)"));
        // An invalid colour has no bytes of its own: it comes back as the opaque black it reports.
        QCOMPARE(nodeOf<NodeColor>(bin, "broken").getColor(), QColor(0, 0, 0));
        QCOMPARE(describe(nodeOf<NodeDefaults>(bin, "look").getDefaults()),
            describe(nodeOf<NodeDefaults>(xml, "look").getDefaults()));
        for (const char* name : { "body", "small" }) {
            QCOMPARE(describe(*nodeOf<NodeFont>(bin, name).getFontInfo()),
                describe(*nodeOf<NodeFont>(xml, name).getFontInfo()));
        }
        QCOMPARE(nodeOf<NodeFont>(bin, "body").getFont(), nodeOf<NodeFont>(xml, "body").getFont());
        QCOMPARE(nodeOf<NodeFont>(bin, "body").getFontCss(), nodeOf<NodeFont>(xml, "body").getFontCss());
        // The point size is applied whole; FontInfo above kept 7.5.
        QCOMPARE(nodeOf<NodeFont>(bin, "small").getFont().pointSizeF(), 7.0);
        for (const char* name : { "icon", "spin" }) {
            QCOMPARE(describe(nodeOf<NodeImage>(bin, name)), describe(nodeOf<NodeImage>(xml, name)));
        }
        // Only the file name is kept, under the base path of the load.
        QCOMPARE(nodeOf<NodeImage>(bin, "icon").getSource(), QUrl::fromLocalFile(sOtherBase + "ic on.png"));
        for (const char* name : { "panel", "plain" }) {
            QCOMPARE(describe(nodeOf<NodeRectangle>(bin, name)), describe(nodeOf<NodeRectangle>(xml, name)));
        }
        QCOMPARE(nodeOf<NodeRectangle>(bin, "panel").getSource(), QUrl::fromLocalFile(sOtherBase + "bg.png"));
        QCOMPARE(describe(nodeOf<NodeShader>(bin, "wave")), describe(nodeOf<NodeShader>(xml, "wave")));
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
        const auto defaultsWith = [](const Bytes& aPairs) {
            return QByteArray(Bytes().header().i32(0).i32(1).str("d")) + QByteArray(aPairs)
                + QByteArray(Bytes().zeros(4));
        };
        // A rectangle record up to its stop count.
        Bytes rectangle;
        rectangle.header().zeros(4).i32(1).str("r").plainImageBody();
        rectangle.boolean(false).i32(0).boolean(false).f64(0).f64(0).f64(0).boolean(false);
        const QByteArray rectangleUpToStops = rectangle;

        QTest::newRow("all sections empty") << QByteArray(Bytes().header().zeros(6)) << true;
        QTest::newRow("empty") << QByteArray() << false;
        QTest::newRow("wrong magic") << QByteArray(Bytes().header(hash, 0x65B57725).zeros(6)) << false;
        QTest::newRow("magic big-endian") << QByteArray(Bytes().header(hash, 0x2477B565).zeros(6)) << false;
        QTest::newRow("version 6") << QByteArray(Bytes().header(hash, 0x65B57724, 6).zeros(6)) << false;
        QTest::newRow("version 8") << QByteArray(Bytes().header(hash, 0x65B57724, 8).zeros(6)) << false;
        QTest::newRow("other hash") << QByteArray(Bytes().header(otherHash).zeros(6)) << false;
        QTest::newRow("shorter hash") << QByteArray(Bytes().header(hash.left(19)).zeros(6)) << false;
        QTest::newRow("longer hash") << QByteArray(Bytes().header(hash + 'x').zeros(6)) << false;
        QTest::newRow("no hash") << QByteArray(Bytes().header(QByteArray()).zeros(6)) << false;
        QTest::newRow("hash length beyond the data")
            << QByteArray(Bytes().i32(0x65B57724).i32(7).i32(0x7FFFFFFF)) << false;
        QTest::newRow("colour count 2^31-1") << QByteArray(Bytes().header().i32(0x7FFFFFFF)) << false;
        QTest::newRow("shader count 2^31-1")
            << QByteArray(Bytes().header().zeros(5).i32(0x7FFFFFFF)) << false;
        QTest::newRow("negative count") << QByteArray(Bytes().header().i32(-1).zeros(5)) << false;
        QTest::newRow("count above the records")
            << QByteArray(Bytes().header().i32(2).str("c").rgba(1, 2, 3, 4).zeros(5)) << false;
        QTest::newRow("name length 2^31-2") << QByteArray(Bytes().header().i32(1).i32(0x7FFFFFFE)) << false;
        QTest::newRow("defaults count 2^31-1") << defaultsWith(Bytes().i32(0x7FFFFFFF)) << false;
        QTest::newRow("negative defaults count") << defaultsWith(Bytes().i32(-1)) << false;
        QTest::newRow("variant string")
            << defaultsWith(Bytes().i32(1).str("k").i32(10).u8(0).str("")) << true;
        // Each payload is what a plain QVariant reader would accept (an empty container, a null
        // image), so only a check of the type refuses them.
        QTest::newRow("variant list") << defaultsWith(Bytes().i32(1).str("k").i32(9).u8(0).i32(0)) << false;
        QTest::newRow("variant map") << defaultsWith(Bytes().i32(1).str("k").i32(8).u8(0).i32(0)) << false;
        QTest::newRow("string list") << defaultsWith(Bytes().i32(1).str("k").i32(11).u8(0).i32(0)) << false;
        QTest::newRow("pixmap") << defaultsWith(Bytes().i32(1).str("k").i32(65).u8(0).i32(0)) << false;
        QTest::newRow("variant type 2^32-1")
            << defaultsWith(Bytes().i32(1).str("k").i32(0xFFFFFFFF).u8(0)) << false;
        // A damaged point size must never reach the float-to-int conversion, which is undefined
        // outside int's range (a sanitizer build stops there).
        const auto fontWithPointSize = [](double aPointSize) {
            Bytes font;
            font.header().zeros(2).i32(1).str("f").unsetFlags().str(QString()).i32(-1);
            return QByteArray(font.f64(aPointSize).i32(-1).zeros(3));
        };
        QTest::newRow("point size 7.9") << fontWithPointSize(7.9) << true;
        QTest::newRow("point size 1e10") << fontWithPointSize(1e10) << true;
        QTest::newRow("point size infinite") << fontWithPointSize(qInf()) << true;
        QTest::newRow("point size NaN") << fontWithPointSize(qQNaN()) << true;
        QTest::newRow("no stops") << rectangleUpToStops + Bytes().i32(0).i32(1).f64(0).i32(0) << true;
        QTest::newRow("stop count 2^31-1")
            << rectangleUpToStops + Bytes().i32(0x7FFFFFFF).i32(1).f64(0).i32(0) << false;
        QTest::newRow("negative stop count")
            << rectangleUpToStops + Bytes().i32(-1).i32(1).f64(0).i32(0) << false;
    }

    void load()
    {
        QFETCH(QByteArray, data);
        QFETCH(bool, accepted);

        QElapsedTimer timer;
        timer.start();
        QCOMPARE(BinaryResourceFile().loadData(data, sBase, contentHash()), accepted);

        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("theme.dat"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(data);
        file.close();
        QCOMPARE(BinaryResourceFile().loadFile(path, sBase, contentHash()), accepted);
        // A count taken on trust would allocate gigabytes or spin for minutes.
        QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    }

    void missingFileIsRefused()
    {
        QVERIFY(
            !BinaryResourceFile().loadFile(QStringLiteral("/nonexistent/theme.dat"), sBase, contentHash()));
    }

    void everyTruncationIsRefused()
    {
        const QByteArray data = sampleBytes();
        QVERIFY(BinaryResourceFile().loadData(data, sBase, contentHash()));
        for (int length = 0; length < data.size(); ++length) {
            QVERIFY2(!BinaryResourceFile().loadData(data.left(length), sBase, contentHash()),
                qPrintable(QStringLiteral("prefix of %1 bytes accepted").arg(length)));
        }
    }

    void repeatedNameKeepsTheLast()
    {
        const QByteArray data
            = Bytes().header().i32(2).str("c").rgba(1, 2, 3, 4).str("c").rgba(5, 6, 7, 8).zeros(5);
        BinaryResourceFile file;
        QVERIFY(file.loadData(data, sBase, contentHash()));
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
        ResourceFile good;
        fillSample(good);
        QVERIFY(BinaryResourceFile().saveFile(path, contentHash(), good));

        ResourceFile bad;
        fillSample(bad);
        bad.insertNode(ResourceType::Font, QSharedPointer<FontWithoutInfo>::create());
        QTest::ignoreMessage(QtCriticalMsg, "Cannot serialize NodeFont without FontInfo");
        QVERIFY(!BinaryResourceFile().saveFile(path, contentHash(), bad));
        compareBytes(readAll(path), sampleBytes());
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList { "theme.dat" });
    }
};

QTEST_MAIN(tst_BinaryResourceFile)
#include "tst_binaryresourcefile.moc"
