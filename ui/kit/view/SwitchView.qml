pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

FocusScope {
    id: root

    required property Switch view
    property color fill: view.on ? view.onTint : KitLook.switchOff

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden
    activeFocusOnTab: true

    Accessible.role: Accessible.CheckBox
    Accessible.name: view.accessibilityLabel
    Accessible.checkable: true
    Accessible.checked: view.on
    Accessible.focusable: true
    Accessible.onPressAction: if (enabled)
        root.view.toggle()
    Accessible.onToggleAction: if (enabled)
        root.view.toggle()
    Keys.onReturnPressed: root.view.toggle()
    Keys.onEnterPressed: root.view.toggle()
    Keys.onSpacePressed: root.view.toggle()

    Behavior on fill {
        ColorAnimation {
            duration: Motion.duration(150)
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
                duration: Motion.duration(150)
                easing.type: Easing.OutCubic
            }
        }
    }
    FocusRing {
        control: root
        anchors.margins: -3
        radius: root.height / 2 + 3
    }
    PressArea {
        anchors.fill: parent
        anchors.margins: -6
        onTapped: root.view.toggle()
    }
}
