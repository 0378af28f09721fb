import QtQuick
import ui.kit

// A control that is pressed: by a touch, by Return, Enter or Space while it has the focus, and by a screen reader. What it
// looks like is up to whoever uses it, but for the ring around it while the keyboard acts on it.
PressItem {
    id: root

    readonly property alias down: area.down
    readonly property alias hovered: area.hovered
    property alias takesOneOfTwo: area.takesOneOfTwo
    property alias canBeDrawn: area.canBeDrawn
    property double ringMargin: 0
    property double ringRadius: Metrics.CornerRadius
    // How much further than the control a touch reaches, at its sides and above and below.
    property double reachAside: 0
    property double reachAbove: 0

    activeFocusOnTab: true

    Accessible.role: root.spokenRole

    FocusRing {
        z: 1
        control: root
        anchors.margins: root.ringMargin
        radius: root.ringRadius
    }
    PressArea {
        id: area

        z: 1
        anchors.fill: parent
        anchors.leftMargin: -root.reachAside
        anchors.rightMargin: -root.reachAside
        anchors.topMargin: -root.reachAbove
        anchors.bottomMargin: -root.reachAbove
        onTapped: root.pressed()
    }
}
