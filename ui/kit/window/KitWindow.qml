pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

Window {
    id: root

    required property WindowController controller
    // Where an on-screen keyboard is, in the window.
    property rect keyboard: Qt.inputMethod.visible ? Qt.inputMethod.keyboardRectangle : Qt.rect(0, 0, 0, 0)
    // How much of the window it covers, from the lower edge up. One that floats above the content covers nothing.
    readonly property double covered: keyboard.height > 0 && keyboard.y + keyboard.height >= height ? Math.max(0, height - keyboard.y) : 0

    minimumWidth: 320
    minimumHeight: 320
    color: "black"
    onCoveredChanged: controller.coverBelow(covered)

    SpokenScope {
        id: content

        anchors.fill: parent
        focus: panel.item === null
        enabled: panel.item === null

        Accessible.role: spokenRole

        onWidthChanged: root.controller.resize(width, height)
        onHeightChanged: root.controller.resize(width, height)

        ControllerLoader {
            id: screens

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
    PointerWatch {
        onMouseMoved: KeyboardFocus.hovering = true
        onTouched: KeyboardFocus.hovering = false
    }
    TabOrder {
        onMoving: KeyboardFocus.shown = true
    }
    Loader {
        id: panel

        property AlertController alert: root.controller.alert

        anchors.fill: parent
        anchors.bottomMargin: root.covered
        focus: item !== null
        onAlertChanged: load()

        function load() {
            source = "";
            if (alert)
                setSource("AlertPanel.qml", {
                    "alert": alert
                });
            else
                content.forceActiveFocus();
        }
    }
    Connections {
        function onLookChanged() {
            screens.loadAnew();
            panel.load();
        }

        target: root.controller
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
