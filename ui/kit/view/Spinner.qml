pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// Twelve spokes. Drawn up to a fraction while it is pulled out, turning while it runs. They are there only while they can
// be seen: every table has two spinners.
SpokenItem {
    id: root

    required property color tint
    property double fraction: 1
    property bool running: false
    property int phase: 0

    implicitWidth: 24
    implicitHeight: 24

    spokenRole: Accessible.ProgressBar
    spokenName: KitLook.refreshingTitle

    Accessible.role: spokenRole
    Accessible.ignored: !running

    NumberAnimation on phase {
        running: root.running && root.visible
        from: 0
        to: 12
        duration: 1000
        loops: Animation.Infinite
    }
    Repeater {
        model: root.visible ? 12 : 0
        delegate: Item {
            id: spoke

            required property int index

            anchors.fill: parent
            rotation: index * 30
            opacity: root.running ? 1 - 0.07 * ((root.phase - index + 12) % 12) : (index < root.fraction * 12 ? 0.9 : 0)

            Rectangle {
                x: parent.width / 2 - 1.25
                y: 0
                width: 2.5
                height: 7
                radius: 1.25
                color: root.tint
            }
        }
    }
}
