import QtQuick
import ui.kit

Pressable {
    id: root

    required property Button view

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden
    enabled: view.enabled
    opacity: view.enabled ? 1 : 0.5
    reachAbove: Math.max(0, (Metrics.TouchSize - height) / 2)
    spokenName: view.accessibilityLabel
    onPressed: root.view.press()

    ImageItem {
        anchors.fill: parent
        image: root.view.backgroundImage
    }
    Rectangle {
        anchors.fill: parent
        radius: Metrics.CornerRadius
        color: root.down ? KitLook.shade : KitLook.highlight
        opacity: root.down ? 0.6 : 0.5
        visible: root.down || root.hovered
    }
    LabelView {
        view: root.view.titleLabel
    }
}
