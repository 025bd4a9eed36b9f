#include "frame/ApplicationViewPolicyBase.h"
#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "frame/HmiCoreModule.h"
#include "frame/TonePolicyBase.h"
#include "handles/HandleColor.h"
#include "handles/HandleText.h"
#include "models/QVariantObjectListModel.h"

#include <QGuiApplication>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QtTest>

using namespace Hmi::Core;

namespace {

class CountingViewPolicy final : public ApplicationViewPolicyBase
{
public:
    void initialize() override { ++mInitializeCount; }
    int mInitializeCount = 0;
};

class RecordingTonePolicy final : public TonePolicyBase
{
public:
    QList<Tone> mTones;

protected:
    void playTone(Tone aTone) override { mTones << aTone; }
};

} // namespace

// Needs a GUI application: QML items, fonts and style hints.
class tst_HmiCoreGlobal : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // As at start-up: the registration also makes the pointer types of the properties known.
        HmiCoreModule::registerTypes();
        mGlobal = &HmiCoreGlobal::getInstance();
    }

    void qmlType_data()
    {
        QTest::addColumn<QObject*>("object");
        QTest::addColumn<QString>("qmlType");
        QTest::addColumn<QStringList>("isA");
        QTest::addColumn<QStringList>("isNot");

        const QByteArray rectangleQml = "import QtQuick 2.15\nRectangle {}";
        // A type defined by a file: its class name is "HmiText_QMLTYPE_<n>".
        QQmlComponent fileComponent(
            &mEngine, QUrl::fromLocalFile(QFINDTESTDATA("../data/frame/HmiText.qml")));
        QObject* hmiText = keep(fileComponent.create());
        QVERIFY(hmiText && QByteArray(hmiText->metaObject()->className()).startsWith("HmiText_QMLTYPE_"));
        // An inline object that declares properties gets a class name such as "QObject_QML_3".
        QObject* inlineObject = createFromQml("import QtQml 2.15\nQtObject { property int extra }");
        QVERIFY(inlineObject && QByteArray(inlineObject->metaObject()->className()).contains("_QML_"));

        QTest::newRow("null") << static_cast<QObject*>(nullptr) << "" << QStringList()
                              << QStringList { "QObject" };
        QTest::newRow("namespaced class")
            << keep(new HandleColor) << "HandleColor" << QStringList { "HandleColor", "QObject" }
            << QStringList { "Rectangle", "Item" };
        QTest::newRow("Qt Quick item")
            << createFromQml(rectangleQml) << "Rectangle" << QStringList { "Rectangle", "Item", "QObject" }
            << QStringList { "item", "QQuickItem", "QQuickRectangle" };
        QTest::newRow("component file") << hmiText << "HmiText" << QStringList { "HmiText", "Text", "Item" }
                                        << QStringList { "Rectangle" };
        QTest::newRow("inline type") << inlineObject << "QObject" << QStringList { "QObject" }
                                     << QStringList();
        // className stands in for every class name of the chain that has no better name.
        QTest::newRow("className") << keep(new QObject, "Custom") << "Custom" << QStringList { "Custom" }
                                   << QStringList { "QObject" };
        QTest::newRow("namespace before className")
            << keep(new HandleColor, "Custom") << "HandleColor" << QStringList { "HandleColor", "Custom" }
            << QStringList { "QObject" };
        QTest::newRow("Qt Quick prefix before className")
            << keep(createFromQml(rectangleQml), "Custom") << "Rectangle" << QStringList { "Item", "Custom" }
            << QStringList { "QObject" };
    }

    void qmlType()
    {
        QFETCH(QObject*, object);
        QFETCH(QString, qmlType);
        QFETCH(QStringList, isA);
        QFETCH(QStringList, isNot);

        QCOMPARE(mGlobal->getQmlType(object), qmlType);
        for (const QString& type : qAsConst(isA)) {
            QVERIFY2(mGlobal->isQmlType(object, type), qPrintable(type));
        }
        for (const QString& type : qAsConst(isNot)) {
            QVERIFY2(!mGlobal->isQmlType(object, type), qPrintable(type));
        }
    }

    void applicationViewPolicyIsSetOnce()
    {
        QTest::ignoreMessage(QtWarningMsg, "Cannot set policy to nullptr.");
        mGlobal->setApplicationViewPolicy(nullptr);
        QVERIFY(!mGlobal->getApplicationViewPolicy());

        auto* first = new CountingViewPolicy;
        mGlobal->setApplicationViewPolicy(first);
        QCOMPARE(mGlobal->getApplicationViewPolicy(), first);
        QCOMPARE(first->parent(), mGlobal);
        QCOMPARE(first->mInitializeCount, 1);

        // The caller hands over every policy it offers; the refused one is deleted.
        QPointer<CountingViewPolicy> second(new CountingViewPolicy);
        QTest::ignoreMessage(QtWarningMsg, "Cannot modify application view policy at runtime.");
        mGlobal->setApplicationViewPolicy(second);
        QVERIFY(second.isNull());

        QTest::ignoreMessage(QtWarningMsg, "Cannot set policy to nullptr.");
        mGlobal->setApplicationViewPolicy(nullptr);

        QCOMPARE(mGlobal->getApplicationViewPolicy(), first);
        QCOMPARE(first->mInitializeCount, 1);
    }

    void tonesReachThePolicy()
    {
        // Without a policy the calls do nothing.
        mGlobal->playButtonTone();
        mGlobal->playButtonToneInvalid();
        mGlobal->setButtonToneMute(true);

        {
            RecordingTonePolicy tone;
            mGlobal->setTonePolicy(&tone);
            mGlobal->playButtonTone();
            mGlobal->playButtonToneInvalid();
            QCOMPARE(tone.mTones,
                (QList<TonePolicyBase::Tone> {
                    TonePolicyBase::TONE_BUTTON, TonePolicyBase::TONE_BUTTON_INVALID }));

            QVERIFY(QMetaObject::invokeMethod(mGlobal, "setButtonToneMute", Q_ARG(bool, true)));
            QVERIFY(tone.isButtonToneMute());
            mGlobal->playButtonTone();
            QCOMPARE(tone.mTones.size(), 2);
        }
        // The policy is not owned; once the application deleted it, calls must not reach it.
        mGlobal->playButtonTone();
        mGlobal->setButtonToneMute(false);
    }

    void setDefaultFont()
    {
        QSignalSpy spy(mGlobal, &HmiCoreGlobal::defaultFontChanged);
        QFont font(QStringLiteral("Hmi Test Font"), 17);

        mGlobal->setDefaultFont(font);
        mGlobal->setDefaultFont(font);
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.at(1).at(0).value<QFont>(), font);
        QCOMPARE(QGuiApplication::font().family(), font.family());
        QCOMPARE(QGuiApplication::font().pointSize(), 17);

        mGlobal->setDefaultFontFamily(QStringLiteral("Other Family"));
        QCOMPARE(spy.count(), 3);
        const QFont emitted = spy.at(2).at(0).value<QFont>();
        QCOMPARE(emitted.family(), QStringLiteral("Other Family"));
        QCOMPARE(emitted.pointSize(), QFont().pointSize());
        QCOMPARE(QGuiApplication::font().family(), QStringLiteral("Other Family"));
    }

    void factories()
    {
        HmiCoreConfigs* configs = mGlobal->configs();
        QVERIFY(configs);
        QCOMPARE(configs->parent(), mGlobal);
        QCOMPARE(mGlobal->configs(), configs);

        QObject owner;
        const QVariant model = mGlobal->createQVariantObjectModel(&owner);
        auto* listModel = qobject_cast<QVariantObjectListModel*>(model.value<QObject*>());
        QVERIFY(listModel);
        QCOMPARE(listModel->parent(), &owner);

        HandleText* text = mGlobal->createHandleText(QStringLiteral("Hello"), &owner);
        QVERIFY(text);
        QCOMPARE(text->getText(), QStringLiteral("Hello"));
        QCOMPARE(text->parent(), &owner);
    }

private:
    // Objects of the data table live as long as the engine, their parent.
    QObject* keep(QObject* aObject, const char* aClassName = nullptr)
    {
        if (aObject) {
            aObject->setParent(&mEngine);
            if (aClassName) {
                aObject->setProperty("className", QString::fromLatin1(aClassName));
            }
        }
        return aObject;
    }

    QObject* createFromQml(const QByteArray& aQml)
    {
        QQmlComponent component(&mEngine);
        component.setData(aQml, QUrl());
        return keep(component.create());
    }

    HmiCoreGlobal* mGlobal = nullptr;
    QQmlEngine mEngine;
};

QTEST_MAIN(tst_HmiCoreGlobal)

#include "tst_hmicoreglobal.moc"
