pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// A button of the navigation bar: a glyph, a text, or both. With an item, it shows and presses that item.
PressItem {
    id: root

    required property NavigationBar bar
    property BarButtonItem item: null
    property alias glyph: picture.image
    property string title: item ? item.title : ""
    property string accessibleName: item ? item.accessibilityLabel : ""
    property double maximumTitleWidth: 140

    signal pressed

    function press() {
        if (root.item)
            root.item.press();
        else
            root.pressed();
    }

    width: row.width + 24
    enabled: item === null || item.enabled
    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    spokenName: accessibleName
    spokenDescription: item ? "" : title
    onPressAsked: root.press()
    Keys.onReturnPressed: press()
    Keys.onEnterPressed: press()
    Keys.onSpacePressed: press()

    Shortcut {
        sequence: root.item ? root.item.shortcut : ""
        enabled: root.visible && root.enabled
        onActivated: root.press()
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
        opacity: root.item !== null && !root.item.enabled ? 0.4 : area.pressed ? 0.5 : 1

        ImageItem {
            id: picture

            anchors.verticalCenter: parent.verticalCenter
            width: visible ? 22 : 0
            height: 22
            mode: ImageItem.AspectFit
            tint: root.bar.tint
            visible: present
        }
        Text {
            height: parent.height
            width: Math.min(implicitWidth, root.maximumTitleWidth)
            visible: text.length > 0
            text: root.title
            textFormat: Text.PlainText
            font.family: KitLook.fontFamily
            font.pixelSize: KitLook.barFontSize(16)
            fontSizeMode: KitLook.enlargesTexts ? Text.HorizontalFit : Text.FixedSize
            minimumPixelSize: 16
            font.bold: root.item !== null && root.item.emphasised
            color: root.bar.tint
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
            style: Text.Sunken
            styleColor: KitLook.textShadow
            renderType: Text.NativeRendering
        }
    }
    FocusRing {
        control: root
        anchors.margins: 5
    }
    PressArea {
        id: area

        anchors.fill: parent
        onTapped: root.press()
    }
}
