import QtQuick 2.15
import Hmi.Core 1.0

// A Rectangle drawn from a themed rectangle: fill, border, radius and gradient. Rectangle only
// draws linear gradients along one axis, so the direction from gradientBegin to gradientEnd
// picks the vertical or the horizontal one; other gradient types leave the fill colour alone.
Rectangle {
    id: rectangle

    property HandleRectangle handle
    // Built anew for every change: a Gradient does not notice a replaced list of stops.
    property Gradient themedGradient: null

    function rebuildGradient() {
        const previous = themedGradient
        let created = null
        if (handle && handle.gradientType === HmiCore.GRADIENT_TYPE_LINEAR && handle.gradientStops.length > 0) {
            const dx = handle.gradientEnd.x - handle.gradientBegin.x
            const dy = handle.gradientEnd.y - handle.gradientBegin.y
            const horizontal = Math.abs(dx) > Math.abs(dy)
            const reversed = horizontal ? dx < 0 : dy < 0
            created = gradientComponent.createObject(rectangle, {
                orientation: horizontal ? Gradient.Horizontal : Gradient.Vertical
            })
            const stops = []
            for (let index = 0; index < handle.gradientStops.length; ++index) {
                const stop = handle.gradientStops[index]
                stops.push(stopComponent.createObject(created, {
                    position: reversed ? 1 - stop.position : stop.position,
                    color: stop.color
                }))
            }
            created.stops = stops
        }
        themedGradient = created
        if (previous) {
            previous.destroy()
        }
    }

    // Rectangle draws nothing at all, gradient or not, while its colour is transparent and it has
    // no border; the gradient covers whatever opaque colour it gets.
    color: handle && handle.colorSet ? handle.color : themedGradient ? "black" : "transparent"
    radius: handle ? handle.radius : 0
    border.width: handle ? handle.borderWidth : 0
    border.color: handle && handle.borderColorSet ? handle.borderColor : "transparent"
    gradient: themedGradient

    onHandleChanged: rebuildGradient()
    Component.onCompleted: rebuildGradient()

    // A new node changes every gradient property at once; rebuild once for all of them.
    Connections {
        target: rectangle.handle
        function onGradientTypeChanged() { Qt.callLater(rectangle.rebuildGradient) }
        function onGradientBeginChanged() { Qt.callLater(rectangle.rebuildGradient) }
        function onGradientEndChanged() { Qt.callLater(rectangle.rebuildGradient) }
        function onGradientStopsChanged() { Qt.callLater(rectangle.rebuildGradient) }
    }

    Component {
        id: gradientComponent
        Gradient {}
    }
    Component {
        id: stopComponent
        GradientStop {}
    }
}
