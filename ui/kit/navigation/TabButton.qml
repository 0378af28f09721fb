import QtQuick
import ui.kit

Pressable {
    id: root

    required property TabBarItem item
    required property TabBar bar
    required property bool selected

    ringMargin: 1
    spokenRole: Accessible.PageTab
    spokenName: item.title
    spokenSelected: selected

    ImageItem {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 5
        width: 26
        height: 26
        mode: ImageItem.AspectFit
        image: root.item.image
        opacity: root.down ? 0.5 : 1
        tint: root.selected ? root.bar.selectedIconColor : root.bar.iconColor
    }
    KitText {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 32
        width: Math.min(implicitWidth, root.width - 4)
        text: root.item.title
        font: root.bar.titleFont
        standardSize: root.bar.standardTitleSize
        color: root.selected ? root.bar.selectedTitleColor : root.bar.titleColor
        sunken: false
        opacity: root.down ? 0.5 : 1
    }
}
