pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

Window {
    id: root

    required property WindowController controller

    minimumWidth: 320
    minimumHeight: 320
    color: "black"

    SpokenScope {
        id: content

        anchors.fill: parent
        focus: panel.item === null
        enabled: panel.item === null

        Accessible.role: spokenRole

        onWidthChanged: root.controller.resize(width, height)
        onHeightChanged: root.controller.resize(width, height)

        ControllerLoader {
            anchors.fill: parent
            focus: true
            controller: root.controller.rootViewController
        }
        TapHandler {
            // A finger presses no button, and would go back by every touch.
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            acceptedButtons: Qt.BackButton
            onTapped: root.controller.goBack()
        }
    }
    TabOrder {
        onMoving: KeyboardFocus.shown = true
    }
    Loader {
        id: panel

        property AlertController alert: root.controller.alert

        anchors.fill: parent
        focus: item !== null
        onAlertChanged: {
            source = "";
            if (alert)
                setSource("AlertPanel.qml", {
                    "alert": alert
                });
            else
                content.forceActiveFocus();
        }
    }
    Shortcut {
        sequence: "Alt+Left"
        enabled: panel.item === null
        autoRepeat: false
        onActivated: root.controller.goBack()
    }
    Shortcut {
        sequence: "Escape"
        enabled: panel.item === null
        autoRepeat: false
        onActivated: root.controller.escape()
    }
    Shortcut {
        sequence: "Ctrl+F"
        enabled: panel.item === null
        autoRepeat: false
        onActivated: root.controller.search()
    }
    Repeater {
        model: root.controller.tabModel
        delegate: Item {
            id: tabKey

            required property int index

            Shortcut {
                sequence: "Ctrl+" + (tabKey.index + 1)
                enabled: panel.item === null
                autoRepeat: false
                onActivated: root.controller.selectTab(tabKey.index)
            }
        }
    }
}
