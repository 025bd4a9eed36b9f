#include "language/BinaryLanguageFile.h"
#include "language/HandleTextMutable.h"
#include "language/HandleTextResource.h"
#include "language/HandleTextWithParameters.h"
#include "language/LanguageManager.h"
#include "language/XmlLanguageFile.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Hmi::Core;

// Texts with parameters, text handles and the language manager that feeds them.
class tst_TextHandles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Copies of the fixtures plus a binary Arabic file that must win over its XML form.
        const QDir source(QFINDTESTDATA("../data/language/manager"));
        for (const QString& name : source.entryList(QDir::Files)) {
            QVERIFY(QFile::copy(source.filePath(name), mDirectory.filePath(name)));
        }
        const auto arabic = XmlLanguageFile::load(source.filePath(QStringLiteral("ar_EG.glx")), false);
        QVERIFY(arabic);
        QVERIFY(BinaryLanguageFile::save(mDirectory.filePath(QStringLiteral("ar_EG.glx.dat")), *arabic));
        // The XML form announces itself by its display name; the binary copy must be the one used.
        QFile xml(mDirectory.filePath(QStringLiteral("ar_EG.glx")));
        QVERIFY(xml.open(QIODevice::ReadWrite));
        QByteArray content = xml.readAll().replace("XML form, shadowed by the binary one", "XML form");
        xml.resize(0);
        xml.write(content);
        xml.close();

        // The XML reader's own complaint, then ours.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".")));
        QTest::ignoreMessage(QtWarningMsg,
            QRegularExpression(
                QStringLiteral("^WARNING: Language file .*broken.glx names no language; it is ignored.$")));
        LanguageManager::getInstance().setLanguagesPath(mDirectory.path());
    }

    void fill_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<int>("parameters");
        QTest::addColumn<QString>("expected");

        QTest::newRow("missing parameter stays") << "{1:9} {2:9}" << 1 << "p1 {2:9}";
        QTest::newRow("seven") << "{1:9} {2:9} {3:9} {4:9} {5:9} {6:9} {7:9}" << 7 << "p1 p2 p3 p4 p5 p6 p7";
        QTest::newRow("repeated") << "{1:9} {1:9} {2:9}" << 2 << "p1 p1 p2";
        QTest::newRow("unused parameter") << "{2:9} {3:9}" << 3 << "p2 p3";
        QTest::newRow("leading zeros and widths") << "{01:9}|{001:40}|{1:0}" << 1 << "p1|p1|p1";
        QTest::newRow("not placeholders")
            << "{10:9} {1} {1:} {1:x} 1:9}" << 1 << "{10:9} {1} {1:} {1:x} 1:9}";
        QTest::newRow("no parameters") << "{1:9}" << 0 << "{1:9}";
    }

    void fill()
    {
        QFETCH(QString, format);
        QFETCH(int, parameters);
        QFETCH(QString, expected);

        HandleTextMutable formatHandle(format, nullptr);
        std::vector<std::unique_ptr<HandleTextMutable>> handles;
        QVariantList list;
        for (int i = 1; i <= parameters; ++i) {
            handles.push_back(std::make_unique<HandleTextMutable>(QStringLiteral("p%1").arg(i), nullptr));
            list.append(QVariant::fromValue<HandleText*>(handles.back().get()));
        }
        HandleTextWithParameters text;
        QCOMPARE(text.getText(), QString());
        text.setHandle(&formatHandle);
        text.setParameters(list);
        QCOMPARE(text.getText(), expected);
    }

    void parameterInsertsPlaceholder()
    {
        HandleTextMutable format(QStringLiteral("{1:9}, {2:9}, {3:9}"), nullptr);
        HandleTextMutable name(QStringLiteral("{3:9}"), nullptr);
        HandleTextWithParameters text;
        text.setHandle(&format);
        // A placeholder inserted by parameter 1 is filled by the later parameter 3, plain values
        // are inserted as text, and a value with no text form leaves its placeholder alone.
        text.setParameters({ QVariant::fromValue<HandleText*>(&name), QVariant::fromValue(QRectF()), 42 });
        QCOMPARE(text.getText(), QStringLiteral("42, {2:9}, 42"));
    }

    void changeSignals()
    {
        HandleTextMutable format(QStringLiteral("{1:9}"), nullptr);
        HandleTextMutable other(QStringLiteral("other {1:9}"), nullptr);
        HandleTextMutable parameter(QStringLiteral("a"), nullptr);
        HandleTextWithParameters text;
        QSignalSpy handleSpy(&text, &HandleTextWithParameters::handleChanged);
        QSignalSpy textSpy(&text, &HandleText::textChanged);

        text.setHandle(&format);
        text.setParameters({ QVariant::fromValue<HandleText*>(&parameter) });
        QCOMPARE(handleSpy.count(), 1);
        QCOMPARE(textSpy.count(), 2);

        parameter.setText(QStringLiteral("b"));
        format.setText(QStringLiteral("[{1:9}]"));
        QCOMPARE(textSpy.count(), 4);
        QCOMPARE(text.getText(), QStringLiteral("[b]"));

        // The old format handle is no longer listened to.
        text.setHandle(&other);
        format.setText(QStringLiteral("ignored"));
        QCOMPARE(handleSpy.count(), 2);
        QCOMPARE(textSpy.count(), 5);
        QCOMPARE(text.getText(), QStringLiteral("other b"));

        // A null handle is ignored, not taken as a change.
        text.setHandle(nullptr);
        text.setHandle(&other);
        QCOMPARE(handleSpy.count(), 2);
        QCOMPARE(textSpy.count(), 5);

        QSignalSpy parametersSpy(&text, &HandleTextWithParameters::parametersChanged);
        text.setParameters({ QVariant::fromValue<HandleText*>(&parameter) });
        QCOMPARE(parametersSpy.count(), 0);
        text.setParameters({ 1, QStringLiteral("x") });
        text.setParameters({ 1, QStringLiteral("x") });
        QCOMPARE(parametersSpy.count(), 1);
    }

    // tst_texts.qml switches between XML files, with parameters; here the Arabic file is binary.
    void switchLanguage()
    {
        LanguageManager& manager = LanguageManager::getInstance();
        QCOMPARE(manager.getLanguageIdentifiers(), (QStringList { "ar_EG", "de_DE", "en_US" }));
        const QVariantMap arabic = manager.getLanguages().at(0).toMap();
        QCOMPARE(arabic.value(QStringLiteral("displayName")).toString(),
            QStringLiteral("XML form, shadowed by the binary one"));
        QVERIFY(arabic.value(QStringLiteral("rightToLeft")).toBool());
        QVERIFY(arabic.value(QStringLiteral("path")).toString().endsWith(QLatin1String(".glx.dat")));

        QVERIFY(manager.setCurrentLanguage(QStringLiteral("en_US")));
        HandleTextResource greeting;
        greeting.setName(QStringLiteral("STR_GREETING"));
        QCOMPARE(greeting.getText(), QStringLiteral("Hello {1:20}"));
        QVERIFY(!manager.getRightToLeft());

        QSignalSpy greetingSpy(&greeting, &HandleText::textChanged);
        QSignalSpy languageSpy(&manager, &LanguageManager::currentLanguageChanged);
        QVERIFY(manager.setCurrentLanguage(QStringLiteral("ar_EG")));
        QCOMPARE(greeting.getText(), QStringLiteral("مرحبا {1:20}"));
        QVERIFY(manager.getRightToLeft());
        // Choosing the current language again is not a switch.
        QVERIFY(manager.setCurrentLanguage(QStringLiteral("ar_EG")));
        QCOMPARE(greetingSpy.count(), 1);
        QCOMPARE(languageSpy.count(), 1);
    }

    void missingTextWarnsOncePerLanguage()
    {
        LanguageManager& manager = LanguageManager::getInstance();
        QVERIFY(manager.setCurrentLanguage(QStringLiteral("en_US")));
        HandleTextResource first;
        HandleTextResource second;
        first.setName(QStringLiteral("STR_ONLY_GERMAN"));
        second.setName(QStringLiteral("STR_ONLY_GERMAN"));
        QVERIFY(!first.getNameExists());

        QTest::ignoreMessage(QtWarningMsg, "WARNING: Text STR_ONLY_GERMAN was not found in language en_US.");
        QCOMPARE(first.getText(), QString());
        QCOMPARE(second.getText(), QString());
        QCOMPARE(first.getText(), QString());

        QSignalSpy existsSpy(&first, &HandleTextResource::nameExistsChanged);
        QVERIFY(manager.setCurrentLanguage(QStringLiteral("de_DE")));
        QCOMPARE(existsSpy.count(), 1);
        QVERIFY(first.getNameExists());
        QCOMPARE(first.getText(), QStringLiteral("Nur deutsch"));
    }

private:
    QTemporaryDir mDirectory;
};

QTEST_GUILESS_MAIN(tst_TextHandles)

#include "tst_texthandles.moc"
