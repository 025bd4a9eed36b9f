#include "handles/CssUtils.h"

#include <QColor>
#include <QDataStream>
#include <QFont>
#include <QtTest>

using Hmi::Core::CssUtils;

namespace {

// QFont refuses sizes <= 0 through its setters, but a font read from a stream (as resource
// caches are) can carry neither size. Build one by rewriting the sizes of a streamed font.
QFont fontWithoutSize()
{
    QFont source(QStringLiteral("Test"));
    source.setPixelSize(3);

    QByteArray bytes;
    QByteArray prefix;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setVersion(QDataStream::Qt_5_6);
        out << source;
        QDataStream head(&prefix, QIODevice::WriteOnly);
        head.setVersion(QDataStream::Qt_5_6);
        // The stream starts with family and style name, then point size (double) and pixel size.
        head << source.family() << source.styleName() << double(-1.0) << qint32(-1);
    }
    const int sizesEnd = prefix.size();
    QByteArray patched = prefix + bytes.mid(sizesEnd);

    QFont font;
    QDataStream in(&patched, QIODevice::ReadOnly);
    in.setVersion(QDataStream::Qt_5_6);
    in >> font;
    return font;
}

} // namespace

class tst_CssUtils : public QObject
{
    Q_OBJECT

private slots:
    void colorCss_data()
    {
        QTest::addColumn<QColor>("color");
        QTest::addColumn<QString>("expected");

        QTest::newRow("alpha is an integer, not a fraction") << QColor(1, 2, 3, 4) << "rgba(1,2,3,4)";
        QTest::newRow("hsv converted to rgb") << QColor::fromHsv(120, 255, 255, 128) << "rgba(0,255,0,128)";
    }

    void colorCss()
    {
        QFETCH(QColor, color);
        QFETCH(QString, expected);
        QCOMPARE(CssUtils::getColorCss(color), expected);
    }

    void fontCss_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<int>("pixelSize");
        QTest::addColumn<qreal>("pointSize");
        QTest::addColumn<int>("weight");
        QTest::addColumn<bool>("italic");
        QTest::addColumn<QString>("expected");

        QTest::newRow("normal weight omitted") << "Test" << 3 << 0.0 << 50 << false << "3px \"Test\"";
        QTest::newRow("no family keeps the space") << "" << 4 << 0.0 << 50 << false << "4px ";
        QTest::newRow("light as number") << "Test" << 3 << 0.0 << 25 << false << "25 3px \"Test\"";
        QTest::newRow("bold as word") << "Test" << 3 << 0.0 << 75 << false << "bold 3px \"Test\"";
        QTest::newRow("italic first") << "Test" << 3 << 0.0 << 87 << true << "italic 87 3px \"Test\"";
        QTest::newRow("point size") << "Test" << 0 << 10.5 << 75 << false << "bold 10.5pt \"Test\"";
    }

    void fontCss()
    {
        QFETCH(QString, family);
        QFETCH(int, pixelSize);
        QFETCH(qreal, pointSize);
        QFETCH(int, weight);
        QFETCH(bool, italic);
        QFETCH(QString, expected);

        QFont font;
        font.setFamily(family);
        if (pixelSize > 0) {
            font.setPixelSize(pixelSize);
        } else {
            font.setPointSizeF(pointSize);
        }
        font.setWeight(weight);
        font.setItalic(italic);

        QCOMPARE(CssUtils::getFontCss(font), expected);
    }

    void fontCssWithoutSize()
    {
        const QFont font = fontWithoutSize();
        QVERIFY(font.pixelSize() <= 0);
        QVERIFY(font.pointSizeF() <= 0);
        QCOMPARE(font.family(), QStringLiteral("Test"));

        QTest::ignoreMessage(QtCriticalMsg, "ERROR: A valid font size (in pixels or points) was not found.");
        QCOMPARE(CssUtils::getFontCss(font), QString());
    }
};

QTEST_MAIN(tst_CssUtils)
#include "tst_cssutils.moc"
