#include <frame/HmiCoreConfigs.h>
#include <frame/HmiCoreGlobal.h>
#include <frame/HmiCoreInitializer.h>

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <cstdio>

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    Hmi::Core::HmiCoreInitializer().configure();

    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.15\nimport Hmi.Core 1.0\n"
                      "Item { property string family: HmiCore.configs.getFontFamilyDefault() }",
        QUrl());
    QScopedPointer<QObject> item(component.create());
    if (!item || item->property("family").toString() != QLatin1String("Open Sans")) {
        std::fprintf(stderr, "consumer: %s\n", qPrintable(component.errorString()));
        return 1;
    }
    return 0;
}
