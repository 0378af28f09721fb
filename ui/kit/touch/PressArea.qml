import QtQuick

// Where a touch presses a control. Two quick touches are two presses.
MouseArea {
    id: root

    // While a finger that began here is here, not while it has slipped off.
    readonly property bool down: pressed && containsMouse

    signal tapped

    onClicked: root.tapped()
    onDoubleClicked: root.tapped()
}
