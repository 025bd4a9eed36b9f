#include <QAbstractMessageHandler>
#include <QFile>
#include <QXmlSchema>
#include <QXmlSchemaValidator>
#include <QtTest>

class tst_KbdSchema : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void fixtures_data();
    void fixtures();
    void rules_data();
    void rules();

private:
    QXmlSchema mSchema;
};

namespace {

// Keeps validation reports out of the log; a test row only cares whether the file passes.
class SilentHandler final : public QAbstractMessageHandler
{
protected:
    void handleMessage(QtMsgType, const QString&, const QUrl&, const QSourceLocation&) override { }
};

SilentHandler sHandler;

const QString sKey
    = QStringLiteral("<key x='0' y='0' w='1' h='1' type='normal'><levels><level id='0'/></levels></key>");
const QString sHeader = QStringLiteral("<header><lang_id>en_US</lang_id><display_name>E</display_name>"
                                       "<trans_name>T</trans_name><code_page>1252</code_page>"
                                       "<version>1.0</version></header>");

QString group(const QString& aKeys)
{
    return QStringLiteral("<group name='g' layout_type='alpha'><keyboard name='k'>") + aKeys
        + QStringLiteral("</keyboard></group>");
}

QString keyboards(const QString& aBody)
{
    return QStringLiteral("<keyboards>") + aBody + QStringLiteral("</keyboards>");
}

QString withLevel(const QString& aLevel)
{
    return keyboards(group(QStringLiteral("<key x='0' y='0' w='1' h='1' type='normal'><levels>") + aLevel
        + QStringLiteral("</levels></key>")));
}

} // namespace

void tst_KbdSchema::initTestCase()
{
    // Nothing else here references the library, so pull its resources in explicitly.
    Q_INIT_RESOURCE(HmiCore);
    QFile file(QStringLiteral(":/Hmi/Core/kbd-schema.xsd"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    mSchema.setMessageHandler(&sHandler);
    QVERIFY(mSchema.load(&file, QUrl(QStringLiteral("qrc:/Hmi/Core/kbd-schema.xsd"))));
    QVERIFY(mSchema.isValid());
}

void tst_KbdSchema::fixtures_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("valid");

    QTest::newRow("every element and attribute") << "valid.kbd" << true;
    QTest::newRow("key without levels") << "invalid_key_without_levels.kbd" << false;
    QTest::newRow("header without code page") << "invalid_header_incomplete.kbd" << false;
}

void tst_KbdSchema::fixtures()
{
    QFETCH(QString, file);
    QFETCH(bool, valid);

    const QString path = QFINDTESTDATA(QStringLiteral("../data/keyboards/") + file);
    QVERIFY(!path.isEmpty());
    QFile input(path);
    QVERIFY(input.open(QIODevice::ReadOnly));
    QXmlSchemaValidator validator(mSchema);
    validator.setMessageHandler(&sHandler);
    QCOMPARE(validator.validate(&input, QUrl::fromLocalFile(path)), valid);
}

void tst_KbdSchema::rules_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<bool>("valid");

    QTest::newRow("no header") << keyboards(group(sKey)) << true;
    QTest::newRow("header then groups") << keyboards(sHeader + group(sKey) + group(sKey)) << true;
    QTest::newRow("header twice") << keyboards(sHeader + sHeader + group(sKey)) << false;
    QTest::newRow("header after group") << keyboards(group(sKey) + sHeader) << false;
    QTest::newRow("no group") << keyboards(sHeader) << false;
    QTest::newRow("other root") << group(sKey) << false;
    QTest::newRow("code page not a number")
        << keyboards(QString(sHeader).replace("1252", "cp1252") + group(sKey)) << false;
    QTest::newRow("group without layout_type")
        << keyboards("<group name='g'><keyboard name='k'>" + sKey + "</keyboard></group>") << false;
    QTest::newRow("group flag not boolean") << keyboards(
        "<group name='g' layout_type='a' wide_screen_only='yes'><keyboard name='k'>" + sKey
        + "</keyboard></group>") << false;
    QTest::newRow("keyboard without key") << keyboards(group(QString())) << false;
    QTest::newRow("keyboard without name")
        << keyboards("<group name='g' layout_type='a'><keyboard>" + sKey + "</keyboard></group>") << false;
    QTest::newRow("key without h") << keyboards(
        group("<key x='0' y='0' w='1' type='normal'><levels><level id='0'/></levels></key>"))
                                   << false;
    QTest::newRow("key position not integer") << keyboards(
        group("<key x='0.5' y='0' w='1' h='1' type='normal'><levels><level id='0'/></levels></key>"))
                                              << false;
    QTest::newRow("display style submit")
        << keyboards(group("<key x='0' y='0' w='1' h='1' type='normal' display_style='submit'>"
                           "<levels><level id='0'/></levels></key>"))
        << true;
    QTest::newRow("display style unknown")
        << keyboards(group("<key x='0' y='0' w='1' h='1' type='normal' display_style='bold'>"
                           "<levels><level id='0'/></levels></key>"))
        << false;
    QTest::newRow("key attribute unknown")
        << keyboards(group("<key x='0' y='0' w='1' h='1' type='normal' colour='red'>"
                           "<levels><level id='0'/></levels></key>"))
        << false;
    QTest::newRow("two levels elements")
        << keyboards(group("<key x='0' y='0' w='1' h='1' type='normal'>"
                           "<levels><level id='0'/></levels><levels><level id='1'/></levels></key>"))
        << false;
    QTest::newRow("empty levels") << withLevel(QString()) << false;
    QTest::newRow("level without id") << withLevel("<level label='a'/>") << false;
    QTest::newRow("level id list") << withLevel("<level id='0,1' label='a' highlighted='true'/>") << true;
    QTest::newRow("level highlighted not boolean") << withLevel("<level id='0' highlighted='yes'/>") << false;
    QTest::newRow("custom with and without name")
        << withLevel("<level id='0'><custom name='hint'>x</custom><custom>y</custom></level>") << true;
    QTest::newRow("custom with children")
        << withLevel("<level id='0'><custom name='hint'><b/></custom></level>") << false;
}

void tst_KbdSchema::rules()
{
    QFETCH(QString, xml);
    QFETCH(bool, valid);

    QXmlSchemaValidator validator(mSchema);
    validator.setMessageHandler(&sHandler);
    QCOMPARE(validator.validate(xml.toUtf8()), valid);
}

QTEST_GUILESS_MAIN(tst_KbdSchema)
#include "tst_kbdschema.moc"
