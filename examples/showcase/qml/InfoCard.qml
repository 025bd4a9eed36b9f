import QtQuick 2.15

// A titled panel of label/value rows; rows is a list of { label, value } objects.
Rectangle {
    id: card

    property string title
    property var rows: []
    property color accent: "#4fc3f7"
    property int labelWidth: 240

    readonly property int padding: 20

    implicitHeight: content.implicitHeight + 2 * padding
    radius: 12
    color: "#242c36"
    border.color: "#303a46"

    Column {
        id: content

        x: card.padding
        y: card.padding
        width: card.width - 2 * card.padding
        spacing: 9

        Row {
            spacing: 10
            bottomPadding: 6

            Rectangle {
                width: 4
                height: titleText.height
                radius: 2
                color: card.accent
            }
            Text {
                id: titleText
                text: card.title
                color: "#eef2f6"
                font.pixelSize: 20
                font.bold: true
            }
        }

        Repeater {
            model: card.rows

            Row {
                width: content.width

                Text {
                    width: card.labelWidth
                    text: modelData.label
                    color: "#8d9db0"
                    font.pixelSize: 15
                    elide: Text.ElideRight
                }
                Text {
                    width: content.width - card.labelWidth
                    text: String(modelData.value)
                    color: "#eef2f6"
                    font.family: "monospace"
                    font.pixelSize: 15
                    elide: Text.ElideMiddle
                }
            }
        }
    }
}
