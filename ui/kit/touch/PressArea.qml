import QtQuick
import ui.kit

// Where a touch presses a control. Two quick touches are two presses. A touch that begins while what it falls on moves under
// it, and stops that, is none.
MouseArea {
    id: root

    // While a finger that began here is here, not while it has slipped off.
    readonly property bool down: pressed && containsMouse
    // While the pointer of a mouse stands above, for a look that says what it would press.
    readonly property bool hovered: pointer.hovered && enabled && KeyboardFocus.hovering
    // Of what a second touch at once would do again to something else.
    property bool takesOneOfTwo: false
    // Of what a finger draws aside: the second of two touches presses it when it ends, not when it begins.
    property bool canBeDrawn: false
    property bool isSecond: false

    signal tapped

    function standsStill() {
        for (let around = parent; around; around = around.parent) {
            const scroller = around as Scroller;
            if (scroller && (scroller.moving || scroller.carried))
                return false;
        }
        return true;
    }

    function endSecond() {
        if (!isSecond)
            return;
        isSecond = false;
        tapped();
    }

    onPressed: mouse => {
        isSecond = false;
        mouse.accepted = root.standsStill();
    }
    // Something else has taken the finger.
    onCanceled: isSecond = false
    onClicked: root.tapped()
    onDoubleClicked: {
        isSecond = !takesOneOfTwo;
        if (!canBeDrawn)
            endSecond();
    }
    onReleased: if (containsMouse)
        endSecond()

    // The area is told of a finger's second touch as it begins and then no more, though it may yet become a drag.
    // In an item of its own, for an item with a handler takes every button of the mouse.
    Item {
        anchors.fill: parent

        HoverHandler {
            id: pointer

            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        }
        TapHandler {
            enabled: root.canBeDrawn
            acceptedDevices: PointerDevice.TouchScreen
            longPressThreshold: 3600
            onTapped: root.endSecond()
        }
    }
}
