import QtQuick
import ui.kit

Pressable {
    id: root

    required property Switch view
    property color fill: view.on ? KitLook.switchOn : KitLook.switchOff

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden
    ringMargin: -3
    ringRadius: height / 2 + 3
    reachAside: 6
    reachAbove: 6
    spokenRole: Accessible.CheckBox
    spokenName: view.accessibilityLabel
    spokenOn: view.on
    onPressed: root.view.toggle()

    Behavior on fill {
        ColorAnimation {
            duration: Motion.duration(Motion.Flip)
        }
    }
    RoundedBox {
        anchors.fill: parent
        radius: height / 2
        upper: Qt.darker(root.fill, 1.5)
        lower: root.fill
        edge: KitLook.edge
        opacity: 0.95
    }
    RoundedBox {
        x: root.view.on ? root.width - width - 2 : 2
        y: 2
        width: root.height - 4
        height: width
        radius: width / 2
        edge: KitLook.edge
        upper: KitLook.knobBottom
        lower: KitLook.knobTop

        Behavior on x {
            NumberAnimation {
                duration: Motion.duration(Motion.Flip)
                easing.type: Easing.OutCubic
            }
        }
    }
}
