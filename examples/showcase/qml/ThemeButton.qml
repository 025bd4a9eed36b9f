import QtQuick 2.15
import Hmi.Core 1.0

// A push button drawn from the theme's buttonNormal, buttonChecked and buttonPressed rectangles.
ThemedRectangle {
    id: button

    property ThemeHandles handles
    property string text
    property bool checked

    signal clicked

    handle: mouse.pressed ? handles.buttonPressed : checked ? handles.buttonChecked : handles.buttonNormal
    implicitWidth: label.implicitWidth + 36
    implicitHeight: 38

    Text {
        id: label
        anchors.centerIn: parent
        text: button.text
        font: button.handles.button.font
        color: button.checked || mouse.pressed ? button.handles.textOnAccent.color : button.handles.textPrimary.color
    }

    MouseArea {
        id: mouse
        anchors.fill: parent
        onClicked: button.clicked()
    }
}
