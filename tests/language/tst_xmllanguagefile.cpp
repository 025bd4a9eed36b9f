#include "language/NodeText.h"
#include "language/XmlLanguageFile.h"

#include "common/Encoding.h"
#include "common/MessageLog.h"

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
    void keys_data()
    {
        QTest::addColumn<QByteArray>("strings");
        QTest::addColumn<QStringList>("keys");

        // clang-format off
        QTest::newRow("outside any section") << QByteArray("<entry handle=\"A\"/>") << QStringList { "STR_A" };
        QTest::newRow("section default adds nothing")
            << QByteArray("<section name=\"default\"><entry handle=\"A\"/></section>") << QStringList { "STR_A" };
        QTest::newRow("section name is case-sensitive")
            << QByteArray("<section name=\"Default\"><entry handle=\"A\"/></section>")
            << QStringList { "STR_Default_A" };
        QTest::newRow("nested sections append")
            << QByteArray("<section name=\"A\"><section name=\"B\"><entry handle=\"X\"/></section></section>")
            << QStringList { "STR_A_B_X" };
        QTest::newRow("end of inner section resets to STR_")
            << QByteArray("<section name=\"A\"><section name=\"B\"/><entry handle=\"X\"/></section>")
            << QStringList { "STR_X" };
        QTest::newRow("default inside a named section")
            << QByteArray("<section name=\"A\"><section name=\"default\"><entry handle=\"X\"/></section></section>")
            << QStringList { "STR_A_X" };
        QTest::newRow("prefix does not leak into the next section")
            << QByteArray("<section name=\"A\"><entry handle=\"X\"/></section>"
                          "<section name=\"B\"><entry handle=\"Y\"/></section><entry handle=\"Z\"/>")
            << QStringList { "STR_A_X", "STR_B_Y", "STR_Z" };
        QTest::newRow("entry without handle creates nothing")
            << QByteArray("<entry/><entry handle=\"\"/>") << QStringList { "STR_" };
        // clang-format on
    }

    void keys()
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

    void texts_data()
    {
        // The node under test is STR_A; a null expectation means no text was kept.
        QTest::addColumn<QByteArray>("strings");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("pronunciation");
        // Speech recognition, TTS and visual, as "010".
        QTest::addColumn<QString>("usage");

        const auto a
            = [](const char* aBody) { return "<entry handle=\"A\">" + QByteArray(aBody) + "</entry>"; };
        const QString none;
        // clang-format off
        QTest::newRow("nothing given") << a("") << none << none << "001";
        QTest::newRow("default string is kept")
            << a("<string default=\"true\"><visual>Hi</visual><pronunciation>hai</pronunciation></string>")
            << "Hi" << "hai" << "001";
        QTest::newRow("other strings are not")
            << a("<string><visual>Hi</visual><pronunciation>hai</pronunciation></string>"
                 "<string default=\"false\"><visual>Ho</visual></string>") << none << none << "001";
        QTest::newRow("default is case-sensitive")
            << a("<string default=\"TRUE\"><visual>Hi</visual></string>") << none << none << "001";
        QTest::newRow("translation after the default does not replace it")
            << a("<string default=\"true\"><visual>Hi</visual></string><string><visual>Salut</visual></string>")
            << "Hi" << none << "001";
        QTest::newRow("flag ends with its string")
            << a("<string default=\"true\"/><visual>Hi</visual>") << none << none << "001";
        QTest::newRow("string without the attribute keeps the flag")
            << a("<string default=\"true\"><string><visual>Hi</visual></string><visual>lost</visual></string>")
            << "Hi" << none << "001";
        QTest::newRow("usage applies from any string")
            << a("<string><usage speechrec=\"true\" tts=\"true\" visual=\"false\"/></string>") << none << none << "110";
        QTest::newRow("absent usage attributes keep their values")
            << a("<string><usage tts=\"true\"/></string>") << none << none << "011";
        QTest::newRow("usage values are case-sensitive")
            << a("<string><usage speechrec=\"True\" visual=\"1\"/></string>") << none << none << "000";
        QTest::newRow("backslash-n breaks the text, not the pronunciation")
            << a("<string default=\"true\"><visual>a\\nb\\n</visual><pronunciation>a\\nb</pronunciation></string>")
            << "a\nb\n" << "a\\nb" << "001";
        QTest::newRow("entry without handle writes into the previous node")
            << a("<string default=\"true\"><visual>first</visual></string>") + "<entry><string default=\"true\">"
               "<visual>second</visual></string><string><usage tts=\"true\"/></string></entry>"
            << "second" << none << "011";
        QTest::newRow("a repeated key starts afresh")
            << a("<string default=\"true\"><visual>old</visual></string><string><usage tts=\"true\"/></string>")
               + a("<string default=\"true\"><pronunciation>new</pronunciation></string>")
            << none << "new" << "001";
        QTest::newRow("strings before the first entry go nowhere")
            << "<string default=\"true\"><visual>x</visual><usage tts=\"true\"/></string>" + a("")
            << none << none << "001";
        // clang-format on
    }

    void texts()
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

    void catalog_data()
    {
        QTest::addColumn<QByteArray>("attributes");
        // Language, display name, code page, right-to-left and version.
        QTest::addColumn<QStringList>("expected");

        // clang-format off
        QTest::newRow("all given")
            << QByteArray("codepage=\"1256\" direction=\"1\" language=\"ar_SA\" display_name=\"Arabic\" "
                          "file_version=\"2.5\"")
            << QStringList { "ar_SA", "Arabic", "1256", "1", "2.5" };
        QTest::newRow("none given") << QByteArray() << QStringList { "", "", "", "0", "1" };
        QTest::newRow("negative direction") << QByteArray("direction=\"-1\"") << QStringList { "", "", "", "1", "1" };
        QTest::newRow("direction is base 10")
            << QByteArray("direction=\"0x1\"") << QStringList { "", "", "", "0", "1" };
        QTest::newRow("attribute names are case-sensitive")
            << QByteArray("Language=\"de_DE\" DIRECTION=\"1\" displayName=\"Deutsch\"")
            << QStringList { "", "", "", "0", "1" };
        // clang-format on
    }

    void catalog()
    {
        QFETCH(QByteArray, attributes);
        QFETCH(QStringList, expected);

        for (const bool catalogOnly : { false, true }) {
            const auto file = load(document("<entry handle=\"A\"/>", attributes), catalogOnly);
            QVERIFY(file);
            const QStringList actual { file->getLanguage(), file->getDisplayName(), file->getCodePage(),
                QString::number(file->getRightToLeft()), QString::number(file->getVersion()) };
            QCOMPARE(actual, expected);
            QCOMPARE(file->getIsFullyLoaded(), !catalogOnly);
            QCOMPARE(file->hasNode(QStringLiteral("STR_A")), !catalogOnly);
        }
    }

    void encodings_data()
    {
        QTest::addColumn<QByteArray>("encoding");

        for (const char* encoding : { "UTF-8", "UTF-8 BOM", "UTF-16LE", "UTF-16BE", "UTF-16LE no BOM" }) {
            QTest::newRow(encoding) << QByteArray(encoding);
        }
    }

    void encodings()
    {
        QFETCH(QByteArray, encoding);

        // U+010D, U+0D0A and U+4E0D each hold a 0x0D byte in UTF-16, which text mode would drop.
        const QString text = QStringLiteral("\u010D\u0D0A\u4E0D\u0D0D");
        const QString xml
            = QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>\r\n"
                             "<catalog display_name=\"%2\"><strings>\r\n"
                             "<entry handle=\"%2\"><string default=\"true\"><visual>%2</visual>"
                             "</string></entry>\r\n<entry handle=\"B\"/></strings></catalog>\r\n")
                  .arg(QLatin1String(encoding.startsWith("UTF-8") ? "UTF-8" : "UTF-16"), text);
        MessageLog warnings;
        const auto file = load(encode(xml, encoding));
        QVERIFY(file);
        QCOMPARE(warnings.getCount(), 0);
        QCOMPARE(file->getDisplayName(), text);
        QCOMPARE(file->getNodes().keys().size(), 2);
        const auto node = file->getNode(QStringLiteral("STR_") + text);
        QVERIFY(node);
        QCOMPARE(node->getText(), text);
        QVERIFY(file->hasNode(QStringLiteral("STR_B")));
    }

    void longSectionName_data()
    {
        QTest::addColumn<QByteArray>("strings");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QByteArray>("warning");

        const QByteArray longest(XmlLanguageFile::sMaxPrefixLength - 5, 'L');
        const QByteArray tooLong = longest + 'L';
        const auto section = [](const QByteArray& aName, const QByteArray& aBody) {
            return "<section name=\"" + aName + "\">" + aBody + "</section>";
        };
        const auto skipped = [](const QByteArray& aShownName) {
            return "WARNING: Skipping the texts of section \"" + aShownName
                + "\": their keys would start with more than 256 characters.";
        };
        QByteArray nested = "<entry handle=\"X\"/>";
        for (int i = 0; i < 26; ++i) {
            nested = section("NESTED___", nested);
        }
        // clang-format off
        QTest::newRow("longest name") << section(longest, "<entry handle=\"X\"/>")
                                      << QStringList { "STR_" + longest + "_X" } << QByteArray();
        QTest::newRow("one character more")
            << section(tooLong, "<entry handle=\"X\"/><entry handle=\"Y\"/>") + "<entry handle=\"Z\"/>"
            << QStringList { "STR_Z" } << skipped(QByteArray(64, 'L') + "...");
        QTest::newRow("nested beyond the limit") << nested << QStringList {} << skipped("NESTED___");
        QTest::newRow("texts of a skipped entry do not reach the one before")
            << "<entry handle=\"A\"/>" + section(tooLong, "<entry handle=\"X\"><string default=\"true\">"
                                                      "<visual>lost</visual></string></entry>")
            << QStringList { "STR_A" } << skipped(QByteArray(64, 'L') + "...");
        // clang-format on
    }

    void longSectionName()
    {
        QFETCH(QByteArray, strings);
        QFETCH(QStringList, keys);
        QFETCH(QByteArray, warning);

        if (!warning.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg, warning.constData());
        }
        MessageLog warnings;
        const auto file = load(document(strings));
        QVERIFY(file);
        QCOMPARE(warnings.getCount(), warning.isEmpty() ? 0 : 1);
        QStringList actual = file->getNodes().keys();
        actual.sort();
        QCOMPARE(actual, keys);
        if (file->hasNode(QStringLiteral("STR_A"))) {
            QVERIFY(file->getNode(QStringLiteral("STR_A"))->getText().isNull());
        }
    }

    void catalogOnlyStopsAtTheCatalog()
    {
        // Broken right after the catalog: a catalog-only load must not even look that far.
        const QByteArray xml = "<catalog language=\"en_US\"><strings><entry handle=\"A\"></strings><<<";
        MessageLog warnings;
        const auto file = load(xml, true);
        QVERIFY(file);
        QCOMPARE(warnings.getCount(), 0);
        QCOMPARE(file->getLanguage(), QStringLiteral("en_US"));
        QVERIFY(file->getNodes().isEmpty());
    }

    void brokenDocumentKeepsWhatWasRead()
    {
        const QByteArray xml
            = document("<entry handle=\"A\"><string default=\"true\"><visual>ok</visual></string>"
                       "</entry><entry handle=\"B\"></mismatch>");
        QTest::ignoreMessage(
            QtWarningMsg, QRegularExpression(QStringLiteral("mismatch|Opening and ending tag")));
        const auto file = load(xml);
        QVERIFY(file);
        QCOMPARE(file->getNode(QStringLiteral("STR_A"))->getText(), QStringLiteral("ok"));
        QVERIFY(file->hasNode(QStringLiteral("STR_B")));
        QVERIFY(file->getIsFullyLoaded());
    }

    void unopenable()
    {
        for (const QString& path : { QString(), QStringLiteral("/nonexistent/en_US.glx") }) {
            for (const bool catalogOnly : { false, true }) {
                QString error;
                QVERIFY(!XmlLanguageFile::load(path, catalogOnly, &error));
                QCOMPARE(error, QStringLiteral("unknown error"));
            }
        }
    }

private:
    QSharedPointer<XmlLanguageFile> load(const QByteArray& aXml, bool aCatalogOnly = false)
    {
        const QString path = mDirectory.filePath(QStringLiteral("test.glx"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(aXml) != aXml.size()) {
            return {};
        }
        file.close();
        return XmlLanguageFile::load(path, aCatalogOnly);
    }

    QTemporaryDir mDirectory;
};

QTEST_GUILESS_MAIN(tst_XmlLanguageFile)

#include "tst_xmllanguagefile.moc"
