import QtQuick

// The cursor of a text field in a colour of its own. It blinks as the desktop's cursors do, and stands still while the
// text changes.
Rectangle {
    id: root

    required property TextInput field

    width: 2
    visible: field.cursorVisible

    Timer {
        id: flash

        interval: Math.max(1, Qt.styleHints.cursorFlashTime / 2)
        repeat: true
        running: root.visible && Qt.styleHints.cursorFlashTime > 1
        onTriggered: root.opacity = 1 - root.opacity
        onRunningChanged: root.opacity = 1
    }
    Connections {
        function onCursorPositionChanged() {
            root.opacity = 1;
            if (flash.running)
                flash.restart();
        }

        target: root.field
    }
}
