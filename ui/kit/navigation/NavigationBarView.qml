pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// The bar above a stack: its background, and the titles and buttons of the screens, which cross-fade in a transition.
FocusScope {
    id: root

    required property NavigationController controller
    readonly property NavigationBar bar: controller.navigationBar

    Rectangle {
        anchors.fill: parent
        color: root.bar.backgroundColor
    }
    ImageItem {
        anchors.fill: parent
        image: root.bar.backgroundImage
    }
    Repeater {
        model: root.controller.pageModel
        delegate: BarContents {
            required property QtObject object
            readonly property bool onTop: object === root.controller.topViewController
            readonly property bool leaving: object === root.controller.leavingViewController
            readonly property double presence: onTop ? root.controller.progress : leaving ? 1 - root.controller.progress : 0
            readonly property int side: (leaving !== root.controller.pushing) ? 1 : -1

            width: root.width
            height: root.height
            page: object as ViewController
            bar: root.bar
            visible: presence > 0
            enabled: onTop
            opacity: presence
            titleShift: Math.round((1 - presence) * side * root.width * 0.3)
            onBack: root.controller.goBack()
        }
    }
    Hairline {
        y: root.height - height
        width: root.width
        color: root.bar.shadowColor
    }
}
