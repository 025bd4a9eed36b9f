import QtQuick 2.15
import QtTest 1.2
import Hmi.Core 1.0

// Runs against the themes in the build tree: Alpha (day, night) and Beta (day, night), Alpha day
// current at start. Every test that switches leaves Alpha day current again.
TestCase {
    id: testCase
    name: "Handles"

    function cleanup() {
        ThemeManager.currentTheme = "Alpha"
        ThemeManager.currentMode = "day"
    }

    Component {
        id: spyComponent
        SignalSpy {}
    }

    function spyOn(aTarget, aSignal) {
        return createTemporaryObject(spyComponent, testCase, { target: aTarget, signalName: aSignal })
    }

    Component {
        id: themedRectangle
        Rectangle {
            property alias background: backgroundHandle
            property alias accent: accentHandle
            color: backgroundHandle.color
            HandleColorResource { id: backgroundHandle; name: "background" }
            HandleColorResource { id: accentHandle; name: "accent" }
        }
    }

    // "accent" exists in Alpha's day package only.
    function test_bindingFollowsThemeAndMode_data() {
        return [
            { tag: "Alpha night", theme: "Alpha", mode: "night", color: "#405060", css: "rgba(64,80,96,255)" },
            { tag: "Beta day", theme: "Beta", mode: "day", color: "#708090", css: "rgba(112,128,144,255)" },
            { tag: "Beta night", theme: "Beta", mode: "night", color: "#a0b0c0", css: "rgba(160,176,192,255)" },
        ]
    }

    function test_bindingFollowsThemeAndMode(data) {
        var rectangle = createTemporaryObject(themedRectangle, testCase)
        // The mode's package wins over the theme's own, which also has a background.
        compare(rectangle.color.toString(), "#102030")
        verify(rectangle.accent.nameExists)
        var colorSpy = spyOn(rectangle.background, "colorChanged")
        var existsSpy = spyOn(rectangle.accent, "nameExistsChanged")

        ThemeManager.currentTheme = data.theme
        ThemeManager.currentMode = data.mode
        compare(rectangle.color.toString(), data.color)
        compare(rectangle.background.colorCss, data.css)
        verify(!rectangle.accent.nameExists)
        verify(colorSpy.count > 0)
        verify(existsSpy.count > 0)

        cleanup()
        compare(rectangle.color.toString(), "#102030")
        verify(rectangle.accent.nameExists)
    }

    Component {
        id: colorResource
        HandleColorResource {}
    }

    function test_sameNameTwiceNotifiesOnce() {
        var handle = createTemporaryObject(colorResource, testCase)
        var nameSpy = spyOn(handle, "nameChanged")
        var colorSpy = spyOn(handle, "colorChanged")
        handle.name = "alphaOnly"
        handle.name = "alphaOnly"
        compare(nameSpy.count, 1)
        compare(colorSpy.count, 1)
        compare(handle.colorCss, "rgba(17,34,51,68)")
    }

    // tst_handles.cpp covers the signals around freezing and what an unload does meanwhile.
    function test_freezeAndUnfreeze() {
        var handle = createTemporaryObject(colorResource, testCase, { name: "background" })
        compare(handle.color.toString(), "#102030")
        handle.freeze()
        var colorSpy = spyOn(handle, "colorChanged")

        ThemeManager.currentMode = "night"
        // A frozen handle follows nothing, but a read still resolves, in the mode current then...
        compare(handle.color.toString(), "#405060")
        ThemeManager.currentMode = "day"
        // ...and keeps what it read.
        compare(handle.color.toString(), "#405060")
        compare(colorSpy.count, 0)

        handle.unfreeze()
        compare(handle.color.toString(), "#102030")
    }

    Component {
        id: kinds
        QtObject {
            property HandleFontResource font: HandleFontResource { name: "title" }
            property HandleDefaultsResource defaults: HandleDefaultsResource { name: "panelDefaults" }
            property HandleShaderResource shader: HandleShaderResource { name: "glow" }
            property HandleImageResource image: HandleImageResource { name: "dot" }
            property HandleRectangleResource rectangle: HandleRectangleResource { name: "panel" }
        }
    }

    function test_resourceKinds() {
        var handles = createTemporaryObject(kinds, testCase)

        var font = handles.font.font
        compare(font.family, "DejaVu Sans")
        compare(handles.font.fontCss, "italic bold 18px \"DejaVu Sans\"")

        var defaults = handles.defaults.defaults
        compare(defaults.enabled, false)
        compare(defaults.label, "Go")
        compare(defaults.step, "5")

        var shader = handles.shader
        // Read from the file in the package, not its name.
        verify(shader.shaderFragment.startsWith("varying highp vec2 qt_TexCoord0;\n"))
        compare(shader.shaderVertex, "void main() {}")
        compare(shader.meshResolution, Qt.size(4, 2))
        verify(shader.supportsAtlasTextures)
        compare(shader.defaultsName, "panelDefaults")

        var image = handles.image
        compare(image.sourceSize, Qt.size(2, 2))
        compare(image.tileMarginsLeft, 1)
        compare(image.paddingExternalBottom, 3)
        compare(image.defaultsName, "panelDefaults")

        var rectangle = handles.rectangle
        compare(rectangle.color.toString(), "#102030")
        verify(rectangle.colorSet)
        compare(rectangle.borderColor.toString(), "#ff0000")
        compare(rectangle.borderWidth, 2)
        compare(rectangle.radius, 4.5)
        compare(rectangle.gradientType, HmiCore.GRADIENT_TYPE_LINEAR)
        compare(rectangle.gradientStops.length, 2)
        compare(rectangle.gradientStops[1].position, 1)
        compare(rectangle.gradientStops[1].color.toString(), "#80ffffff")
    }

    Component {
        id: themedImage
        Image {
            property HandleImageResource handle: HandleImageResource { name: "dot" }
            source: handle.source
        }
    }

    // The source must be a URL that Image can load from inside the package.
    function test_imageSourceLoads() {
        var image = createTemporaryObject(themedImage, testCase)
        tryCompare(image, "status", Image.Ready)
        compare(image.implicitWidth, 2)
        compare(image.implicitHeight, 2)
    }

    // The fallbacks that components show before a handle is set; tst_module.qml checks the colour.
    function test_emptyHandles() {
        compare(Object.keys(HmiCore.HANDLE_DEFAULTS_EMPTY.defaults).length, 0)
        verify(HmiCore.HANDLE_FONT_EMPTY.font.pixelSize > 0 || HmiCore.HANDLE_FONT_EMPTY.font.pointSize > 0)
        compare(HmiCore.HANDLE_IMAGE_EMPTY.frameCount, 1)
        compare(HmiCore.HANDLE_IMAGE_EMPTY.source.toString(), "")
        compare(HmiCore.HANDLE_RECTANGLE_EMPTY.gradientType, HmiCore.GRADIENT_TYPE_INVALID)
        compare(HmiCore.HANDLE_SHADER_EMPTY.meshResolution, Qt.size(1, 1))
    }

    Component { id: colorMutable; HandleColorMutable {} }
    Component { id: fontMutable; HandleFontMutable {} }
    Component { id: shaderMutable; HandleShaderMutable {} }
    Component { id: imageMutable; HandleImageMutable {} }
    Component { id: rectangleMutable; HandleRectangleMutable {} }

    // Each row sets a value, the same value again (as an equal but distinct value where QML
    // allows), then another one.
    function test_mutableNotifiesOnRealChange_data() {
        return [
            { tag: "color", component: colorMutable, property: "color", signal: "colorChanged", first: "red", same: "#ff0000", other: "blue" },
            { tag: "font", component: fontMutable, property: "font", signal: "fontChanged",
              first: Qt.font({ family: "A", pixelSize: 10 }), same: Qt.font({ family: "A", pixelSize: 10 }), other: Qt.font({ family: "A", pixelSize: 11 }) },
            { tag: "shader fragment", component: shaderMutable, property: "shaderFragment", signal: "shaderFragmentChanged", first: "a", same: "a", other: "b" },
            { tag: "shader mesh", component: shaderMutable, property: "meshResolution", signal: "meshResolutionChanged", first: Qt.size(2, 2), same: Qt.size(2, 2), other: Qt.size(2, 3) },
            { tag: "shader atlas", component: shaderMutable, property: "supportsAtlasTextures", signal: "supportsAtlasTexturesChanged", first: true, same: true, other: false },
            { tag: "image source", component: imageMutable, property: "source", signal: "sourceChanged", first: "qrc:/a.png", same: "qrc:/a.png", other: "qrc:/b.png" },
            { tag: "image frames", component: imageMutable, property: "frameCount", signal: "frameCountChanged", first: 4, same: 4, other: 1 },
            // The first transparent fill is a change: the colour counts as given from then on.
            { tag: "rectangle color", component: rectangleMutable, property: "color", signal: "colorChanged", first: "transparent", same: "#00000000", other: "white" },
            { tag: "rectangle radius", component: rectangleMutable, property: "radius", signal: "radiusChanged", first: 2.5, same: 2.5, other: 3 },
            { tag: "rectangle gradient end", component: rectangleMutable, property: "gradientEnd", signal: "gradientEndChanged", first: Qt.point(0, 0), same: Qt.point(0, 0), other: Qt.point(0, 1) },
        ]
    }

    function test_mutableNotifiesOnRealChange(data) {
        var handle = createTemporaryObject(data.component, testCase)
        var spy = spyOn(handle, data.signal)
        handle[data.property] = data.first
        compare(spy.count, 1)
        handle[data.property] = data.same
        compare(spy.count, 1)
        handle[data.property] = data.other
        compare(spy.count, 2)
    }

    function test_colorMutableCss() {
        var handle = createTemporaryObject(colorMutable, testCase, { color: Qt.rgba(1, 0, 0, 0.5) })
        compare(handle.colorCss, "rgba(255,0,0,128)")
        handle.color = "blue"
        compare(handle.colorCss, "rgba(0,0,255,255)")
    }

    Component {
        id: gradientRectangle
        HandleRectangleMutable {
            gradientType: HmiCore.GRADIENT_TYPE_LINEAR
            gradientStops: [
                HmiGradientStop { position: 0; color: "black" },
                HmiGradientStop { position: 0.5; color: "white" }
            ]
        }
    }

    Component {
        id: gradientStop
        HmiGradientStop {}
    }

    function test_mutableGradientStops() {
        var rectangle = createTemporaryObject(gradientRectangle, testCase)
        compare(rectangle.gradientStops.length, 2)
        compare(rectangle.gradientStops[1].position, 0.5)
        compare(rectangle.gradientStops[1].color.toString(), "#ffffff")

        var spy = spyOn(rectangle, "gradientStopsChanged")
        var stop = gradientStop.createObject(null, { position: 1, color: "red" })
        rectangle.gradientStops = [stop]
        verify(spy.count > 0)
        compare(rectangle.gradientStops.length, 1)
        compare(rectangle.gradientStops[0].color.toString(), "#ff0000")
        // The handle does not own its stops; a destroyed one reads as null, not as a dangling object.
        stop.destroy()
        wait(0)
        compare(rectangle.gradientStops[0], null)
    }
}
