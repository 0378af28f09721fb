pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// A table: its cells and headers where C++ put them, scrolled, pulled and driven by keys. The keyboard is here or in a
// control of a row, never in both.
SpokenItem {
    id: root

    required property KitTable view
    readonly property RefreshControl refresh: view.refreshControl
    readonly property double refreshRoom: 60
    // So far beyond the place where the content rests, a pull refreshes.
    readonly property double pullDistance: refreshRoom * 1.4

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden
    // The spinner above the content stays out of the bar.
    clip: true
    activeFocusOnTab: true
    focus: true

    onActiveFocusChanged: view.rowFocus.keyboardHere = activeFocus

    spokenRole: Accessible.List
    spokenName: view.accessibilityLabel
    // Not while one of its rows is what keys act on.
    spokenFocused: activeFocus && !(KeyboardFocus.shown && view.rowFocus.row >= 0)
    spokenActions: ["Scroll Down", "Scroll Up"]
    onActed: action => root.view.scrollByPage(action === "Scroll Down" ? 1 : -1)

    Accessible.role: spokenRole

    // True for a key that moves the focused row, from wherever in the table the keyboard is.
    function move(key) {
        const focus = root.view.rowFocus;
        const moves = {
            [Qt.Key_Down]: () => focus.moveBy(1),
            [Qt.Key_Up]: () => focus.moveBy(-1),
            [Qt.Key_Home]: () => focus.moveToFirst(),
            [Qt.Key_End]: () => focus.moveToLast(),
            [Qt.Key_PageDown]: () => focus.moveByPage(1),
            [Qt.Key_PageUp]: () => focus.moveByPage(-1)
        };
        if (!(key in moves))
            return false;
        root.forceActiveFocus();
        moves[key]();
        return true;
    }

    // True for a key that does something with the focused row.
    function act(event) {
        if (!root.activeFocus || event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier))
            return false;
        const presses = event.key === Qt.Key_Return || event.key === Qt.Key_Enter || (event.key === Qt.Key_Space && !root.view.rowFocus.isTyping());
        if (presses)
            root.view.rowFocus.activate();
        else if (event.key === Qt.Key_Delete)
            root.view.rowFocus.deleteRow();
        else if (event.text.length > 0 && event.text >= " " && event.text !== "\x7f")
            root.view.rowFocus.type(event.text);
        else
            return false;
        return true;
    }

    Keys.onPressed: event => {
        event.accepted = root.move(event.key) || root.act(event);
        if (event.accepted)
            KeyboardFocus.shown = true;
    }

    ViewFill {
        anchors.fill: parent
        view: root.view
    }
    Spinner {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.min(18, -flick.contentY - 42)
        visible: root.refresh !== null && flick.contentY < -12
        tint: root.refresh ? root.refresh.tint : "transparent"
        running: root.refresh !== null && root.refresh.refreshing && !badge.visible
        fraction: Math.min(1, -flick.contentY / root.pullDistance)
    }
    Scroller {
        id: flick

        // Once in a stroke of the finger.
        property bool pulled: false

        anchors.fill: parent
        pixelAligned: true
        contentWidth: width
        contentHeight: root.view.contentHeight
        boundsBehavior: Flickable.DragAndOvershootBounds
        flickDeceleration: 1500
        maximumFlickVelocity: 8000
        carried: settle.running

        onContentYChanged: {
            root.view.setContentOffset(contentY);
            if (dragging && !pulled && root.refresh && contentY < -topMargin - root.pullDistance) {
                pulled = true;
                root.refresh.pull();
            }
        }
        onMovementStarted: root.view.openRow.close()
        onDraggingChanged: {
            if (dragging)
                root.forceActiveFocus();
            else if (root.refresh)
                root.showRefreshing();
            pulled = false;
        }

        Item {
            width: flick.width
            height: flick.contentHeight

            ViewSlot {
                view: root.view.tableHeaderView
            }
            SubviewsItem {
                id: cells

                model: root.view.cellModel
            }
            SubviewsItem {
                z: 2
                model: root.view.headerModel
            }
        }
    }
    // Content that stands over the spinner's room does not hide that a refresh runs.
    RoundedBox {
        id: badge

        anchors.horizontalCenter: parent.horizontalCenter
        y: KitLook.grown(25) + 10
        width: 44
        height: 44
        radius: 12
        upper: KitLook.panelTop
        lower: KitLook.panelBottom
        edge: KitLook.edge
        opacity: 0.9
        visible: root.refresh !== null && root.refresh.refreshing && flick.contentY > -42 && !settle.running

        Spinner {
            anchors.centerIn: parent
            tint: KitLook.panelText
            running: badge.visible
        }
    }
    // While a row stands open, a press anywhere else only closes it.
    PressGuard {
        id: guard

        active: root.view.openRow.row >= 0 && root.visible && root.enabled
        onPressedElsewhere: root.view.openRow.close()
    }
    // Before any row or control of a row has the focus, the whole table has it.
    FocusRing {
        control: root
        anchors.margins: 2
        visible: root.activeFocus && KeyboardFocus.shown && root.view.rowFocus.row < 0
    }
    ScrollIndicator {
        id: indicator

        flickable: flick
    }

    NumberAnimation {
        id: settle

        target: flick
        property: "contentY"
        duration: Motion.duration(Motion.Fade)
        easing.type: Easing.OutCubic
        onFinished: if (!root.refresh || !root.refresh.refreshing)
            flick.topMargin = 0
    }
    Connections {
        function onContentOffsetChanged() {
            if (flick.contentY !== root.view.contentOffset)
                flick.contentY = root.view.contentOffset;
        }

        target: root.view
    }
    Connections {
        function onKeyboardWanted() {
            root.forceActiveFocus();
        }

        function onScrolled() {
            indicator.flash();
        }

        target: root.view.rowFocus
    }
    Connections {
        function onChanged() {
            guard.spared = root.openCell();
        }

        target: root.view.openRow
    }
    Connections {
        // A control of a row that the keyboard goes to comes into view.
        function onActiveFocusItemChanged() {
            const cell = KeyboardFocus.shown ? root.cellAround(root.Window.activeFocusItem) : null;
            if (cell)
                root.view.rowFocus.reveal(cell.view.section, cell.view.row);
        }

        target: root.Window.window
    }
    Connections {
        function onRefreshingChanged() {
            if (!flick.dragging)
                root.showRefreshing();
        }

        target: root.refresh
    }

    function openCell() {
        const openRow = root.view.openRow;
        for (let index = 0; index < cells.children.length; ++index) {
            const slot = cells.children[index];
            const cell = slot.children.length > 0 ? slot.children[0] as CellView : null;
            if (cell && !cell.view.hidden && cell.view.section === openRow.section && cell.view.row === openRow.row)
                return cell;
        }
        return null;
    }

    // Null also for a control of another table.
    function cellAround(control) {
        for (let around = control; around && around !== root; around = around.parent) {
            const cell = around as CellView;
            if (cell && cell.table === root.view)
                return cell;
        }
        return null;
    }

    // The room for the spinner is there at once; only the content moves. Under a finger neither changes.
    function showRefreshing() {
        const isRefreshing = root.refresh.refreshing;
        // On its way back from the refresh before, the room is there still.
        if (isRefreshing === (flick.topMargin > 0) && !settle.running)
            return;
        if (isRefreshing)
            flick.topMargin = root.refreshRoom;
        if (isRefreshing ? flick.contentY <= 0 : flick.contentY < 0) {
            settle.to = isRefreshing ? -root.refreshRoom : 0;
            settle.restart();
        } else if (!isRefreshing) {
            flick.topMargin = 0;
        }
    }

    Component.onCompleted: {
        flick.contentY = root.view.contentOffset;
        if (root.refresh && root.refresh.refreshing)
            root.showRefreshing();
    }
}
