import QtQuick
import ui.kit

// Shows which control the keyboard acts on.
Rectangle {
    id: root

    required property Item control

    anchors.fill: parent
    visible: control.activeFocus && KeyboardFocus.shown
    color: "transparent"
    border.color: KitLook.focus
    border.width: 2
    radius: 6
}
