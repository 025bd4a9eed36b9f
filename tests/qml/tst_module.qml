import QtQuick 2.15
import QtTest 1.2
import Hmi.Core 1.0

TestCase {
    name: "Module"

    function test_globalAndEnumerations() {
        verify(HmiCore.configs !== null)
        compare(HmiCore.configs.getFontFamilyDefault(), "Open Sans")
        compare(HmiCore.ApplicationViewModeInvalid, 4)
        compare(HmiCore.KEYBOARD_TYPE_QT, 8)
        compare(HmiCore.HMI_IMAGE_TILE_MODE_PAD, 3)
        compare(HmiCore.HMI_RECTANGLE_TILE_MODE_PAD, 0)
        compare(HmiCore.TOUCH_INPUT_GESTURE_TYPE_ROTATION, 229376)
        compare(HmiCore.TOUCH_INPUT_GESTURE_TYPE_DRAG_MULTI, 3584)
        compare(HmiCore.HANDLE_COLOR_EMPTY.colorCss, "rgba(0,0,0,0)")
    }

    Component {
        id: plain
        Item {}
    }

    function test_objectFactory() {
        var object = ObjectFactory.createFromComponent(plain, null, { objectName: "made" })
        compare(object.objectName, "made")
        compare(ObjectFactory.lastError, "")
        object.destroy()
        compare(ObjectFactory.createFromComponent(null, null), null)
        compare(ObjectFactory.lastError, "No component given")
    }

    function test_uncreatable_data() {
        return [
            { tag: "configs", type: "HmiCoreConfigs" },
            { tag: "perf policy", type: "PerfEventPolicyBase" },
            { tag: "view policy", type: "ApplicationViewPolicyBase" },
        ]
    }

    function test_uncreatable(data) {
        var source = "import Hmi.Core 1.0\n" + data.type + " {}"
        try {
            Qt.createQmlObject(source, this, "uncreatable")
            fail("created " + data.type)
        } catch (e) {
            verify(e.qmlErrors[0].message.indexOf("Can't create " + data.type + " in QML") >= 0, e.qmlErrors[0].message)
        }
    }

    function test_noMutableDefaults() {
        try {
            Qt.createQmlObject("import Hmi.Core 1.0\nHandleDefaultsMutable {}", this, "unknown")
            fail("created HandleDefaultsMutable")
        } catch (e) {
            verify(e.qmlErrors[0].message.indexOf("is not a type") >= 0, e.qmlErrors[0].message)
        }
    }
}
