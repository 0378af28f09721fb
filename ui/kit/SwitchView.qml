pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

FocusScope {
    id: root

    required property Switch view

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

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.view.on ? root.view.onTint : KitLook.switchOff
        border.color: KitLook.edge
        border.width: 1
        opacity: 0.95

        Behavior on color {
            ColorAnimation {
                duration: Motion.duration(150)
            }
        }
        Rectangle {
            anchors.fill: parent
            anchors.margins: 1
            radius: height / 2
            gradient: Gradient {
                GradientStop {
                    position: 0
                    color: KitLook.textShadow
                }
                GradientStop {
                    position: 0.5
                    color: "transparent"
                }
            }
        }
    }
    Rectangle {
        x: root.view.on ? root.width - width - 2 : 2
        y: 2
        width: root.height - 4
        height: width
        radius: width / 2
        border.color: KitLook.edge
        border.width: 1
        gradient: Gradient {
            GradientStop {
                position: 0
                color: KitLook.knobBottom
            }
            GradientStop {
                position: 1
                color: KitLook.knobTop
            }
        }

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
