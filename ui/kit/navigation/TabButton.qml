import QtQuick
import ui.kit

// A tab: its title below its symbol, or beside it where the bar says so.
Pressable {
    id: root

    required property TabBarItem item
    required property TabBar bar
    required property bool selected
    readonly property bool isStacked: bar.layout === TabBar.Stacked
    readonly property double symbolSize: isStacked ? 26 : bar.layout === TabBar.Inline ? 24 : 20
    readonly property double gap: 6
    // Of symbol and title beside each other; whole points keep the symbol crisp.
    readonly property double inlineLeft: Math.floor((width - symbolSize - gap - title.width) / 2)

    // As anchors have it: whole points for what is a whole number of points wide.
    function middleOf(width) {
        return Math.floor(width) % 2 === 1 ? (width + 1) / 2 : width / 2;
    }

    ringMargin: 1
    spokenRole: Accessible.PageTab
    spokenName: item.title
    spokenSelected: selected

    ImageItem {
        id: symbol

        x: root.isStacked ? root.middleOf(root.width) - root.middleOf(width) : root.inlineLeft
        y: root.isStacked ? 5 : Math.round((root.height - height) / 2)
        width: root.symbolSize
        height: root.symbolSize
        mode: ImageItem.AspectFit
        image: root.item.image
        opacity: root.down ? 0.5 : root.hovered ? 0.8 : 1
        tint: root.selected ? root.bar.selectedIconColor : root.bar.iconColor
    }
    KitText {
        id: title

        x: root.isStacked ? root.middleOf(root.width) - root.middleOf(width) : root.inlineLeft + root.symbolSize + root.gap
        y: root.isStacked ? 32 : Math.round((root.height - height) / 2)
        width: Math.min(implicitWidth, root.width - (root.isStacked ? 4 : root.symbolSize + root.gap + 8))
        text: root.item.title
        font: root.bar.titleFont
        standardSize: root.bar.standardTitleSize
        color: root.selected ? root.bar.selectedTitleColor : root.bar.titleColor
        sunken: false
        opacity: root.down ? 0.5 : root.hovered ? 0.8 : 1
    }
}
