pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// A table: its cells and headers where C++ put them, scrolled, pulled and driven by keys.
FocusScope {
    id: root

    required property KitTable view
    readonly property RefreshControl refresh: view.refreshControl
    readonly property double refreshRoom: 60

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

    Accessible.role: Accessible.List
    Accessible.focusable: true
    Accessible.onScrollDownAction: if (enabled)
        root.view.scrollByPage(1)
    Accessible.onScrollUpAction: if (enabled)
        root.view.scrollByPage(-1)

    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_Down]: 1,
            [Qt.Key_Up]: -1
        };
        event.accepted = true;
        KeyboardFocus.shown = true;
        if (event.key in steps)
            root.view.rowFocus.moveBy(steps[event.key]);
        else if (event.key === Qt.Key_Home)
            root.view.rowFocus.moveToFirst();
        else if (event.key === Qt.Key_End)
            root.view.rowFocus.moveToLast();
        else if (event.key === Qt.Key_PageDown || event.key === Qt.Key_PageUp)
            root.view.rowFocus.moveByPage(event.key === Qt.Key_PageDown ? 1 : -1);
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space)
            root.view.rowFocus.activate();
        else if (event.key === Qt.Key_Delete)
            root.view.rowFocus.deleteRow();
        else
            event.accepted = false;
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
        running: root.refresh !== null && root.refresh.refreshing
        fraction: Math.min(1, -flick.contentY / (root.refreshRoom * 1.4))
    }
    Flickable {
        id: flick

        anchors.fill: parent
        clip: true
        pixelAligned: true
        contentWidth: width
        contentHeight: root.view.contentHeight
        boundsBehavior: Flickable.DragAndOvershootBounds
        flickDeceleration: 1500
        maximumFlickVelocity: 8000

        onContentYChanged: root.view.setContentOffset(contentY)
        onMovementStarted: root.view.openRow.close()
        onDraggingChanged: {
            if (dragging)
                root.forceActiveFocus();
            else if (root.refresh && contentY < -root.refreshRoom * 1.4)
                root.refresh.pull();
        }

        Item {
            width: flick.width
            height: flick.contentHeight

            ViewSlot {
                view: root.view.tableHeaderView
            }
            SubviewsItem {
                model: root.view.cellModel
            }
            SubviewsItem {
                z: 2
                model: root.view.headerModel
            }
        }
    }
    // Before any row or control of a row has the focus, the whole table has it.
    FocusRing {
        control: root
        anchors.margins: 2
        visible: root.Window.activeFocusItem === root && KeyboardFocus.shown && root.view.rowFocus.row < 0
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
        function onRefreshingChanged() {
            root.showRefreshing();
        }

        target: root.refresh
    }

    // The room for the spinner is there at once; only the content moves.
    function showRefreshing() {
        const begins = root.refresh.refreshing;
        if (begins)
            flick.topMargin = root.refreshRoom;
        if (begins ? flick.contentY <= 0 : flick.contentY < 0) {
            settle.to = begins ? -root.refreshRoom : 0;
            settle.restart();
        } else if (!begins) {
            flick.topMargin = 0;
        }
    }

    Component.onCompleted: {
        flick.contentY = root.view.contentOffset;
        if (root.refresh && root.refresh.refreshing)
            root.showRefreshing();
    }
}
