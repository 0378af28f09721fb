pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

PressItem {
    id: root

    required property Button view

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden
    enabled: view.enabled
    opacity: view.enabled ? 1 : 0.5
    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    spokenName: view.accessibilityLabel
    onPressAsked: root.view.press()
    Keys.onReturnPressed: root.view.press()
    Keys.onEnterPressed: root.view.press()
    Keys.onSpacePressed: root.view.press()

    ImageItem {
        anchors.fill: parent
        image: root.view.backgroundImage
    }
    Rectangle {
        anchors.fill: parent
        radius: 6
        color: KitLook.shade
        opacity: 0.6
        visible: area.pressed && area.containsMouse
    }
    LabelView {
        view: root.view.titleLabel
    }
    FocusRing {
        control: root
    }
    PressArea {
        id: area

        // A finger needs 44 points.
        anchors.fill: parent
        anchors.topMargin: Math.min(0, (root.height - 44) / 2)
        anchors.bottomMargin: anchors.topMargin
        onTapped: root.view.press()
    }
}
