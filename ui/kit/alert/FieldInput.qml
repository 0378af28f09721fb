import QtQuick
import ui.kit

// The text of a field that a person types into. Held by a finger, or pressed with the other button of a mouse, it offers
// what else can be done with it, without a keyboard.
TextInput {
    id: root

    clip: true
    activeFocusOnTab: true
    verticalAlignment: Text.AlignVCenter
    color: KitLook.fieldText
    selectByMouse: true
    renderType: Text.NativeRendering

    // True when it was open.
    function closeMenu() {
        const wasOpen = menu.item !== null && menu.item.visible;
        if (wasOpen)
            menu.item.visible = false;
        return wasOpen;
    }

    function openMenu(x) {
        forceActiveFocus();
        if (selectionStart === selectionEnd)
            cursorPosition = positionAt(x);
        if (menu.item === null)
            menu.setSource("EditMenu.qml", {
                "field": root
            });
        menu.item.open();
    }

    Keys.onPressed: event => event.accepted = event.key === Qt.Key_Escape && closeMenu()
    onTextChanged: closeMenu()
    onActiveFocusChanged: closeMenu()
    onVisibleChanged: closeMenu()

    // In an item of its own, for an item with a handler takes every button of the mouse.
    Item {
        anchors.fill: parent

        TapHandler {
            acceptedDevices: PointerDevice.TouchScreen | PointerDevice.Stylus
            onLongPressed: root.openMenu(point.position.x)
        }
        TapHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            acceptedButtons: Qt.RightButton
            onTapped: root.openMenu(point.position.x)
        }
    }
    // Made when it is first wanted: it follows what the clipboard holds, which an application on X11 has to ask others for.
    Loader {
        id: menu
    }
}
