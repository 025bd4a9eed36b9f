#include <QAbstractMessageHandler>
#include <QFile>
#include <QXmlSchema>
#include <QXmlSchemaValidator>
#include <QtTest>

namespace {

// Keeps validation reports out of the log; a test row only cares whether the file passes.
class SilentHandler final : public QAbstractMessageHandler
{
protected:
    void handleMessage(QtMsgType, const QString&, const QUrl&, const QSourceLocation&) override { }
};

SilentHandler sHandler;

const QString sHeader = QStringLiteral("<header><lang_id>en_US</lang_id><display_name>E</display_name>"
                                       "<trans_name>T</trans_name><code_page>1252</code_page>"
                                       "<version>1.0</version></header>");

// A key with the given extra attributes and levels, the only one of its keyboard and group.
QString key(const QString& aAttributes, const QString& aLevels = QStringLiteral("<level id='0'/>"))
{
    return QStringLiteral("<key x='0' y='0' w='1' h='1' type='normal'%1><levels>%2</levels></key>")
        .arg(aAttributes, aLevels);
}

QString group(const QString& aKeys, const QString& aGroup = QStringLiteral("name='g' layout_type='alpha'"),
    const QString& aKeyboard = QStringLiteral("name='k'"))
{
    return QStringLiteral("<group %1><keyboard %2>%3</keyboard></group>").arg(aGroup, aKeyboard, aKeys);
}

QString keyboards(const QString& aBody)
{
    return QStringLiteral("<keyboards>") + aBody + QStringLiteral("</keyboards>");
}

} // namespace

class tst_KbdSchema : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Nothing else here references the library, so pull its resources in explicitly.
        Q_INIT_RESOURCE(HmiCore);
        QFile file(QStringLiteral(":/Hmi/Core/kbd-schema.xsd"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        mSchema.setMessageHandler(&sHandler);
        QVERIFY(mSchema.load(&file, QUrl(QStringLiteral("qrc:/Hmi/Core/kbd-schema.xsd"))));
        QVERIFY(mSchema.isValid());
    }

    void fixtures_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("valid");

        QTest::newRow("every element and attribute") << "valid.kbd" << true;
        QTest::newRow("key without levels") << "invalid_key_without_levels.kbd" << false;
        QTest::newRow("header without code page") << "invalid_header_incomplete.kbd" << false;
    }

    void fixtures()
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

    void rules_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<bool>("valid");

        const QString k = key(QString());
        // clang-format off
        QTest::newRow("no header") << keyboards(group(k)) << true;
        QTest::newRow("header then groups") << keyboards(sHeader + group(k) + group(k)) << true;
        QTest::newRow("header twice") << keyboards(sHeader + sHeader + group(k)) << false;
        QTest::newRow("header after group") << keyboards(group(k) + sHeader) << false;
        QTest::newRow("no group") << keyboards(sHeader) << false;
        QTest::newRow("other root") << group(k) << false;
        QTest::newRow("code page not a number")
            << keyboards(QString(sHeader).replace("1252", "cp1252") + group(k)) << false;
        QTest::newRow("group without layout_type") << keyboards(group(k, "name='g'")) << false;
        QTest::newRow("group flag not boolean")
            << keyboards(group(k, "name='g' layout_type='a' wide_screen_only='yes'")) << false;
        QTest::newRow("keyboard without key") << keyboards(group(QString())) << false;
        QTest::newRow("keyboard without name") << keyboards(group(k, "name='g' layout_type='a'", "")) << false;
        QTest::newRow("key without h") << keyboards(group(QString(k).replace(" h='1'", ""))) << false;
        QTest::newRow("key position not integer") << keyboards(group(QString(k).replace("x='0'", "x='0.5'"))) << false;
        QTest::newRow("display style submit") << keyboards(group(key(" display_style='submit'"))) << true;
        QTest::newRow("display style unknown") << keyboards(group(key(" display_style='bold'"))) << false;
        QTest::newRow("key attribute unknown") << keyboards(group(key(" colour='red'"))) << false;
        QTest::newRow("two levels elements")
            << keyboards(group(QString(k).replace("</levels>", "</levels><levels><level id='1'/></levels>"))) << false;
        QTest::newRow("empty levels") << keyboards(group(key(QString(), QString()))) << false;
        QTest::newRow("level without id") << keyboards(group(key(QString(), "<level label='a'/>"))) << false;
        QTest::newRow("level id list")
            << keyboards(group(key(QString(), "<level id='0,1' label='a' highlighted='true'/>"))) << true;
        QTest::newRow("level highlighted not boolean")
            << keyboards(group(key(QString(), "<level id='0' highlighted='yes'/>"))) << false;
        QTest::newRow("custom with and without name")
            << keyboards(
                   group(key(QString(), "<level id='0'><custom name='hint'>x</custom><custom>y</custom></level>")))
            << true;
        QTest::newRow("custom with children")
            << keyboards(group(key(QString(), "<level id='0'><custom name='hint'><b/></custom></level>"))) << false;
        // clang-format on
    }

    void rules()
    {
        QFETCH(QString, xml);
        QFETCH(bool, valid);

        QXmlSchemaValidator validator(mSchema);
        validator.setMessageHandler(&sHandler);
        QCOMPARE(validator.validate(xml.toUtf8()), valid);
    }

private:
    QXmlSchema mSchema;
};

QTEST_GUILESS_MAIN(tst_KbdSchema)
#include "tst_kbdschema.moc"
