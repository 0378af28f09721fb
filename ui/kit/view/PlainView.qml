pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// A view without a look of its own: its fill, then its subviews.
Item {
    id: root

    required property View view

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden

    Accessible.role: Accessible.Heading
    Accessible.name: view.accessibilityLabel
    Accessible.ignored: view.accessibilityLabel.length === 0

    ViewFill {
        anchors.fill: parent
        view: root.view
    }
    SubviewsItem {
        model: root.view.subviewModel
    }
}
