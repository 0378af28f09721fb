pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// The selected tab's screen above the tab bar. The other tabs' screens are made when they are first selected and then kept.
FocusScope {
    id: root

    required property TabBarController controller
    readonly property TabBar bar: controller.tabBar
    readonly property double barHeight: Metrics.TabBarHeight

    focus: true

    Repeater {
        model: root.controller.tabModel
        delegate: FocusScope {
            id: tab

            required property QtObject object
            required property int index
            readonly property bool selected: index === root.controller.selectedIndex

            width: root.width
            height: root.height - root.controller.heightBelow
            visible: selected
            focus: selected

            ControllerLoader {
                anchors.fill: parent
                focus: true
                controller: tab.object as ViewController
                wanted: tab.selected
            }
        }
    }
    Item {
        id: bar

        y: root.height - root.barHeight
        width: root.width
        height: root.barHeight

        Accessible.role: Accessible.PageTabList

        Rectangle {
            anchors.fill: parent
            color: root.bar.backgroundColor
        }
        ImageItem {
            anchors.fill: parent
            image: root.bar.backgroundImage
        }
        Hairline {
            width: parent.width
            color: root.bar.shadowColor
        }
        Row {
            // Tabs keep together in the middle of a wide window.
            readonly property double tabWidth: Math.min(root.width, 600) / Math.max(1, tabs.count)

            anchors.horizontalCenter: parent.horizontalCenter
            height: parent.height

            Repeater {
                id: tabs

                model: root.controller.tabModel
                delegate: TabButton {
                    required property QtObject object
                    required property int index

                    width: parent ? (parent as Row).tabWidth : 0
                    height: root.barHeight
                    item: (object as ViewController).tabBarItem
                    bar: root.bar
                    selected: index === root.controller.selectedIndex
                    onPressed: root.controller.tapTab(index)
                }
            }
        }
    }
}
