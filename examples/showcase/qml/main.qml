import QtQuick 2.15
import QtQuick.Window 2.15
import Hmi.Core 1.0

Window {
    id: root

    // Set by main.cpp before the page is created.
    property string configFile
    property string primaryResolution
    // [{ phase, milliseconds }] as measured by the start-up profiler.
    property var startupTimings: []

    readonly property var configs: HmiCore.configs
    readonly property int margin: 28

    function windowStateName(aState) {
        switch (aState) {
        case 0: return "WindowNoState"
        case 1: return "WindowMinimized"
        case 2: return "WindowMaximized"
        case 4: return "WindowFullScreen"
        }
        return "unknown"
    }

    width: 1280
    height: 720
    title: "Hmi.Core showcase"
    color: "#1a2028"

    Rectangle {
        id: header

        width: parent.width
        height: 84
        color: "#212933"

        Column {
            anchors.left: parent.left
            anchors.leftMargin: root.margin
            anchors.verticalCenter: parent.verticalCenter
            spacing: 4

            Text {
                text: "Hmi.Core showcase"
                color: "#eef2f6"
                font.pixelSize: 28
                font.bold: true
            }
            Text {
                text: "Configured from " + root.configFile
                color: "#8d9db0"
                font.pixelSize: 14
            }
        }

        Text {
            anchors.right: parent.right
            anchors.rightMargin: root.margin
            anchors.verticalCenter: parent.verticalCenter
            text: "import Hmi.Core 1.0"
            color: "#4fc3f7"
            font.family: "monospace"
            font.pixelSize: 16
        }

        Rectangle {
            width: parent.width
            height: 2
            anchors.bottom: parent.bottom
            color: "#4fc3f7"
            opacity: 0.6
        }
    }

    Row {
        id: body

        x: root.margin
        y: header.height + root.margin
        width: root.width - 2 * root.margin
        spacing: root.margin

        readonly property int sideWidth: 560

        InfoCard {
            id: configCard

            width: body.width - body.spacing - body.sideWidth
            title: "Configuration"
            labelWidth: 210
            rows: [
                { label: "FontFamilyDefault", value: root.configs.getFontFamilyDefault() },
                { label: "Application font", value: Qt.application.font.family },
                { label: "ThemesPath", value: root.configs.getThemesPath() },
                { label: "LanguagesPath", value: root.configs.getLanguagesPath() },
                { label: "KeyboardsPath", value: root.configs.getKeyboardsPath() },
                { label: "ResourceCachePath", value: root.configs.getResourceCachePath() },
                { label: "StringDatabaseName", value: root.configs.getStringDatabaseName() },
                { label: "PrimaryDisplayResolution", value: root.primaryResolution },
                { label: "WindowState", value: root.windowStateName(root.configs.getWindowState()) },
                { label: "IntervalPressAndHold", value: root.configs.getIntervalPressAndHold() + " ms" },
                { label: "TouchDragStartDistance", value: root.configs.getTouchDragStartDistance() + " px" },
                { label: "Press-and-hold in use", value: HmiCore.getTouchPressAndHoldInterval() + " ms" },
                { label: "Drag distance in use", value: HmiCore.getTouchStartDragDistance() + " px" }
            ]
        }

        Column {
            width: body.sideWidth
            spacing: root.margin

            InfoCard {
                width: parent.width
                title: "Enumerations"
                accent: "#ffb74d"
                labelWidth: 360
                rows: [
                    { label: "HmiCore.ApplicationViewModeSettings", value: HmiCore.ApplicationViewModeSettings },
                    { label: "HmiCore.GRADIENT_TYPE_LINEAR", value: HmiCore.GRADIENT_TYPE_LINEAR },
                    { label: "HmiCore.HMI_IMAGE_TILE_MODE_PAD", value: HmiCore.HMI_IMAGE_TILE_MODE_PAD },
                    { label: "HmiCore.KEYBOARD_TYPE_QT", value: HmiCore.KEYBOARD_TYPE_QT },
                    { label: "HmiCore.TOUCH_INPUT_GESTURE_TYPE_PINCH", value: HmiCore.TOUCH_INPUT_GESTURE_TYPE_PINCH }
                ]
            }

            InfoCard {
                width: parent.width
                title: "Types and handles"
                accent: "#81c784"
                labelWidth: 360
                rows: [
                    { label: "HmiCore.getQmlType(header)", value: HmiCore.getQmlType(header) },
                    { label: "HmiCore.getQmlType(configCard)", value: HmiCore.getQmlType(configCard) },
                    { label: "HmiCore.isQmlType(header, \"Item\")", value: HmiCore.isQmlType(header, "Item") },
                    { label: "getQmlType(HANDLE_COLOR_EMPTY)", value: HmiCore.getQmlType(HmiCore.HANDLE_COLOR_EMPTY) },
                    { label: "HANDLE_COLOR_EMPTY.colorCss", value: HmiCore.HANDLE_COLOR_EMPTY.colorCss }
                ]
            }
        }
    }

    Rectangle {
        x: root.margin
        width: root.width - 2 * root.margin
        height: Math.max(60, chips.height + 30)
        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.margin
        radius: 12
        color: "#242c36"
        border.color: "#303a46"

        Rectangle {
            id: startupAccent
            x: 20
            width: 4
            height: startupTitle.height
            radius: 2
            anchors.verticalCenter: parent.verticalCenter
            color: "#ba68c8"
        }
        Text {
            id: startupTitle
            anchors.left: startupAccent.right
            anchors.leftMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            text: "Start-up"
            color: "#eef2f6"
            font.pixelSize: 20
            font.bold: true
        }

        Flow {
            id: chips

            anchors.left: startupTitle.right
            anchors.leftMargin: 24
            anchors.right: parent.right
            anchors.rightMargin: 20
            anchors.verticalCenter: parent.verticalCenter
            spacing: 6

            Repeater {
                model: root.startupTimings

                Rectangle {
                    width: chipText.implicitWidth + 18
                    height: 28
                    radius: 14
                    color: "#303a46"

                    Text {
                        id: chipText
                        anchors.centerIn: parent
                        text: modelData.phase + " " + modelData.milliseconds.toFixed(2) + " ms"
                        color: "#dfe6ee"
                        font.family: "monospace"
                        font.pixelSize: 12
                    }
                }
            }
        }
    }
}
