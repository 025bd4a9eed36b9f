#include "frame/HmiCoreInitializer.h"
#include "frame/HmiCoreModule.h"

#include <QQmlEngine>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QtQuickTest>

class Setup : public QObject
{
    Q_OBJECT

public slots:
    // The ini names the test themes (Alpha, then Beta) in the build tree; Alpha in its day mode
    // is current when the tests start.
    void applicationAvailable()
    {
        // The offscreen platform offers no OpenGL context here; the software scene graph renders anyway.
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
        Hmi::Core::HmiCoreInitializer().configure(QStringLiteral(HMICORE_QML_INI), {});
    }
    void qmlEngineAvailable(QQmlEngine* aEngine) { Hmi::Core::HmiCoreModule::prepareEngine(*aEngine); }
};

QUICK_TEST_MAIN_WITH_SETUP(hmicore_qml, Setup)

#include "tst_qml_runner.moc"
