import QtQuick
import ui.kit

ImageItem {
    id: root

    required property ImageView view

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden
    image: view.image
    tint: view.tint
    mode: view.contentMode === ImageView.AspectFit ? ImageItem.AspectFit : ImageItem.ScaleToFill
    radius: view.radius

    Accessible.role: Accessible.Graphic
    Accessible.name: view.accessibilityLabel
    Accessible.ignored: view.accessibilityLabel.length === 0 || !view.accessibilityElement
}
