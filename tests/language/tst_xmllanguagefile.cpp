#include "language/NodeText.h"
#include "language/XmlLanguageFile.h"

#include "../frame/WarningCounter.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Hmi::Core;

namespace {

QByteArray document(const QByteArray& aStrings, const QByteArray& aCatalogAttributes = "language=\"en_US\"")
{
    return "<?xml version=\"1.0\"?>\n<catalog " + aCatalogAttributes + ">\n<strings>\n" + aStrings
        + "\n</strings>\n</catalog>\n";
}

} // namespace

class tst_XmlLanguageFile : public QObject
{
    Q_OBJECT

private slots:
    void keys_data();
    void keys();
    void texts_data();
    void texts();
    void catalog_data();
    void catalog();
    void catalogOnlyStopsAtTheCatalog();
    void brokenDocumentKeepsWhatWasRead();
    void unopenable_data();
    void unopenable();

private:
    QSharedPointer<XmlLanguageFile> load(const QByteArray& aXml, bool aCatalogOnly = false);

    QTemporaryDir mDirectory;
};

QSharedPointer<XmlLanguageFile> tst_XmlLanguageFile::load(const QByteArray& aXml, bool aCatalogOnly)
{
    const QString path = mDirectory.filePath(QStringLiteral("test.glx"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(aXml) != aXml.size()) {
        return {};
    }
    file.close();
    return XmlLanguageFile::load(path, aCatalogOnly);
}

void tst_XmlLanguageFile::keys_data()
{
    QTest::addColumn<QByteArray>("strings");
    QTest::addColumn<QStringList>("keys");

    QTest::newRow("outside any section") << QByteArray("<entry handle=\"A\"/>") << QStringList { "STR_A" };
    QTest::newRow("section default adds nothing")
        << QByteArray("<section name=\"default\"><entry handle=\"A\"/></section>") << QStringList { "STR_A" };
    QTest::newRow("section name is case-sensitive")
        << QByteArray("<section name=\"Default\"><entry handle=\"A\"/></section>")
        << QStringList { "STR_Default_A" };
    QTest::newRow("named section") << QByteArray("<section name=\"MENU\"><entry handle=\"BACK\"/></section>")
                                   << QStringList { "STR_MENU_BACK" };
    QTest::newRow("nested sections append")
        << QByteArray("<section name=\"A\"><section name=\"B\"><entry handle=\"X\"/></section></section>")
        << QStringList { "STR_A_B_X" };
    QTest::newRow("end of inner section resets to STR_")
        << QByteArray("<section name=\"A\"><section name=\"B\"/><entry handle=\"X\"/></section>")
        << QStringList { "STR_X" };
    QTest::newRow("default inside a named section") << QByteArray(
        "<section name=\"A\"><section name=\"default\">"
        "<entry handle=\"X\"/></section></section>") << QStringList { "STR_A_X" };
    QTest::newRow("prefix does not leak into the next section")
        << QByteArray("<section name=\"A\"><entry handle=\"X\"/></section>"
                      "<section name=\"B\"><entry handle=\"Y\"/></section><entry handle=\"Z\"/>")
        << QStringList { "STR_A_X", "STR_B_Y", "STR_Z" };
    QTest::newRow("entry without handle creates nothing")
        << QByteArray("<entry/><entry handle=\"\"/>") << QStringList { "STR_" };
}

void tst_XmlLanguageFile::keys()
{
    QFETCH(QByteArray, strings);
    QFETCH(QStringList, keys);

    const auto file = load(document(strings));
    QVERIFY(file);
    QStringList actual = file->getNodes().keys();
    actual.sort();
    QCOMPARE(actual, keys);
    for (const QString& key : qAsConst(keys)) {
        QCOMPARE(file->getNode(key)->getName(), key);
    }
}

void tst_XmlLanguageFile::texts_data()
{
    // The node under test is STR_A; a null expectation means no text was kept.
    QTest::addColumn<QByteArray>("strings");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pronunciation");
    // Speech recognition, TTS and visual, as "010".
    QTest::addColumn<QString>("usage");

    QTest::newRow("nothing given") << QByteArray("<entry handle=\"A\"/>") << QString() << QString() << "001";
    QTest::newRow("default string is kept")
        << QByteArray("<entry handle=\"A\"><string default=\"true\"><visual>Hi</visual>"
                      "<pronunciation>hai</pronunciation></string></entry>")
        << "Hi"
        << "hai"
        << "001";
    QTest::newRow("other strings are not")
        << QByteArray("<entry handle=\"A\"><string><visual>Hi</visual><pronunciation>hai</pronunciation>"
                      "</string><string default=\"false\"><visual>Ho</visual></string></entry>")
        << QString() << QString() << "001";
    QTest::newRow("default is case-sensitive")
        << QByteArray("<entry handle=\"A\"><string default=\"TRUE\"><visual>Hi</visual></string></entry>")
        << QString() << QString() << "001";
    QTest::newRow("translation after the default does not replace it")
        << QByteArray("<entry handle=\"A\"><string default=\"true\"><visual>Hi</visual></string>"
                      "<string><visual>Salut</visual></string></entry>")
        << "Hi" << QString() << "001";
    QTest::newRow("flag ends with its string")
        << QByteArray("<entry handle=\"A\"><string default=\"true\"/><visual>Hi</visual></entry>")
        << QString() << QString() << "001";
    QTest::newRow("string without the attribute keeps the flag")
        << QByteArray("<entry handle=\"A\"><string default=\"true\"><string><visual>Hi</visual></string>"
                      "<visual>lost</visual></string></entry>")
        << "Hi" << QString() << "001";
    QTest::newRow("usage applies from any string")
        << QByteArray("<entry handle=\"A\"><string><usage speechrec=\"true\" tts=\"true\" visual=\"false\"/>"
                      "</string></entry>")
        << QString() << QString() << "110";
    QTest::newRow("absent usage attributes keep their values")
        << QByteArray("<entry handle=\"A\"><string><usage tts=\"true\"/></string></entry>") << QString()
        << QString() << "011";
    QTest::newRow("usage values are case-sensitive")
        << QByteArray("<entry handle=\"A\"><string><usage speechrec=\"True\" visual=\"1\"/></string></entry>")
        << QString() << QString() << "000";
    QTest::newRow("backslash-n breaks the text, not the pronunciation") << QByteArray(
        "<entry handle=\"A\"><string default=\"true\"><visual>a\\nb\\n</visual>"
        "<pronunciation>a\\nb</pronunciation></string></entry>") << "a\nb\n"
                                                                        << "a\\nb"
                                                                        << "001";
    QTest::newRow("entry without handle writes into the previous node")
        << QByteArray("<entry handle=\"A\"><string default=\"true\"><visual>first</visual></string></entry>"
                      "<entry><string default=\"true\"><visual>second</visual></string>"
                      "<string><usage tts=\"true\"/></string></entry>")
        << "second" << QString() << "011";
    QTest::newRow("a repeated key starts afresh") << QByteArray(
        "<entry handle=\"A\"><string default=\"true\"><visual>old</visual></string>"
        "<string><usage tts=\"true\"/></string></entry>"
        "<entry handle=\"A\"><string default=\"true\"><pronunciation>new</pronunciation></string>"
        "</entry>") << QString() << "new"
                                                  << "001";
    QTest::newRow("strings before the first entry go nowhere") << QByteArray(
        "<string default=\"true\"><visual>x</visual><usage tts=\"true\"/></string>"
        "<entry handle=\"A\"/>") << QString() << QString() << "001";
}

void tst_XmlLanguageFile::texts()
{
    QFETCH(QByteArray, strings);
    QFETCH(QString, text);
    QFETCH(QString, pronunciation);
    QFETCH(QString, usage);

    const auto file = load(document(strings));
    QVERIFY(file);
    const QSharedPointer<const NodeText> node = file->getNode(QStringLiteral("STR_A"));
    QVERIFY(node);
    QCOMPARE(node->getText(), text);
    QCOMPARE(node->getText().isNull(), text.isNull());
    QCOMPARE(node->getPronunciation(), pronunciation);
    QCOMPARE(node->getPronunciation().isNull(), pronunciation.isNull());
    const QString actualUsage = QString::number(int(node->getUseSpeechRecognition()))
        + QString::number(int(node->getUseTTS())) + QString::number(int(node->getUseVisual()));
    QCOMPARE(actualUsage, usage);
}

void tst_XmlLanguageFile::catalog_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("displayName");
    QTest::addColumn<QString>("codePage");
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<float>("version");

    QTest::newRow("all given") << QByteArray("codepage=\"1256\" direction=\"1\" language=\"ar_SA\" "
                                             "display_name=\"Arabic\" file_version=\"2.5\"")
                               << "ar_SA"
                               << "Arabic"
                               << "1256" << true << 2.5f;
    QTest::newRow("none given") << QByteArray() << QString() << QString() << QString() << false << 1.0f;
    QTest::newRow("negative direction")
        << QByteArray("direction=\"-1\"") << QString() << QString() << QString() << true << 1.0f;
    QTest::newRow("direction is base 10")
        << QByteArray("direction=\"0x1\"") << QString() << QString() << QString() << false << 1.0f;
    QTest::newRow("attribute names are case-sensitive")
        << QByteArray("Language=\"de_DE\" DIRECTION=\"1\" displayName=\"Deutsch\"") << QString() << QString()
        << QString() << false << 1.0f;
}

