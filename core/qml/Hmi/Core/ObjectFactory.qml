pragma Singleton
import QtQuick 2.15

// Creates objects from components or QML files at run time and reports why a creation failed,
// which Qt's own createObject() leaves to the caller.
QtObject {
    id: factory

    // The error text of the most recent failed creation; empty after a success.
    property string lastError: ""

    function createFromComponent(aComponent, aParent, aProperties) {
        if (!aComponent) {
            lastError = "No component given";
            return null;
        }
        if (aComponent.status !== Component.Ready) {
            lastError = aComponent.errorString();
            return null;
        }
        var object = aComponent.createObject(aParent, aProperties === undefined ? {} : aProperties);
        lastError = object ? "" : "Creation of the object failed";
        return object;
    }

    function createFromUrl(aUrl, aParent, aProperties) {
        var component = Qt.createComponent(aUrl, Component.PreferSynchronous);
        var object = createFromComponent(component, aParent, aProperties);
        return object;
    }
}
