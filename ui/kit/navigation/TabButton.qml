import QtQuick
import ui.kit

FocusScope {
    id: root

    required property TabBarItem item
    required property TabBar bar
    required property bool selected

    signal pressed

    activeFocusOnTab: true

    Accessible.role: Accessible.PageTab
    Accessible.name: item.title
    Accessible.selected: selected
    Accessible.selectable: true
    Accessible.focusable: true
    Accessible.onPressAction: if (enabled)
        root.pressed()
    Keys.onReturnPressed: pressed()
    Keys.onEnterPressed: pressed()
    Keys.onSpacePressed: pressed()

    ImageItem {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 5
        width: 26
        height: 26
        mode: ImageItem.AspectFit
        image: root.item.image
        tint: root.selected ? root.bar.selectedIconColor : root.bar.iconColor
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 32
        width: Math.min(implicitWidth, root.width - 4)
        text: root.item.title
        textFormat: Text.PlainText
        font: root.bar.titleFont
        fontSizeMode: KitLook.enlargesTexts ? Text.HorizontalFit : Text.FixedSize
        minimumPixelSize: root.bar.standardTitleSize
        color: root.selected ? root.bar.selectedTitleColor : root.bar.titleColor
        elide: Text.ElideRight
        renderType: Text.NativeRendering
    }
    FocusRing {
        control: root
        anchors.margins: 1
    }
    PressArea {
        anchors.fill: parent
        onTapped: root.pressed()
    }
}
