pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// What one screen puts into the navigation bar: back button, left item, title, right item, search field.
FocusScope {
    id: root

    required property ViewController page
    required property NavigationBar bar
    property double titleShift: 0
    readonly property NavigationItem item: page.navigationItem
    // A screen with a search field shows what it found in a table.
    readonly property KitTable table: page.view as KitTable
    readonly property double barHeight: Metrics.NavigationBarHeight
    // The title keeps to the middle while there is room for it there, then to the space between the buttons.
    readonly property double leftEdge: leftItems.width + 8
    // Not by what is visible at the moment: nothing is, each time another tab shows.
    readonly property double rightEdge: item.rightItem !== null ? rightItem.width + 8 : 8

    signal back

    TextMetrics {
        id: ownTitle

        font: root.bar.titleFont
        text: titleText.text
    }
    Row {
        id: leftItems

        height: root.barHeight

        BarButton {
            id: backButton

            bar: root.bar
            height: root.barHeight
            visible: root.page.backTitle.length > 0
            glyph: GlyphImages.back
            title: KitLook.shown(root.page.backTitle.slice(0, 500))
            maximumTitleWidth: Math.max(60, root.width - ownTitle.advanceWidth - root.rightEdge - (root.item.leftItem !== null ? leftItem.width : 0) - 64)
            spokenName: KitLook.backTitle
            takesOneOfTwo: true
            onPressed: root.back()
        }
        BarButton {
            id: leftItem

            bar: root.bar
            height: root.barHeight
            visible: root.item.leftItem !== null
            item: root.item.leftItem
        }
    }
    KitText {
        id: titleText

        readonly property double middle: (root.width - width) / 2

        x: Math.round(Math.max(root.leftEdge, Math.min(middle, root.width - root.rightEdge - width))) + root.titleShift
        width: Math.min(implicitWidth, root.width - root.leftEdge - root.rightEdge)
        height: root.barHeight
        text: KitLook.shown(root.item.title.slice(0, 500))
        maximumLineCount: 1
        font: root.bar.titleFont
        standardSize: root.bar.standardTitleSize
        color: root.bar.titleColor
        verticalAlignment: Text.AlignVCenter

        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    BarButton {
        id: rightItem

        anchors.right: parent.right
        bar: root.bar
        height: root.barHeight
        visible: root.item.rightItem !== null
        item: root.item.rightItem
    }
    // Only a few screens have one, and it is made of more than the rest of the bar.
    Loader {
        id: search

        readonly property SearchController controller: root.item.searchController

        y: root.barHeight
        width: root.width
        height: Metrics.SearchBarHeight
        onControllerChanged: {
            source = "";
            if (controller)
                setSource("SearchField.qml", {
                    "searchBar": controller.searchBar,
                    "bar": root.bar
                });
        }
    }
    Connections {
        function onLeftForResults(rows) {
            root.table.rowFocus.takeKeyboard();
            root.table.rowFocus.moveBy(rows);
        }

        function onCancelled() {
            root.table.rowFocus.takeKeyboard();
        }

        target: search.item
    }
}
