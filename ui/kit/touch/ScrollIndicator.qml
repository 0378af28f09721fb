import QtQuick
import ui.kit

// A thin bar that shows, while the content moves, which part of it is seen.
Rectangle {
    id: root

    required property Flickable flickable
    readonly property double share: Math.min(1, flickable.height / Math.max(1, flickable.contentHeight))
    readonly property double place: Math.max(0, Math.min(1, flickable.contentY / Math.max(1, flickable.contentHeight - flickable.height)))

    anchors.right: parent.right
    anchors.rightMargin: 3
    y: flickable.y + 3 + place * (flickable.height - 6 - height)
    width: 4
    height: Math.max(36, share * (flickable.height - 6))
    radius: 2
    color: KitLook.shade
    visible: share < 1 && opacity > 0
    opacity: flickable.moving || lingering.running ? 1 : 0

    // Shows for a moment where the content came to at once, as by a key. It comes and goes: not while nothing is to move.
    function flash() {
        lingering.interval = Motion.duration(Motion.Linger);
        if (lingering.interval > 0)
            lingering.restart();
    }

    Timer {
        id: lingering
    }

    Behavior on opacity {
        NumberAnimation {
            duration: Motion.duration(Motion.Fade)
        }
    }
}