void tst_XmlLanguageFile::catalog()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, language);
    QFETCH(QString, displayName);
    QFETCH(QString, codePage);
    QFETCH(bool, rightToLeft);
    QFETCH(float, version);

    for (const bool catalogOnly : { false, true }) {
        const auto file = load(document("<entry handle=\"A\"/>", attributes), catalogOnly);
        QVERIFY(file);
        QCOMPARE(file->getLanguage(), language);
        QCOMPARE(file->getDisplayName(), displayName);
        QCOMPARE(file->getCodePage(), codePage);
        QCOMPARE(file->getRightToLeft(), rightToLeft);
        QCOMPARE(file->getVersion(), version);
        QVERIFY(file->getCatalogExtra().isNull());
        QCOMPARE(file->getIsFullyLoaded(), !catalogOnly);
        QCOMPARE(file->hasNode(QStringLiteral("STR_A")), !catalogOnly);
    }
}

void tst_XmlLanguageFile::catalogOnlyStopsAtTheCatalog()
{
    // Broken right after the catalog: a catalog-only load must not even look that far.
    const QByteArray xml = "<catalog language=\"en_US\"><strings><entry handle=\"A\"></strings><<<";
    WarningCounter warnings;
    const auto file = load(xml, true);
    QVERIFY(file);
    QCOMPARE(warnings.getCount(), 0);
    QCOMPARE(file->getLanguage(), QStringLiteral("en_US"));
    QVERIFY(file->getNodes().isEmpty());
}

void tst_XmlLanguageFile::brokenDocumentKeepsWhatWasRead()
{
    const QByteArray xml
        = document("<entry handle=\"A\"><string default=\"true\"><visual>ok</visual></string>"
                   "</entry><entry handle=\"B\"></mismatch>");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("mismatch|Opening and ending tag")));
    const auto file = load(xml);
    QVERIFY(file);
    QCOMPARE(file->getNode(QStringLiteral("STR_A"))->getText(), QStringLiteral("ok"));
    QVERIFY(file->hasNode(QStringLiteral("STR_B")));
    QVERIFY(file->getIsFullyLoaded());
}

void tst_XmlLanguageFile::unopenable_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("empty path") << QString();
    QTest::newRow("missing file") << QStringLiteral("/nonexistent/en_US.glx");
}

void tst_XmlLanguageFile::unopenable()
{
    QFETCH(QString, path);

    for (const bool catalogOnly : { false, true }) {
        QString error;
        QVERIFY(!XmlLanguageFile::load(path, catalogOnly, &error));
        QCOMPARE(error, QStringLiteral("unknown error"));
    }
}

QTEST_GUILESS_MAIN(tst_XmlLanguageFile)

#include "tst_xmllanguagefile.moc"
