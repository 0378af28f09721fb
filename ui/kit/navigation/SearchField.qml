pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// The search field of a navigation bar, with a button that clears it and, while it is in use, one that cancels.
FocusScope {
    id: root

    required property SearchBar searchBar
    // The word beside the field stands on it, where the field's own tint need not be legible.
    required property NavigationBar bar
    readonly property color fieldTint: searchBar.tint

    // The keyboard goes on to the results, and so many rows down.
    signal leftForResults(int rows)
    // The keyboard, which was here, goes on to them without marking any.
    signal cancelled

    RoundedBox {
        id: box

        x: 10
        y: 8
        width: root.width - 20 - (cancel.visible ? cancel.width : 0)
        height: Metrics.FieldHeight
        radius: height / 2
        upper: KitLook.field
        lower: KitLook.field
        edge: input.activeFocus ? root.fieldTint : KitLook.edge

        Behavior on width {
            NumberAnimation {
                duration: Motion.duration(Motion.Shift)
                easing.type: Easing.OutCubic
            }
        }
        ImageItem {
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            width: 16
            height: 16
            mode: ImageItem.AspectFit
            image: GlyphImages.search
            tint: KitLook.fieldPlaceholder
        }
        KitText {
            anchors.fill: input
            verticalAlignment: Text.AlignVCenter
            visible: input.text.length === 0 && input.preeditText.length === 0
            text: root.searchBar.placeholder
            color: KitLook.fieldPlaceholder
            font: input.font
            sunken: false
        }
        FieldInput {
            id: input

            x: 32
            width: parent.width - 64
            height: parent.height
            focus: true
            font: KitLook.barFont(15, Font.Normal)
            selectionColor: root.fieldTint
            inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
            cursorDelegate: TextCursor {
                color: root.fieldTint
                field: input
            }

            Accessible.role: Accessible.EditableText
            Accessible.name: root.searchBar.placeholder
            Accessible.searchEdit: true

            onTextChanged: root.searchBar.text = text
            onActiveFocusChanged: if (activeFocus)
                root.searchBar.active = true
            Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
            Keys.onEscapePressed: if (!input.closeMenu())
                root.searchBar.cancel()
            Keys.onDownPressed: root.leftForResults(1)
            Keys.onReturnPressed: root.leftForResults(0)
            Keys.onEnterPressed: root.leftForResults(0)
        }
        Pressable {
            id: clear

            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            width: 18
            height: 18
            visible: input.text.length > 0
            // What it does, keys do in the field itself.
            activeFocusOnTab: false
            reachAside: 10
            reachAbove: 10
            spokenName: KitLook.clearTitle
            onPressed: {
                input.clear();
                input.forceActiveFocus();
            }

            ImageItem {
                anchors.fill: parent
                mode: ImageItem.AspectFit
                image: GlyphImages.clear
                tint: KitLook.fieldPlaceholder
                opacity: clear.down ? 0.5 : clear.hovered ? 0.8 : 1
            }
        }
    }
    Pressable {
        id: cancel

        anchors.right: parent.right
        anchors.rightMargin: 4
        y: 8
        width: cancelTitle.implicitWidth + 16
        height: Metrics.FieldHeight
        visible: root.searchBar.active
        spokenName: KitLook.cancelTitle
        onPressed: root.searchBar.cancel()

        KitText {
            id: cancelTitle

            anchors.fill: parent
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            text: KitLook.cancelTitle
            font: KitLook.barFont(15, Font.Normal)
            color: root.bar.tint
            opacity: cancel.down ? 0.5 : cancel.hovered ? 0.8 : 1
        }
    }
    Component.onCompleted: input.text = searchBar.text

    Connections {
        function onTextChanged() {
            if (input.text !== root.searchBar.text)
                input.text = root.searchBar.text;
        }
        function onActiveChanged() {
            if (root.searchBar.active)
                input.forceActiveFocus();
            else if (root.activeFocus)
                root.cancelled();
        }

        target: root.searchBar
    }
}
