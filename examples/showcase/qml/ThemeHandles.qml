import QtQuick 2.15
import Hmi.Core 1.0

// Everything the page draws with, one resource-backed handle per value of the current theme. A
// handle follows theme and mode switches by itself, so bindings to it need no other signal.
QtObject {
    id: handles

    readonly property HandleColorResource background: HandleColorResource { name: "background" }
    readonly property HandleColorResource surface: HandleColorResource { name: "surface" }
    readonly property HandleColorResource surfaceRaised: HandleColorResource { name: "surfaceRaised" }
    readonly property HandleColorResource divider: HandleColorResource { name: "divider" }
    readonly property HandleColorResource textPrimary: HandleColorResource { name: "textPrimary" }
    readonly property HandleColorResource textSecondary: HandleColorResource { name: "textSecondary" }
    readonly property HandleColorResource accent: HandleColorResource { name: "accent" }
    readonly property HandleColorResource accentPressed: HandleColorResource { name: "accentPressed" }
    readonly property HandleColorResource textOnAccent: HandleColorResource { name: "textOnAccent" }
    readonly property HandleColorResource brand: HandleColorResource { name: "brand" }
    readonly property HandleColorResource warning: HandleColorResource { name: "warning" }

    readonly property HandleFontResource heading: HandleFontResource { name: "heading" }
    readonly property HandleFontResource title: HandleFontResource { name: "title" }
    readonly property HandleFontResource body: HandleFontResource { name: "body" }
    readonly property HandleFontResource button: HandleFontResource { name: "button" }
    readonly property HandleFontResource caption: HandleFontResource { name: "caption" }
    readonly property HandleFontResource mono: HandleFontResource { name: "mono" }
    readonly property HandleFontResource readout: HandleFontResource { name: "readout" }

    readonly property HandleRectangleResource panelBackground: HandleRectangleResource { name: "panelBackground" }
    readonly property HandleRectangleResource heroGradient: HandleRectangleResource { name: "heroGradient" }
    readonly property HandleRectangleResource buttonNormal: HandleRectangleResource { name: "buttonNormal" }
    readonly property HandleRectangleResource buttonChecked: HandleRectangleResource { name: "buttonChecked" }
    readonly property HandleRectangleResource buttonPressed: HandleRectangleResource { name: "buttonPressed" }

    readonly property HandleImageResource emblem: HandleImageResource { name: "emblem" }
    readonly property HandleShaderResource emblemEffect: HandleShaderResource { name: "emblemEffect" }
    readonly property HandleDefaultsResource emblemEffectDefaults: HandleDefaultsResource {
        name: handles.emblemEffect.defaultsName
    }

    // Image provider URLs are cached by Qt Quick; a query that names the theme and mode makes a
    // switch load the new image. The provider ignores everything after "?".
    readonly property string imageQuery: "?" + ThemeManager.currentTheme + "/" + ThemeManager.currentMode

    function providerImage(aName) {
        return "image://resourceImageProvider/" + aName + imageQuery
    }
}
