import QtQuick

// Where a touch presses a control. Two quick touches are two presses.
MouseArea {
    id: root

    signal tapped

    onClicked: root.tapped()
    onDoubleClicked: root.tapped()
}
