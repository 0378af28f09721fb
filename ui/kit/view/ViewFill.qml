import QtQuick
import ui.kit

// What stands behind a view's subviews: its colour or pattern, and its gradient. Most views have none of them.
// No bound component: Qt refuses to make one within an item that C++ made.
Loader {
    id: root

    required property View view

    active: view.filled
    sourceComponent: Item {
        Rectangle {
            anchors.fill: parent
            color: root.view.fillColor
            visible: color.a > 0
        }
        ImageItem {
            anchors.fill: parent
            image: root.view.fillPattern
            mode: ImageItem.Tile
        }
        Rectangle {
            anchors.fill: parent
            visible: root.view.hasGradient
            gradient: Gradient {
                GradientStop {
                    position: 0
                    color: root.view.gradientTop
                }
                GradientStop {
                    position: 1
                    color: root.view.gradientBottom
                }
            }
        }
    }
}
