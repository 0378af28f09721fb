import QtQuick
import ui.kit

// Shows which control the keyboard acts on.
RoundedBox {
    id: root

    required property Item control

    anchors.fill: parent
    visible: control.activeFocus && KeyboardFocus.shown
    upper: "transparent"
    lower: "transparent"
    edge: KitLook.focus
    edgeWidth: 2
    radius: Metrics.CornerRadius
}
