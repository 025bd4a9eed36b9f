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
    readonly property int margin: 24

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
    title: strings.title.text
    color: theme.background.color

    // Right-to-left languages mirror every anchor and positioner on the page.
    LayoutMirroring.enabled: LanguageManager.rightToLeft
    LayoutMirroring.childrenInherit: true

    ThemeHandles {
        id: theme
    }

    // The page's texts in the current language; "STR_PAGE_..." keys come from the PAGE section.
    QtObject {
        id: strings

        readonly property HandleTextResource title: HandleTextResource { name: "STR_PAGE_TITLE" }
        readonly property HandleTextResource themeLabel: HandleTextResource { name: "STR_PAGE_THEME" }
        readonly property HandleTextResource mode: HandleTextResource { name: "STR_PAGE_MODE" }
        readonly property HandleTextResource language: HandleTextResource { name: "STR_PAGE_LANGUAGE" }
        readonly property HandleTextResource shapes: HandleTextResource { name: "STR_PAGE_SHAPES" }
        readonly property HandleTextResource colours: HandleTextResource { name: "STR_PAGE_COLOURS" }
        readonly property HandleTextResource fonts: HandleTextResource { name: "STR_PAGE_FONTS" }
        readonly property HandleTextResource startup: HandleTextResource { name: "STR_PAGE_STARTUP" }
        readonly property HandleTextResource configuration: HandleTextResource { name: "STR_PAGE_CONFIGURATION" }
        readonly property HandleTextResource types: HandleTextResource { name: "STR_PAGE_TYPES" }
        readonly property HandleTextResource texts: HandleTextResource { name: "STR_PAGE_TEXTS" }

        // Parameters: other text handles, whose changes show at once, or plain values.
        readonly property HandleTextMutable userName: HandleTextMutable { text: "Alex" }
        readonly property HandleTextWithParameters status: HandleTextWithParameters {
            handle: HandleTextResource { name: "STR_PAGE_STATUS" }
            parameters: [ThemeManager.currentTheme, ThemeManager.currentMode, root.configFile]
        }
        readonly property HandleTextWithParameters greeting: HandleTextWithParameters {
            handle: HandleTextResource { name: "STR_GREETING" }
            parameters: [strings.userName, 3]
        }
        readonly property HandleTextWithParameters temperature: HandleTextWithParameters {
            handle: HandleTextResource { name: "STR_TEMPERATURE" }
            // The left-to-right mark keeps "21.5°C" in one piece inside right-to-left text.
            parameters: ["\u200e21.5\u00b0C"]
        }
        readonly property HandleTextWithParameters direction: HandleTextWithParameters {
            handle: HandleTextResource { name: "STR_DIRECTION" }
            parameters: [LanguageManager.currentDisplayName + " (" + LanguageManager.currentLanguage + ")"]
        }
    }

    // ---- Header: title and the theme and mode switches ----------------------------------------

    Rectangle {
        id: header

        width: parent.width
        height: 80
        color: theme.surface.color

        Column {
            anchors.left: parent.left
            anchors.leftMargin: root.margin
            anchors.verticalCenter: parent.verticalCenter
            spacing: 4

            Text {
                width: Math.min(implicitWidth, header.width - switches.width - 3 * root.margin)
                text: strings.title.text
                color: theme.textPrimary.color
                font: theme.heading.font
                elide: Text.ElideRight
            }
            Text {
                text: strings.status.text
                color: theme.textSecondary.color
                font: theme.caption.font
                width: Math.min(700, header.width - switches.width - 3 * root.margin)
                elide: Text.ElideMiddle
            }
        }

        Row {
            id: switches

            anchors.right: parent.right
            anchors.rightMargin: root.margin
            anchors.verticalCenter: parent.verticalCenter
            spacing: 8

            Text {
                anchors.verticalCenter: parent.verticalCenter
                rightPadding: 4
                text: strings.themeLabel.text
                color: theme.textSecondary.color
                font: theme.caption.font
            }
            Repeater {
                model: ThemeManager.themes

                ThemeButton {
                    handles: theme
                    text: modelData
                    checked: modelData === ThemeManager.currentTheme
                    onClicked: ThemeManager.setCurrentTheme(modelData)
                }
            }
            Item {
                width: 16
                height: 1
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                rightPadding: 4
                text: strings.mode.text
                color: theme.textSecondary.color
                font: theme.caption.font
            }
            Repeater {
                model: ThemeManager.modes

                ThemeButton {
                    handles: theme
                    text: modelData
                    checked: modelData === ThemeManager.currentMode
                    onClicked: ThemeManager.setCurrentMode(modelData)
                }
            }
            Item {
                width: 16
                height: 1
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                rightPadding: 4
                text: strings.language.text
                color: theme.textSecondary.color
                font: theme.caption.font
            }
            Repeater {
                model: LanguageManager.languages

                ThemeButton {
                    handles: theme
                    text: modelData.displayName
                    checked: modelData.identifier === LanguageManager.currentLanguage
                    onClicked: LanguageManager.currentLanguage = modelData.identifier
                }
            }
        }

        Rectangle {
            width: parent.width
            height: 2
            anchors.bottom: parent.bottom
            color: theme.accent.color
        }
    }

    // ---- The current theme, drawn from its handles --------------------------------------------

    ThemedRectangle {
        id: themePanel

        anchors.left: parent.left
        anchors.leftMargin: root.margin
        y: header.height + root.margin
        width: 728
        height: footer.y - y - 16
        handle: theme.panelBackground

        Column {
            x: 20
            y: 18
            width: parent.width - 40
            spacing: 10

            Text {
                text: strings.shapes.text
                color: theme.textPrimary.color
                font: theme.title.font
            }

            Row {
                spacing: 16

                Column {
                    spacing: 6

                    ThemedRectangle {
                        id: hero

                        width: 300
                        height: 164
                        handle: theme.heroGradient

                        Image {
                            id: emblem

                            anchors.centerIn: parent
                            source: theme.emblem.source
                            width: theme.emblem.implicitSize.width
                            height: theme.emblem.implicitSize.height
                        }
                    }
                    Text {
                        width: hero.width
                        wrapMode: Text.WordWrap
                        text: "heroGradient: " + (theme.heroGradient.gradientStops.length) + " stops, "
                            + (Math.abs(theme.heroGradient.gradientEnd.x - theme.heroGradient.gradientBegin.x)
                               > Math.abs(theme.heroGradient.gradientEnd.y - theme.heroGradient.gradientBegin.y)
                               ? "horizontal" : "vertical")
                        color: theme.textSecondary.color
                        font: theme.caption.font
                    }
                }

                Column {
                    spacing: 6

                    Rectangle {
                        id: effectBox

                        width: 176
                        height: 164
                        radius: theme.heroGradient.radius
                        color: theme.surfaceRaised.color
                        border.color: theme.divider.color

                        EmblemEffect {
                            id: effect

                            anchors.centerIn: parent
                            width: emblem.width
                            height: emblem.height
                            handles: theme
                            source: emblem
                            tint: theme.accent.color
                        }
                    }
                    Text {
                        width: effectBox.width
                        wrapMode: Text.WordWrap
                        text: "emblemEffect, strength " + effect.values.strength
                            + (effect.shadersRun ? "" : " (software renderer: tint only)")
                        color: theme.textSecondary.color
                        font: theme.caption.font
                    }
                }

                Column {
                    spacing: 6

                    Rectangle {
                        id: providerBox

                        width: 176
                        height: 164
                        radius: theme.heroGradient.radius
                        color: theme.surfaceRaised.color
                        border.color: theme.divider.color

                        Image {
                            anchors.horizontalCenter: parent.horizontalCenter
                            y: 18
                            width: 72
                            height: 72
                            sourceSize: Qt.size(72, 72)
                            source: theme.providerImage("emblem")
                        }
                        Row {
                            anchors.horizontalCenter: parent.horizontalCenter
                            anchors.bottom: parent.bottom
                            anchors.bottomMargin: 14
                            spacing: -12

                            Repeater {
                                model: 3

                                Image {
                                    source: theme.providerImage("iconChevronRight")
                                }
                            }
                        }
                    }
                    Text {
                        width: providerBox.width
                        wrapMode: Text.WordWrap
                        text: "resourceImageProvider: emblem, iconChevronRight"
                        color: theme.textSecondary.color
                        font: theme.caption.font
                    }
                }
            }

            Text {
                topPadding: 6
                text: strings.colours.text
                color: theme.textPrimary.color
                font: theme.title.font
            }

            Flow {
                width: parent.width
                spacing: 8

                Repeater {
                    model: [
                        { name: "background", handle: theme.background },
                        { name: "surface", handle: theme.surface },
                        { name: "surfaceRaised", handle: theme.surfaceRaised },
                        { name: "textPrimary", handle: theme.textPrimary },
                        { name: "textSecondary", handle: theme.textSecondary },
                        { name: "accent", handle: theme.accent },
                        { name: "accentPressed", handle: theme.accentPressed },
                        { name: "brand", handle: theme.brand },
                        { name: "warning", handle: theme.warning }
                    ]

                    Column {
                        spacing: 4

                        Rectangle {
                            width: 68
                            height: 36
                            radius: 6
                            color: modelData.handle.color
                            border.color: theme.divider.color
                        }
                        Text {
                            width: 68
                            text: modelData.name
                            color: theme.textSecondary.color
                            font.family: theme.caption.font.family
                            font.pixelSize: 10
                            elide: Text.ElideRight
                        }
                    }
                }
            }

            Text {
                topPadding: 6
                text: strings.fonts.text
                color: theme.textPrimary.color
                font: theme.title.font
            }

            Row {
                spacing: 24

                Column {
                    spacing: 6
                    width: 460

                    Text {
                        text: "Heading \u00b7 " + theme.heading.font.family
                        color: theme.textPrimary.color
                        font: theme.heading.font
                    }
                    Text {
                        text: "Body text for lists and dialogs, " + theme.body.font.pixelSize + " px"
                        color: theme.textPrimary.color
                        font: theme.body.font
                    }
                    Text {
                        width: parent.width
                        text: theme.heading.fontCss
                        color: theme.textSecondary.color
                        font: theme.mono.font
                        elide: Text.ElideRight
                    }
                }
                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: "21.5\u00b0C"
                    color: theme.accent.color
                    font: theme.readout.font
                }
            }
        }
    }

    // ---- What the library reports about itself ------------------------------------------------

    Column {
        anchors.left: themePanel.right
        anchors.leftMargin: root.margin
        anchors.right: parent.right
        anchors.rightMargin: root.margin
        y: themePanel.y
        spacing: 16

        // Translated texts, two of them with parameters.
        ThemedRectangle {
            id: textsCard

            width: parent.width
            height: textsContent.implicitHeight + 28
            handle: theme.panelBackground

            Column {
                id: textsContent

                anchors.left: parent.left
                anchors.right: parent.right
                anchors.margins: 14
                y: 14
                spacing: 2

                Row {
                    spacing: 10
                    bottomPadding: 4

                    Rectangle {
                        width: 4
                        height: textsTitle.height
                        radius: 2
                        color: theme.warning.color
                    }
                    Text {
                        id: textsTitle
                        text: strings.texts.text
                        color: theme.textPrimary.color
                        font: theme.title.font
                    }
                }
                Text {
                    width: parent.width
                    text: strings.greeting.text
                    color: theme.textPrimary.color
                    font: theme.body.font
                    elide: Text.ElideRight
                }
                Text {
                    width: parent.width
                    text: strings.temperature.text + "  \u00b7  " + strings.direction.text
                    color: theme.textSecondary.color
                    font: theme.caption.font
                    elide: Text.ElideRight
                }
            }
        }

        InfoCard {
            width: parent.width
            handles: theme
            title: strings.configuration.text
            labelWidth: 170
            rows: [
                { label: "ThemesPath", value: root.configs.getThemesPath() },
                { label: "ResourceCachePath", value: root.configs.getResourceCachePath() },
                { label: "LanguagesPath", value: root.configs.getLanguagesPath() },
                { label: "KeyboardsPath", value: root.configs.getKeyboardsPath() },
                { label: "StringDatabaseName", value: root.configs.getStringDatabaseName() },
                { label: "FontFamilyDefault", value: root.configs.getFontFamilyDefault()
                        + " (app: " + Qt.application.font.family + ")" },
                { label: "PrimaryDisplayResolution", value: root.primaryResolution },
                { label: "WindowState", value: root.windowStateName(root.configs.getWindowState()) },
                { label: "IntervalPressAndHold", value: root.configs.getIntervalPressAndHold()
                        + " ms (in use " + HmiCore.getTouchPressAndHoldInterval() + ")" },
                { label: "TouchDragStartDistance", value: root.configs.getTouchDragStartDistance()
                        + " px (in use " + HmiCore.getTouchStartDragDistance() + ")" }
            ]
        }

        InfoCard {
            width: parent.width
            handles: theme
            title: strings.types.text
            accent: theme.brand.color
            labelWidth: 300
            rows: [
                { label: "ApplicationViewModeSettings", value: HmiCore.ApplicationViewModeSettings },
                { label: "GRADIENT_TYPE_LINEAR", value: HmiCore.GRADIENT_TYPE_LINEAR },
                { label: "getQmlType(themePanel)", value: HmiCore.getQmlType(themePanel) },
                { label: "isQmlType(header, \"Item\")", value: HmiCore.isQmlType(header, "Item") },
                { label: "HANDLE_COLOR_EMPTY.colorCss", value: HmiCore.HANDLE_COLOR_EMPTY.colorCss }
            ]
        }
    }

    // ---- Start-up timings ---------------------------------------------------------------------

    Rectangle {
        id: footer

        x: root.margin
        width: root.width - 2 * root.margin
        height: Math.max(44, chips.height + 16)
        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.margin
        radius: theme.panelBackground.radius
        color: theme.surface.color
        border.color: theme.divider.color

        Text {
            id: startupTitle
            anchors.left: parent.left
            anchors.leftMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            text: strings.startup.text
            color: theme.textPrimary.color
            font: theme.title.font
        }

        Flow {
            id: chips

            anchors.left: startupTitle.right
            anchors.leftMargin: 16
            anchors.right: parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            spacing: 6

            Repeater {
                model: root.startupTimings

                Rectangle {
                    width: chipText.implicitWidth + 16
                    height: 24
                    radius: 12
                    color: theme.surfaceRaised.color
                    border.color: theme.divider.color

                    Text {
                        id: chipText
                        anchors.centerIn: parent
                        text: modelData.phase + " " + modelData.milliseconds.toFixed(2) + " ms"
                        color: theme.textPrimary.color
                        font.family: theme.mono.font.family
                        font.pixelSize: 11
                    }
                }
            }
        }
    }
}
