import QtQuick 2.15
import Hmi.Core 1.0

// The theme's emblemEffect shader applied to an item. Its uniforms come from the defaults the
// shader names (strength, bands, levels) and from tint. Qt Quick's software renderer runs no
// shaders, so there the effect is approximated with a tinted copy of the source.
Item {
    id: effect

    property ThemeHandles handles
    property Item source
    property color tint

    readonly property bool shadersRun: GraphicsInfo.api !== GraphicsInfo.Software
        && GraphicsInfo.api !== GraphicsInfo.Unknown
    readonly property var values: handles.emblemEffectDefaults.defaults

    ShaderEffect {
        anchors.fill: parent
        visible: effect.shadersRun
        property variant source: effect.source
        property real strength: Number(effect.values.strength || 0)
        property real bands: Number(effect.values.bands || 1)
        property real levels: Number(effect.values.levels || 1)
        property color tint: effect.tint
        fragmentShader: effect.handles.emblemEffect.shaderFragment
        supportsAtlasTextures: effect.handles.emblemEffect.supportsAtlasTextures
    }

    ShaderEffectSource {
        anchors.fill: parent
        visible: !effect.shadersRun
        sourceItem: effect.shadersRun ? null : effect.source
    }
    Rectangle {
        anchors.fill: parent
        visible: !effect.shadersRun
        color: effect.tint
        opacity: 0.45 * Number(effect.values.strength || 0)
        radius: 6
    }
}
