import QtQuick
import ui.kit

// A thin bar that shows, while the content moves, which part of it is seen. It can be taken hold of as long as it shows.
Rectangle {
    id: root

    required property Flickable flickable
    readonly property bool hovered: pointer.hovered && KeyboardFocus.hovering
    readonly property double share: Math.min(1, flickable.height / Math.max(1, flickable.contentHeight))
    readonly property double place: Math.max(0, Math.min(1, flickable.contentY / Math.max(1, flickable.contentHeight - flickable.height)))

    anchors.right: parent.right
    anchors.rightMargin: 3
    y: flickable.y + 3 + place * (flickable.height - 6 - height)
    // Widened where a mouse can take hold of it, and while it is held.
    width: hovered || grip.pressed ? 9 : 4
    height: Math.max(36, share * (flickable.height - 6))
    radius: width / 2
    color: KitLook.shade
    visible: share < 1 && opacity > 0
    opacity: flickable.moving || lingering.running || grip.pressed || hovered ? 1 : 0

    // Shows for a moment where the content came to at once, as by a key. It comes and goes: not while nothing is to move.
    function flash() {
        lingering.interval = Motion.duration(Motion.Linger);
        if (lingering.interval > 0)
            lingering.restart();
    }

    Timer {
        id: lingering
    }
    MouseArea {
        id: grip

        // Where in the bar it is held.
        property double held: 0

        anchors.fill: parent
        anchors.leftMargin: -12
        anchors.rightMargin: -3
        anchors.topMargin: -8
        anchors.bottomMargin: -8
        preventStealing: true
        onPressed: mouse => {
            root.flickable.cancelFlick();
            held = grip.mapToItem(root, 0, mouse.y).y;
        }
        onPositionChanged: mouse => {
            const way = root.flickable.height - 6 - root.height;
            const place = grip.mapToItem(root.flickable, 0, mouse.y).y - held - 3;
            root.flickable.contentY = Math.max(0, Math.min(1, place / way)) * (root.flickable.contentHeight - root.flickable.height);
        }
        onReleased: root.flash()
    }

    // In an item of its own, for an item with a handler takes every button of the mouse.
    Item {
        anchors.fill: grip

        HoverHandler {
            id: pointer

            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        }
    }

    Behavior on opacity {
        NumberAnimation {
            duration: Motion.duration(Motion.Fade)
        }
    }
}
