#include "resources/HmiGradientStop.h"
#include "resources/NodeColor.h"
#include "resources/NodeDefaults.h"
#include "resources/NodeFont.h"
#include "resources/NodeImage.h"
#include "resources/NodeRectangle.h"
#include "resources/NodeShader.h"
#include "resources/XmlLoader.h"

#include "common/ByteWriter.h"

#include <QDataStream>
#include <QtTest>

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

// A defaults record named "d": a count of 1, the key "k", a type id and the null flag; the
// payload follows.
ByteWriter defaultsRecord(quint32 aType)
{
    return ByteWriter().str("d").i32(1).str("k").i32(aType).u8(0);
}

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
        QTest::newRow("above ff") << "100,0,0" << QColor() << "";
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
        parseXml(node, "<value>" + text + "</value>");
        QCOMPARE(node.getColor(), expected);
        QCOMPARE(node.getColorCss(), css);
    }

    void defaults_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QVariantMap>("expected");
        QTest::addColumn<int>("warnings");

        const auto text = [](const char* aText) { return QVariantMap { { "a", QString::fromUtf8(aText) } }; };
        QTest::newRow("false is a bool")
            << "<property name='a'>false</property>" << QVariantMap { { "a", false } } << 0;
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
        QTest::newRow("string list") << QByteArray(defaultsRecord(QMetaType::QStringList).i32(1).str("a"))
                                     << corrupt;
        // Loading a pixmap variant needs a GUI application and aborts a process without one.
        QTest::newRow("pixmap") << QByteArray(defaultsRecord(QMetaType::QPixmap).zeros(2)) << corrupt;
        QTest::newRow("nested variant list") << QByteArray(
            defaultsRecord(QMetaType::QVariantList).i32(1).i32(QMetaType::QVariantList).u8(0).i32(0))
                                             << corrupt;
        QTest::newRow("user type") << QByteArray(defaultsRecord(QMetaType::User).i32(6).raw("Custom"))
                                   << corrupt;
        QTest::newRow("truncated string")
            << QByteArray(defaultsRecord(QMetaType::QString).i32(200)) << QDataStream::ReadPastEnd;
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

    // A known source size fills in whichever of frame and implicit size has an open dimension.
    void imageSetSourceSize()
    {
        NodeImage frameOpen;
        frameOpen.setFrameSize(QSize(8, 0));
        frameOpen.setImplicitSize(QSizeF(5, 6));
        frameOpen.setSourceSize(QSize(30, 40));
        QCOMPARE(frameOpen.getFrameSize(), QSize(30, 40));
        QCOMPARE(frameOpen.getImplicitSize(), QSizeF(5, 6));

        NodeImage implicitOpen;
        implicitOpen.setFrameSize(QSize(8, 9));
        implicitOpen.setImplicitSize(QSizeF(5, 0));
        implicitOpen.setSourceSize(QSize(30, 40));
        QCOMPARE(implicitOpen.getFrameSize(), QSize(8, 9));
        QCOMPARE(implicitOpen.getImplicitSize(), QSizeF(30, 40));
    }

    void imageFile_data()
    {
        QTest::addColumn<QString>("basePath");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("sourceAfterRead"); // null: the same

        // clang-format off
        QTest::newRow("resource path") << ":/day/" << "bg.png" << "qrc:/day/bg.png" << QString();
        QTest::newRow("qrc URL") << "qrc:/day/" << "a b.png" << "qrc:/day/a%20b.png" << QString();
        QTest::newRow("file URL") << "file:///opt/" << "x.png" << "file:///opt/x.png" << QString();
        QTest::newRow("URL characters in the name") << "/opt/" << "a#1%.png" << "file:///opt/a%231%25.png" << QString();
        QTest::newRow("no base path") << "" << "x.png" << "x.png" << QString();
        // The record keeps only the file name.
        QTest::newRow("sub directory") << "/opt/" << "icons/x.png" << "file:///opt/icons/x.png" << "file:///opt/x.png";
        QTest::newRow("empty file is ignored") << "/opt/" << "" << "" << QString();
        // clang-format on
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
        QCOMPARE(read.getSource().toString(QUrl::FullyEncoded),
            sourceAfterRead.isNull() ? source : sourceAfterRead);
    }

    void gradientStops_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QList<qreal>>("positions");
        QTest::addColumn<QStringList>("criticals");

        const QString twice
            = QStringLiteral("ERROR: Encountered gradientStop tag start twice before tag end.");
        const QString stray = QStringLiteral("ERROR: Encountered gradientStop tag end without start.");
        QTest::newRow("no or empty position")
            << "<gradientStop>0,0,0</gradientStop><gradientStop position=''>0,0,0</gradientStop>"
            << QList<qreal> { 0, 0 } << QStringList {};
        // The inner start discards the outer stop; the outer end then has nothing to finish.
        QTest::newRow("double start") << "<gradientStop position='0.5'><gradientStop position='0.75'>1,2,3"
                                         "</gradientStop></gradientStop>"
                                      << QList<qreal> { 0.75 } << QStringList { twice, stray };
    }

    void gradientStops()
    {
        QFETCH(QString, body);
        QFETCH(QList<qreal>, positions);
        QFETCH(QStringList, criticals);

        for (const QString& message : qAsConst(criticals)) {
            QTest::ignoreMessage(QtCriticalMsg, qPrintable(message));
        }
        NodeRectangle node;
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

    void rectangleRefusesHostileStopCount_data()
    {
        QTest::addColumn<QByteArray>("count");
        QTest::newRow("2^31-1") << QByteArray::fromHex("ffffff7f");
        QTest::newRow("negative") << QByteArray::fromHex("ffffffff");
    }

    void rectangleRefusesHostileStopCount()
    {
        QFETCH(QByteArray, count);

        QByteArray data = writeRecord(NodeRectangle());
        // The stop count comes before the gradient type (int32) and the radius (real).
        const int countAt = data.size() - 4 - 8 - 4;
        QCOMPARE(data.mid(countAt, 4), QByteArray(4, '\0'));
        NodeRectangle read;
        QCOMPARE(readRecord(read, data.replace(countAt, 4, count)), QDataStream::ReadCorruptData);
        QCOMPARE(read.getGradientStopsCount(), 0);
    }

    void shaderTags()
    {
        NodeShader node(QStringLiteral("/opt/"));
        QCOMPARE(node.getMeshResolution(), QSize(1, 1));
        parseXml(node,
            "<shaderFragment file='true'>wave.frag</shaderFragment><shaderVertex file='yes'>v</shaderVertex>"
            "<meshResolutionHeight>8</meshResolutionHeight>");
        QVERIFY(node.isShaderFragmentFile());
        QVERIFY(!node.isShaderVertexFile());
        QCOMPARE(node.getMeshResolution(), QSize(1, 8));
    }
};

QTEST_MAIN(tst_Nodes)
#include "tst_nodes.moc"
