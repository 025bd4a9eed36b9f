import QtQuick 2.15

// A titled panel of label/value rows in the theme's colours; rows is a list of { label, value }.
ThemedRectangle {
    id: card

    property ThemeHandles handles
    property string title
    property var rows: []
    property color accent: handles.accent.color
    property int labelWidth: 200

    readonly property int padding: 14

    handle: handles.panelBackground
    implicitHeight: content.implicitHeight + 2 * padding

    Column {
        id: content

        x: card.padding
        y: card.padding
        width: card.width - 2 * card.padding
        spacing: 2

        Row {
            spacing: 10
            bottomPadding: 4

            Rectangle {
                width: 4
                height: titleText.height
                radius: 2
                color: card.accent
            }
            Text {
                id: titleText
                text: card.title
                color: card.handles.textPrimary.color
                font: card.handles.title.font
            }
        }

        Repeater {
            model: card.rows

            Row {
                width: content.width

                Text {
                    width: card.labelWidth
                    text: modelData.label
                    color: card.handles.textSecondary.color
                    font: card.handles.caption.font
                    elide: Text.ElideRight
                }
                Text {
                    width: content.width - card.labelWidth
                    text: String(modelData.value)
                    color: card.handles.textPrimary.color
                    font: card.handles.mono.font
                    elide: Text.ElideMiddle
                }
            }
        }
    }
}
