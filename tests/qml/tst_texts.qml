import QtQuick 2.15
import QtTest 1.2
import Hmi.Core 1.0

TestCase {
    name: "Texts"

    Component {
        id: greetingText
        Text {
            property alias format: formatHandle
            property alias filled: filledHandle
            property alias parameter: parameterHandle
            text: filledHandle.text
            HandleTextResource { id: formatHandle; name: "STR_GREETING" }
            HandleTextMutable { id: parameterHandle; text: "Ada" }
            HandleTextWithParameters {
                id: filledHandle
                handle: formatHandle
                parameters: [ parameterHandle ]
            }
        }
    }

    function init() {
        LanguageManager.currentLanguage = "en_US"
    }

    function test_languages() {
        compare(LanguageManager.languages.length, 2)
        compare(LanguageManager.languages[0].identifier, "de_DE")
        compare(LanguageManager.languages[0].displayName, "Deutsch")
        compare(LanguageManager.rightToLeft, false)
    }

    function test_textFollowsLanguage() {
        LanguageManager.currentLanguage = "en_US"
        var item = createTemporaryObject(greetingText, this)
        compare(item.text, "Hello Ada")
        var spy = createTemporaryObject(signalSpy, this, { target: item.filled, signalName: "textChanged" })

        LanguageManager.currentLanguage = "de_DE"
        compare(LanguageManager.currentLanguage, "de_DE")
        compare(item.text, "Hallo Ada")
        compare(spy.count, 1)
    }

    function test_parameterRefills() {
        var item = createTemporaryObject(greetingText, this)
        var spy = createTemporaryObject(signalSpy, this, { target: item.filled, signalName: "textChanged" })
        item.parameter.text = "Grace"
        compare(spy.count, 1)
        compare(item.text, "Hello Grace")
        item.filled.parameters = [ 42 ]
        compare(item.text, "Hello 42")
    }

    function test_unknownLanguageKeepsCurrent() {
        ignoreWarning("WARNING: Language xx_XX is not available.")
        LanguageManager.currentLanguage = "xx_XX"
        compare(LanguageManager.currentLanguage, "en_US")
    }

    Component {
        id: signalSpy
        SignalSpy {}
    }
}
