#include "resources/HmiGradientStop.h"
#include "resources/NodeColor.h"
#include "resources/NodeDefaults.h"
#include "resources/NodeFont.h"
#include "resources/NodeImage.h"
#include "resources/NodeRectangle.h"
#include "resources/NodeShader.h"
#include "resources/XmlLoader.h"

#include <QDataStream>
#include <QtTest>

#include <memory>

using namespace Hmi::Core;

Q_DECLARE_METATYPE(QDataStream::Status)

namespace {

// Parses <root><node>aBody</node></root>; aNode's child tags are live while <node> is open.
void parseXml(XmlNode& aNode, const QString& aBody)
{
    XmlLoader loader;
    loader.registerTag(QStringLiteral("root"), {});
    loader.registerTag(QStringLiteral("node"),
        { nullptr, [&](const QXmlStreamReader&) { aNode.registerTags(loader); },
            [&](const QString&) { aNode.unregisterTags(loader); } });
    QVERIFY(loader.parse(QStringLiteral("<root><node>%1</node></root>").arg(aBody).toUtf8()));
}

// The settings of the binary resource file.
void prepare(QDataStream& aStream)
{
    aStream.setVersion(QDataStream::Qt_5_6);
    aStream.setByteOrder(QDataStream::LittleEndian);
    aStream.setFloatingPointPrecision(QDataStream::DoublePrecision);
}

QByteArray writeRecord(const Node& aNode, QDataStream::Status* aStatus = nullptr)
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    prepare(out);
    aNode.writeRecord(out);
    if (aStatus) {
        *aStatus = out.status();
    }
    return data;
}

// The stream status after reading; ReadCorruptData as well when bytes are left over.
QDataStream::Status readRecord(Node& aNode, const QByteArray& aData)
{
    QDataStream in(aData);
    prepare(in);
    aNode.readRecord(in);
    return in.status() == QDataStream::Ok && !in.atEnd() ? QDataStream::ReadCorruptData : in.status();
}

// A defaults record named "d": a count of 1, the key "k", a type id, the null flag, then aPayload.
template <typename Payload> QByteArray defaultsRecord(quint32 aType, Payload aPayload)
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    prepare(out);
    out << QStringLiteral("d") << qint32(1) << QStringLiteral("k") << aType << qint8(0);
    aPayload(out);
    return data;
}

QByteArray utf16Hex(const QString& aText)
{
    QByteArray bytes;
    for (const QChar c : aText) {
        bytes.append(char(c.cell())).append(char(c.row()));
    }
    return bytes.toHex();
}

std::unique_ptr<XmlNode> makeNode(ResourceType aType, const QString& aBasePath)
{
    switch (aType) {
    case ResourceType::Color:
        return std::make_unique<NodeColor>();
    case ResourceType::Defaults:
        return std::make_unique<NodeDefaults>();
    case ResourceType::Font:
        return std::make_unique<NodeFont>();
    case ResourceType::Image:
        return std::make_unique<NodeImage>(aBasePath);
    case ResourceType::Rectangle:
        return std::make_unique<NodeRectangle>(aBasePath);
    case ResourceType::Shader:
        return std::make_unique<NodeShader>(aBasePath);
    }
    return nullptr;
}

class FontWithoutInfo : public NodeFont
{
public:
    FontWithoutInfo() { releaseFontInfo(); }
};

} // namespace

class tst_Nodes : public QObject
{
    Q_OBJECT

private slots:
    void colorString_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QColor>("expected");
        QTest::addColumn<QString>("css");

