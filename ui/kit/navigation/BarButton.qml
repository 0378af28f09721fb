import QtQuick
import ui.kit

// A button of the navigation bar: a glyph, a text, or both. With an item, it shows and presses that item.
Pressable {
    id: root

    required property NavigationBar bar
    property BarButtonItem item: null
    property alias glyph: picture.image
    property string title: item ? item.title : ""
    property double maximumTitleWidth: 140

    width: row.width + 24
    enabled: item === null || item.enabled
    ringMargin: 5
    spokenName: item ? item.accessibilityLabel : ""
    spokenDescription: item ? "" : title
    onPressed: if (root.item)
        root.item.press()

    Shortcut {
        sequences: root.item && root.item.shortcut.length > 0 ? root.item.shortcut.split("; ") : []
        autoRepeat: false
        enabled: root.visible && root.enabled
        onActivated: root.pressed()
    }
    Binding {
        target: picture
        property: "image"
        value: root.item ? root.item.image : null
        when: root.item !== null
    }
    Row {
        id: row

        anchors.horizontalCenter: parent.horizontalCenter
        height: parent.height
        spacing: 2
        // Not while the whole window is out of reach behind an alert.
        opacity: root.item !== null && !root.item.enabled ? 0.4 : root.down ? 0.5 : root.hovered ? 0.8 : 1

        ImageItem {
            id: picture

            anchors.verticalCenter: parent.verticalCenter
            width: 22
            height: 22
            mode: ImageItem.AspectFit
            tint: root.bar.tint
            visible: present
        }
        KitText {
            height: parent.height
            width: Math.min(implicitWidth, root.maximumTitleWidth)
            visible: text.length > 0
            text: root.title
            maximumLineCount: 1
            font: KitLook.barFont(16, root.item !== null && root.item.emphasised ? Font.Bold : Font.Normal)
            standardSize: 16
            color: root.bar.tint
            verticalAlignment: Text.AlignVCenter
        }
    }
}
