#include "frame/InstanceTracker.h"
#include "frame/SingletonCpp.h"
#include "frame/SingletonCppQml.h"
#include "frame/SingletonQml.h"

#include "common/MessageLog.h"

#include <QPointer>
#include <QQmlEngine>
#include <QtTest>

using Hmi::Core::InstanceTracker;
using Hmi::Core::SingletonCpp;
using Hmi::Core::SingletonCppQml;
using Hmi::Core::SingletonQml;

namespace {

// Every construction ("+Name") and destruction ("-Name") of the test singletons, in order.
QStringList sLog;

class NativeFirst final : public SingletonCpp<NativeFirst>
{
public:
    NativeFirst(QQmlEngine*, QJSEngine*) { sLog << QStringLiteral("+NativeFirst"); }
    ~NativeFirst() { sLog << QStringLiteral("-NativeFirst"); }
};

class NativeSecond final : public SingletonCpp<NativeSecond>
{
public:
    NativeSecond(QQmlEngine*, QJSEngine*) { sLog << QStringLiteral("+NativeSecond"); }
    ~NativeSecond() { sLog << QStringLiteral("-NativeSecond"); }
};

// Shared<1> first comes from a QML engine, Shared<2> from native code.
template <int N> class Shared final : public QObject, public SingletonCppQml<Shared<N>>
{
public:
    Shared(QQmlEngine* aEngine, QJSEngine*)
        : mEngine(aEngine)
    {
        sLog << QStringLiteral("+Shared%1").arg(N);
    }
    ~Shared() override { sLog << QStringLiteral("-Shared%1").arg(N); }

    QQmlEngine* const mEngine;
};

class PerEngine final : public QObject, public SingletonQml<PerEngine>
{
public:
    PerEngine(QQmlEngine* aEngine, QJSEngine*)
        : mEngine(aEngine)
    {
        sLog << QStringLiteral("+PerEngine");
    }
    ~PerEngine() override { sLog << QStringLiteral("-PerEngine"); }

    QQmlEngine* const mEngine;
};

} // namespace

// The trackers are process-wide and the registry remembers every tracker ever used, so the
// slots build on each other: NativeFirst, then the Shared ones, then NativeSecond come into being.
class tst_Singletons : public QObject
{
    Q_OBJECT

private slots:
    void getInstanceCreatesOnce()
    {
        const MessageLog warnings;
        NativeFirst& first = NativeFirst::getInstance();
        QCOMPARE(&NativeFirst::getInstance(), &first);
        QCOMPARE(sLog, QStringList { "+NativeFirst" });
        QCOMPARE(warnings.getCount(), 0);
    }

    void qmlProviderSharesTheNativeInstance()
    {
        QQmlEngine engine;
        QQmlEngine otherEngine;
        sLog.clear();

        Shared<1>* fromQml = Shared<1>::registerInstance(&engine, &engine);
        QVERIFY(fromQml);
        QCOMPARE(fromQml->mEngine, &engine);
        QCOMPARE(&Shared<1>::getInstance(), fromQml);
        QCOMPARE(Shared<1>::registerInstance(&otherEngine, &otherEngine), fromQml);

        Shared<2>& native = Shared<2>::getInstance();
        QCOMPARE(Shared<2>::registerInstance(&engine, &engine), &native);
        QCOMPARE(sLog, (QStringList { "+Shared1", "+Shared2" }));
        // These engines never saw the objects, so nobody deletes them: they stay for the next slots,
        // where tear-down must leave them alone because QML owns them.
    }

    void qmlOnlySingletonIsPerEngine()
    {
        QQmlEngine engine;
        QQmlEngine otherEngine;
        QScopedPointer<PerEngine> first(PerEngine::registerInstance(&engine, &engine));
        QScopedPointer<PerEngine> second(PerEngine::registerInstance(&otherEngine, &otherEngine));

        QVERIFY(first && second);
        QVERIFY(first.data() != second.data());
        QCOMPARE(first->mEngine, &engine);
        QCOMPARE(second->mEngine, &otherEngine);
    }

    void tearDownDestroysInReverseOrderOfCreation()
    {
        NativeSecond::getInstance();
        QPointer<QObject> sharedFromQml(&Shared<1>::getInstance());
        QPointer<QObject> sharedFromNative(&Shared<2>::getInstance());
        // Not tracked: tear-down must not delete what its engine owns.
        QScopedPointer<PerEngine> perEngine(PerEngine::registerInstance(nullptr, nullptr));
        sLog.clear();

        InstanceTracker::tearDown();

        QCOMPARE(sLog, (QStringList { "-NativeSecond", "-NativeFirst" }));
        QVERIFY(sharedFromQml && sharedFromNative);
        QVERIFY(perEngine);
    }

    void recreatingAfterTearDownWarns()
    {
        sLog.clear();
        QTest::ignoreMessage(QtWarningMsg,
            "Setting a new instance after the initial instance was destroyed is strongly discouraged!");
        NativeFirst& again = NativeFirst::getInstance();
        QCOMPARE(&NativeFirst::getInstance(), &again);
        QCOMPARE(sLog, QStringList { "+NativeFirst" });
    }

    void cleanupTestCase()
    {
        // No engine here owns the shared instances; delete them as their engine would.
        delete &Shared<1>::getInstance();
        delete &Shared<2>::getInstance();
    }
};

QTEST_GUILESS_MAIN(tst_Singletons)

#include "tst_singletons.moc"
