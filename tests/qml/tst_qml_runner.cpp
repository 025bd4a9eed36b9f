#include "frame/HmiCoreInitializer.h"
#include "frame/HmiCoreModule.h"

#include <QQmlEngine>
#include <QtQuickTest>

class Setup : public QObject
{
    Q_OBJECT

public slots:
    void applicationAvailable() { Hmi::Core::HmiCoreInitializer().configure(); }
    void qmlEngineAvailable(QQmlEngine* aEngine) { Hmi::Core::HmiCoreModule::prepareEngine(*aEngine); }
};

QUICK_TEST_MAIN_WITH_SETUP(hmicore_qml, Setup)

#include "tst_qml_runner.moc"
