#include "frame/HmiCoreGlobal.h"
#include "frame/HmiCoreModule.h"
#include "handles/HandleColor.h"

#include "common/MessageLog.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QtTest>

using Hmi::Core::HmiCoreGlobal;
using Hmi::Core::HmiCoreModule;

namespace {

QObject* create(QQmlComponent& aComponent, const QString& aType)
{
    aComponent.setData(QStringLiteral("import Hmi.Core 1.0\n%1 {}\n").arg(aType).toUtf8(), QUrl());
    return aComponent.isReady() ? aComponent.create() : nullptr;
}

} // namespace

class tst_QmlModule : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        HmiCoreModule::registerTypes();
        // A second registration must not register anything twice.
        HmiCoreModule::registerTypes();
        QVERIFY(qmlTypeId("Hmi.Core", 1, 0, "ObjectFactory") >= 0);
        mEngine.reset(new QQmlEngine);
    }

    void createFromQml()
    {
        // The first document that imports the module also loads its file singleton, which must not
        // import the module itself: the type loader would report a cyclic dependency every time.
        const MessageLog warnings;
        QQmlComponent component(mEngine.data());
        QScopedPointer<QObject> object(create(component, QStringLiteral("HandleColor")));
        QVERIFY2(object, qPrintable(component.errorString()));
        QCOMPARE(object->metaObject()->className(), "Hmi::Core::HandleColor");
        QCOMPARE(warnings.getCount(), 0);

        // tst_module.qml tries the other types that QML must not create.
        QVERIFY(!create(component, QStringLiteral("ObjectListModelBase")));
        QVERIFY2(component.errorString().contains(QLatin1String("Can't create ObjectListModelBase in QML")),
            qPrintable(component.errorString()));
    }

    void hmiCoreIsOneObjectForAllEngines()
    {
        // Created natively first, as the start-up does before any QML is loaded.
        QPointer<HmiCoreGlobal> native(&HmiCoreGlobal::getInstance());
        const int typeId = qmlTypeId("Hmi.Core", 1, 0, "HmiCore");
        QVERIFY(typeId >= 0);
        {
            QQmlEngine first;
            QQmlEngine second;
            QCOMPARE(first.singletonInstance<HmiCoreGlobal*>(typeId), native.data());
            // Qt's notice that the shared object already lives in the first engine's context.
            QTest::ignoreMessage(
                QtWarningMsg, "QQmlEngine::setContextForObject(): Object already has a QQmlContext");
            QCOMPARE(second.singletonInstance<HmiCoreGlobal*>(typeId), native.data());
        }
        // The engines took it over and deleted it with them.
        QVERIFY(native.isNull());

        // The tracker forgot the deleted object, so native code gets a new one rather than a
        // dangling pointer.
        QTest::ignoreMessage(QtWarningMsg,
            "Setting a new instance after the initial instance was destroyed is strongly discouraged!");
        QVERIFY(HmiCoreGlobal::getInstance().configs());
    }

private:
    QScopedPointer<QQmlEngine> mEngine;
};

QTEST_GUILESS_MAIN(tst_QmlModule)

#include "tst_qmlmodule.moc"
