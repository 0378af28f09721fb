import QtQuick
import ui.kit

// A screen that is one view.
FocusScope {
    id: root

    required property ViewController controller

    ViewSlot {
        focus: true
        view: root.controller.view
    }
}