        QTest::newRow("three parts") << "96,64,32" << QColor(0x96, 0x64, 0x32) << "rgba(150,100,50,255)";
        QTest::newRow("with alpha") << "19,32,4B,64" << QColor(0x19, 0x32, 0x4b, 0x64)
                                    << "rgba(25,50,75,100)";
        QTest::newRow("five parts: opaque") << "1,2,3,4,5" << QColor(1, 2, 3) << "rgba(1,2,3,255)";
        QTest::newRow("two parts") << "20,20" << QColor() << "";
        QTest::newRow("not hex") << "zz,0,0" << QColor() << "";
        QTest::newRow("bad alpha") << "0,0,0,zz" << QColor() << "";
        QTest::newRow("empty part") << "1,,3" << QColor() << "";
        QTest::newRow("above ff") << "100,0,0" << QColor() << "";
        QTest::newRow("empty") << "" << QColor() << "";
    }

    void colorString()
    {
        QFETCH(QString, text);
        QFETCH(QColor, expected);
        QFETCH(QString, css);

        if (!expected.isValid()) {
            QTest::ignoreMessage(QtWarningMsg, "ERROR: invalid color");
        }
        NodeColor node;
        parseXml(node, "<handle>c</handle><value>" + text + "</value>");
        QCOMPARE(node.getName(), QStringLiteral("c"));
        QCOMPARE(node.getColor(), expected);
        QCOMPARE(node.getColorCss(), css);
    }

    void colorRecordLayout()
    {
        NodeColor node(QStringLiteral("c"));
        node.setColor(QColor(0x96, 0x64, 0x32, 0x80));
        const QByteArray data = writeRecord(node);
        QCOMPARE(data.toHex(), QByteArray("02000000630096643280"));

        // Bytes above 0x7f are components above 127, not negative ones.
        NodeColor read;
        QCOMPARE(readRecord(read, data), QDataStream::Ok);
        QCOMPARE(read.getColorCss(), QStringLiteral("rgba(150,100,50,128)"));
    }

    void defaults_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QVariantMap>("expected");
        QTest::addColumn<int>("warnings");

        const auto text = [](const char* aText) { return QVariantMap { { "a", QString::fromUtf8(aText) } }; };
        QTest::newRow("false is a bool")
            << "<property name='a'>false</property>" << QVariantMap { { "a", false } } << 0;
        QTest::newRow("true stays a string") << "<property name='a'>true</property>" << text("true") << 0;
        QTest::newRow("False is not false") << "<property name='a'>False</property>" << text("False") << 0;
        QTest::newRow("numbers stay strings") << "<property name='a'>5</property>" << text("5") << 0;
        QTest::newRow("last one wins")
            << "<property name='a'>1</property><property name='a'>2</property>" << text("2") << 0;
        QTest::newRow("missing name") << "<property>x</property>" << QVariantMap {} << 1;
        QTest::newRow("empty name") << "<property name=''>x</property>" << QVariantMap {} << 1;
        QTest::newRow("unnamed after named")
            << "<property name='a'>1</property><property>2</property>" << text("1") << 1;
    }

    void defaults()
    {
        QFETCH(QString, body);
        QFETCH(QVariantMap, expected);
        QFETCH(int, warnings);

        for (int i = 0; i < warnings; ++i) {
            QTest::ignoreMessage(QtWarningMsg, "ERROR: no name attribute specified");
        }
        NodeDefaults node;
        parseXml(node, body);
        QCOMPARE(node.getDefaults().keys(), expected.keys());
        for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
            // QVariant's operator== converts, so "false" would equal false: compare types first.
            QCOMPARE(node.getDefault(it.key()).userType(), it.value().userType());
            QCOMPARE(node.getDefault(it.key()), it.value());
        }
        QVERIFY(!node.getDefault(QStringLiteral("unknown")).isValid());
    }

    void defaultsValueTypes()
    {
        const QVariantList values { true, qint32(-5), quint32(7), -(qint64(1) << 40), quint64(1) << 63, 2.5,
            1.25f, QStringLiteral("s"), QString(), QVariant() };
        NodeDefaults node;
        for (int i = 0; i < values.size(); ++i) {
            node.insertDefault(QString::number(i), values.at(i));
        }
        QDataStream::Status status = QDataStream::Ok;
        const QByteArray data = writeRecord(node, &status);
        QCOMPARE(status, QDataStream::Ok);

        NodeDefaults read;
        QCOMPARE(readRecord(read, data), QDataStream::Ok);
        for (int i = 0; i < values.size(); ++i) {
            QCOMPARE(read.getDefault(QString::number(i)).userType(), values.at(i).userType());
            QCOMPARE(read.getDefault(QString::number(i)), values.at(i));
        }

        // A value the reader would refuse is not written at all.
        node.insertDefault(QStringLiteral("list"), QStringList { QStringLiteral("a") });
        writeRecord(node, &status);
        QCOMPARE(status, QDataStream::WriteFailed);
    }

    void defaultsRefusesHostileRecords_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QDataStream::Status>("status");

        const auto corrupt = QDataStream::ReadCorruptData;
        const QByteArray name = QByteArray::fromHex("020000006400");
        QTest::newRow("negative count") << name + QByteArray::fromHex("ffffffff") << corrupt;
        QTest::newRow("count beyond the data") << name + QByteArray::fromHex("ffffff7f") << corrupt;
        QTest::newRow("string list") << defaultsRecord(QMetaType::QStringList, [](QDataStream& aOut) {
            aOut << QStringList { QStringLiteral("a") };
        }) << corrupt;
        // Loading a pixmap variant needs a GUI application and aborts a process without one.
        QTest::newRow("pixmap") << defaultsRecord(QMetaType::QPixmap, [](QDataStream& aOut) {
            aOut << quint32(0) << quint32(0);
        }) << corrupt;
        QTest::newRow("nested variant list") << defaultsRecord(
            QMetaType::QVariantList, [](QDataStream& aOut) {
                aOut << quint32(1) << quint32(QMetaType::QVariantList) << qint8(0) << quint32(0);
            }) << corrupt;
        QTest::newRow("user type") << defaultsRecord(QMetaType::User, [](QDataStream& aOut) {
            aOut << QByteArray("Custom");
        }) << corrupt;
        QTest::newRow("truncated string")
            << defaultsRecord(QMetaType::QString, [](QDataStream& aOut) { aOut << quint32(200); })
            << QDataStream::ReadPastEnd;
    }

    void defaultsRefusesHostileRecords()
    {
        QFETCH(QByteArray, data);
        QFETCH(QDataStream::Status, status);

        NodeDefaults node;
        QCOMPARE(readRecord(node, data), status);
        QVERIFY(node.getDefaults().isEmpty());
    }

    void fontWeight_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<int>("weight");
        QTest::addColumn<int>("infoBold");
        QTest::addColumn<int>("infoWeight");

        QTest::newRow("light") << "<weight>light</weight>" << 25 << -1 << 25;
        QTest::newRow("normal") << "<weight>normal</weight>" << 50 << -1 << 50;
        QTest::newRow("demiBold") << "<weight>demiBold</weight>" << 63 << -1 << 63;
        QTest::newRow("bold") << "<weight>bold</weight>" << 75 << -1 << 75;
        QTest::newRow("black") << "<weight>black</weight>" << 87 << -1 << 87;
        QTest::newRow("case sensitive") << "<weight>Bold</weight>" << 50 << -1 << -1;
        QTest::newRow("bold tag") << "<bold>true</bold>" << 75 << 1 << -1;
        QTest::newRow("bold tag, other text") << "<bold>yes</bold>" << 50 << 0 << -1;
        QTest::newRow("weight after bold") << "<bold>true</bold><weight>light</weight>" << 25 << 1 << 25;
        QTest::newRow("bold after weight") << "<weight>light</weight><bold>true</bold>" << 75 << 1 << 25;
    }

    void fontWeight()
    {
        QFETCH(QString, body);
        QFETCH(int, weight);
        QFETCH(int, infoBold);
        QFETCH(int, infoWeight);

        if (QTest::currentDataTag() == QByteArray("case sensitive")) {
            QTest::ignoreMessage(QtWarningMsg, "ERROR: invalid weight Bold specified");
        }
        NodeFont node;
        parseXml(node, body);
        QCOMPARE(node.getFont().weight(), weight);
        QCOMPARE(int(node.getFontInfo()->bold), infoBold);
        QCOMPARE(node.getFontInfo()->weight, infoWeight);
    }

    void fontTags()
    {
        NodeFont node;
        parseXml(node,
            "<family>Test Sans</family><pixelSize>14</pixelSize><italic>true</italic>"
            "<underline>yes</underline><strikeOut>true</strikeOut>");
        const QFont& font = node.getFont();
        QVERIFY(font.italic() && !font.underline() && font.strikeOut());
        QCOMPARE(node.getFontCss(), QStringLiteral("italic 14px \"Test Sans\""));

        // Only what was given counts as requested.
        const NodeFont::FontInfo& info = *node.getFontInfo();
        QCOMPARE(info.family, QStringLiteral("Test Sans"));
        QCOMPARE(info.pixelSize, 14);
        QCOMPARE(QVector<int>({ info.bold, info.italic, info.overline, info.strikeOut, info.underline }),
            QVector<int>({ -1, 1, -1, 1, 0 }));
        QCOMPARE(info.pointSize, -1.0f);
    }

    void fontRecordReadRules()
    {
        // From XML the later bold tag wins; from a record the explicit weight is applied last.
        NodeFont node;
        parseXml(node, "<weight>light</weight><bold>true</bold><pointSize>10.5</pointSize>");
        QCOMPARE(node.getFont().weight(), 75);
        QCOMPARE(node.getFont().pointSizeF(), 10.5);

        NodeFont read;
        QCOMPARE(readRecord(read, writeRecord(node)), QDataStream::Ok);
        QCOMPARE(read.getFont().weight(), 25);
        QCOMPARE(read.getFont().pointSizeF(), 10.0);
        QVERIFY2(read.getFontCss().startsWith(QLatin1String("25 10pt ")), qPrintable(read.getFontCss()));
    }

    void fontWithoutInfoCannotBeWritten()
    {
        FontWithoutInfo node;
        QTest::ignoreMessage(QtCriticalMsg, "Cannot serialize NodeFont without FontInfo");
        QDataStream::Status status = QDataStream::Ok;
        writeRecord(node, &status);
        QCOMPARE(status, QDataStream::WriteFailed);
    }

    void imageSizeTags_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QSize>("frameSize");
        QTest::addColumn<QSize>("sourceSize");
        QTest::addColumn<QSizeF>("implicitSize");

        QTest::newRow("width and height fill all three")
            << "<width>10</width><height>20</height>" << QSize(10, 20) << QSize(10, 20) << QSizeF(10, 20);
        QTest::newRow("frame size given first")
            << "<frameWidth>5</frameWidth><frameHeight>6</frameHeight><width>10</width><height>20</height>"
            << QSize(5, 6) << QSize(10, 20) << QSizeF(10, 20);
        QTest::newRow("desired width given first") << "<desiredWidth>3.5</desiredWidth><width>10</width>"
                                                   << QSize(10, -1) << QSize(10, -1) << QSizeF(3.5, 0);
        QTest::newRow("second width changes nothing")
            << "<width>10</width><width>20</width>" << QSize(10, -1) << QSize(10, -1) << QSizeF(10, 0);
        // 0 is no longer negative, but the implicit size is still open.
        QTest::newRow("unparsable width is 0")
            << "<width>abc</width><width>7</width>" << QSize(0, -1) << QSize(0, -1) << QSizeF(7, 0);
    }

    void imageSizeTags()
    {
        QFETCH(QString, body);
        QFETCH(QSize, frameSize);
        QFETCH(QSize, sourceSize);
        QFETCH(QSizeF, implicitSize);

        NodeImage node;
        parseXml(node, body);
        QCOMPARE(node.getFrameSize(), frameSize);
        QCOMPARE(node.getSourceSize(), sourceSize);
        QCOMPARE(node.getImplicitSize(), implicitSize);
    }

    void imageSetSourceSize_data()
    {
        QTest::addColumn<QSize>("frameSize");
        QTest::addColumn<QSizeF>("implicitSize");
        QTest::addColumn<QSize>("expectedFrameSize");
        QTest::addColumn<QSizeF>("expectedImplicitSize");

        const QSize source(30, 40);
        QTest::newRow("nothing given") << QSize(-1, -1) << QSizeF(0, 0) << source << QSizeF(source);
        QTest::newRow("frame height 0") << QSize(8, 0) << QSizeF(5, 6) << source << QSizeF(5, 6);
        QTest::newRow("implicit height 0") << QSize(8, 9) << QSizeF(5, 0) << QSize(8, 9) << QSizeF(source);
        QTest::newRow("both given") << QSize(1, 1) << QSizeF(0.5, 0.5) << QSize(1, 1) << QSizeF(0.5, 0.5);
    }

    void imageSetSourceSize()
    {
        QFETCH(QSize, frameSize);
        QFETCH(QSizeF, implicitSize);
        QFETCH(QSize, expectedFrameSize);
        QFETCH(QSizeF, expectedImplicitSize);

        NodeImage node;
        node.setFrameSize(frameSize);
        node.setImplicitSize(implicitSize);
        node.setSourceSize(QSize(30, 40));
        QCOMPARE(node.getFrameSize(), expectedFrameSize);
        QCOMPARE(node.getImplicitSize(), expectedImplicitSize);
    }

    void imageFile_data()
    {
        QTest::addColumn<QString>("basePath");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("sourceAfterRead");

        QTest::newRow("resource path") << ":/day/"
                                       << "bg.png"
                                       << "qrc:/day/bg.png"
                                       << "qrc:/day/bg.png";
        QTest::newRow("qrc URL") << "qrc:/day/"
                                 << "a b.png"
                                 << "qrc:/day/a%20b.png"
                                 << "qrc:/day/a%20b.png";
        QTest::newRow("file URL") << "file:///opt/"
                                  << "x.png"
                                  << "file:///opt/x.png"
                                  << "file:///opt/x.png";
        QTest::newRow("URL characters in the name") << "/opt/"
                                                    << "a#1%.png"
                                                    << "file:///opt/a%231%25.png"
                                                    << "file:///opt/a%231%25.png";
        QTest::newRow("no base path") << ""
                                      << "x.png"
                                      << "x.png"
                                      << "x.png";
        // The record keeps only the file name.
        QTest::newRow("sub directory") << "/opt/"
                                       << "icons/x.png"
                                       << "file:///opt/icons/x.png"
                                       << "file:///opt/x.png";
        QTest::newRow("empty file is ignored") << "/opt/"
                                               << ""
                                               << ""
                                               << "";
    }

    void imageFile()
    {
        QFETCH(QString, basePath);
        QFETCH(QString, file);
        QFETCH(QString, source);
        QFETCH(QString, sourceAfterRead);

        NodeImage node(basePath);
        parseXml(node, "<file>" + file + "</file>");
        QCOMPARE(node.getSource().toString(QUrl::FullyEncoded), source);

        NodeImage read(basePath);
        QCOMPARE(readRecord(read, writeRecord(node)), QDataStream::Ok);
        QCOMPARE(read.getSource().toString(QUrl::FullyEncoded), sourceAfterRead);
    }

    void gradientStops_data()
    {
        QTest::addColumn<int>("strayEnds");
        QTest::addColumn<QString>("body");
        QTest::addColumn<QList<qreal>>("positions");
        QTest::addColumn<QStringList>("criticals");

        const QString twice
            = QStringLiteral("ERROR: Encountered gradientStop tag start twice before tag end.");
        const QString stray = QStringLiteral("ERROR: Encountered gradientStop tag end without start.");
        QTest::newRow("two stops") << 0
                                   << "<gradientStop position='0.25'>ff,0,0</gradientStop>"
                                      "<gradientStop position='1'>0,0,ff,80</gradientStop>"
                                   << QList<qreal> { 0.25, 1 } << QStringList {};
        QTest::newRow("no or empty position")
            << 0 << "<gradientStop>0,0,0</gradientStop><gradientStop position=''>0,0,0</gradientStop>"
            << QList<qreal> { 0, 0 } << QStringList {};
        QTest::newRow("stray end") << 1 << "<gradientStop position='0.5'>0,0,0</gradientStop>"
                                   << QList<qreal> { 0.5 } << QStringList { stray };
        // The inner start discards the outer stop; the outer end then has nothing to finish.
        QTest::newRow("double start") << 0
                                      << "<gradientStop position='0.5'><gradientStop position='0.75'>1,2,3"
                                         "</gradientStop></gradientStop>"
                                      << QList<qreal> { 0.75 } << QStringList { twice, stray };
    }

    void gradientStops()
    {
        QFETCH(int, strayEnds);
        QFETCH(QString, body);
        QFETCH(QList<qreal>, positions);
        QFETCH(QStringList, criticals);

        for (const QString& message : qAsConst(criticals)) {
            QTest::ignoreMessage(QtCriticalMsg, qPrintable(message));
        }
        NodeRectangle node;
        for (int i = 0; i < strayEnds; ++i) {
            node.onGradientStopTagEnd(QStringLiteral("0,0,0"));
        }
        parseXml(node, body);
        QCOMPARE(node.getGradientStopsCount(), positions.size());
        for (int i = 0; i < positions.size(); ++i) {
            QCOMPARE(node.getGradientStopAt(i)->getPosition(), positions.at(i));
        }
        QCOMPARE(node.getGradientStopAt(-1), nullptr);
        QCOMPARE(node.getGradientStopAt(positions.size()), nullptr);
    }

    void gradientType_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<int>("expected");

        QTest::newRow("conical") << "conical" << 0;
        QTest::newRow("linear") << "linear" << 1;
        QTest::newRow("radial") << "radial" << 2;
        QTest::newRow("case sensitive") << "Linear" << 3;
        QTest::newRow("empty") << "" << 3;
    }

    void gradientType()
    {
        QFETCH(QString, word);
        QFETCH(int, expected);

        if (expected == 3) {
            const QString message = QStringLiteral("ERROR: Invalid gradient type %1 specified.").arg(word);
            QTest::ignoreMessage(QtCriticalMsg, qPrintable(message));
        }
        NodeRectangle node;
        parseXml(node, "<gradientType>" + word + "</gradientType>");
        QCOMPARE(node.getGradientType(), expected);
    }

    void rectangleRecordLayout_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<int>("extraBytes");

        QTest::newRow("nothing given") << "" << 0;
        QTest::newRow("scalars")
            << "<borderWidth>2</borderWidth><radius>4</radius><gradientBeginX>1</gradientBeginX>" << 0;
        QTest::newRow("colour") << "<value>1,2,3</value>" << 4;
        QTest::newRow("border colour") << "<borderColor>1,2,3</borderColor>" << 4;
        QTest::newRow("gradient end") << "<gradientEndY>1</gradientEndY>" << 16;
        QTest::newRow("stop") << "<gradientStop>1,2,3</gradientStop>" << 12;
    }

    void rectangleRecordLayout()
    {
        QFETCH(QString, body);
        QFETCH(int, extraBytes);

        // Empty name 4, image fields 92, rectangle fields 47; the optional parts only when given.
        NodeRectangle node;
        parseXml(node, body);
        QCOMPARE(writeRecord(node).size(), 4 + 92 + 47 + extraBytes);
    }

    void rectangleRefusesHostileStopCount()
    {
        QByteArray data = writeRecord(NodeRectangle());
        // The stop count comes before the gradient type (int32) and the radius (real).
        const int countAt = data.size() - 4 - 8 - 4;
        QCOMPARE(data.mid(countAt, 4), QByteArray(4, '\0'));
        data.replace(countAt, 4, QByteArray::fromHex("ffffff7f"));

        NodeRectangle read;
        QCOMPARE(readRecord(read, data), QDataStream::ReadCorruptData);
        QCOMPARE(read.getGradientStopsCount(), 0);
    }

    void shader()
    {
        NodeShader node(QStringLiteral("/opt/"));
        QCOMPARE(node.getMeshResolution(), QSize(1, 1));
        parseXml(node,
            "<handle>s</handle><shaderFragment file='true'>wave.frag</shaderFragment>"
            "<shaderVertex file='yes'>void main() {}</shaderVertex>"
            "<meshResolutionHeight>8</meshResolutionHeight>"
            "<supportsAtlasTextures>true</supportsAtlasTextures>");
        QVERIFY(node.isShaderFragmentFile());
        QVERIFY(!node.isShaderVertexFile());
        QCOMPARE(node.getMeshResolution(), QSize(1, 8));

        // Name "s", null defaultsName, mesh 1 x 8, then each text with its flag, then the atlas flag.
        const QByteArray head = "020000007300ffffffff010000000800000012000000";
        const QByteArray expected = head + utf16Hex(QStringLiteral("wave.frag")) + "011c000000"
            + utf16Hex(QStringLiteral("void main() {}")) + "0001";
        QCOMPARE(writeRecord(node).toHex(), expected);
    }

    void roundTrip_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("body");

        QString image
            = QStringLiteral("<defaultsName>d</defaultsName><file>pic.png</file><frameCount>4</frameCount>"
                             "<frameWidth>8</frameWidth><desiredHeight>2.5</desiredHeight>"
                             "<width>30</width><height>40</height>");
        int value = 0;
        for (const char* group : { "paddingExternal%1", "usable%1Margin", "tile%1Margin" }) {
            for (const char* side : { "Left", "Top", "Right", "Bottom" }) {
                const QString tag = QString::fromLatin1(group).arg(QLatin1String(side));
                image += QStringLiteral("<%1>%2</%1>").arg(tag).arg(++value);
            }
        }
        for (int type = 0; type < ResourceTypeCount; ++type) {
            QTest::addRow("empty %d", type) << type << QString();
        }
        QTest::newRow("colour") << int(ResourceType::Color) << "<handle>c</handle><value>96,64,32,c8</value>";
        QTest::newRow("defaults") << int(ResourceType::Defaults)
                                  << "<handle>d</handle><property name='b'>false</property>"
                                     "<property name='s'>text</property>";
        QTest::newRow("font") << int(ResourceType::Font)
                              << "<handle>f</handle><family>Test</family><pixelSize>14</pixelSize>"
                                 "<pointSize>9.5</pointSize><italic>true</italic><weight>demiBold</weight>";
        QTest::newRow("image") << int(ResourceType::Image) << "<handle>i</handle>" + image;
        QTest::newRow("rectangle") << int(ResourceType::Rectangle)
                                   << "<handle>r</handle>" + image
                + "<value>1,2,3,4</value><borderColor>ff,fe,fd</borderColor><borderWidth>2</borderWidth>"
                  "<radius>3.5</radius><gradientAngle>45</gradientAngle><gradientBeginY>0.5</gradientBeginY>"
                  "<gradientEndX>0.75</gradientEndX><gradientType>radial</gradientType>"
                  "<gradientStop position='0.1'>10,20,30</gradientStop>"
                  "<gradientStop>90,a0,b0,c0</gradientStop>";
        QTest::newRow("shader")
            << int(ResourceType::Shader)
            << "<handle>s</handle><defaultsName>d</defaultsName><shaderFragment>f</shaderFragment>"
               "<meshResolutionWidth>3</meshResolutionWidth><shaderVertex file='true'>v</shaderVertex>";
    }

    void roundTrip()
    {
        QFETCH(int, type);
        QFETCH(QString, body);

        const QString basePath = QStringLiteral("/opt/");
        const std::unique_ptr<XmlNode> node = makeNode(ResourceType(type), basePath);
        parseXml(*node, body);
        QDataStream::Status status = QDataStream::Ok;
        const QByteArray data = writeRecord(*node, &status);
        QCOMPARE(status, QDataStream::Ok);

        // Writing what was read gives the same bytes only if every field came back.
        const std::unique_ptr<XmlNode> read = makeNode(ResourceType(type), basePath);
        QCOMPARE(readRecord(*read, data), QDataStream::Ok);
        QCOMPARE(read->getName(), node->getName());
        QCOMPARE(writeRecord(*read).toHex(), data.toHex());
        if (auto image = dynamic_cast<const NodeImage*>(node.get())) {
            QCOMPARE(static_cast<const NodeImage&>(*read).getSource(), image->getSource());
        }

        // A record cut short anywhere is refused.
        const std::unique_ptr<XmlNode> truncated = makeNode(ResourceType(type), basePath);
        QVERIFY(readRecord(*truncated, data.left(data.size() - 1)) != QDataStream::Ok);
    }
};

QTEST_MAIN(tst_Nodes)
#include "tst_nodes.moc"
