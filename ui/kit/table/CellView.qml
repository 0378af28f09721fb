import QtQuick
import ui.kit

// A row: backgrounds, content, accessory and separator, its touches, and the delete button that a swipe uncovers.
// No bound component: Qt refuses to make one within an item that C++ made.
SpokenItem {
    id: root

    required property TableViewCell view
    readonly property KitTable table: view.superview as KitTable
    readonly property bool open: table.openRow.section === view.section && table.openRow.row === view.row && !view.hidden
    readonly property bool focusedHere: KeyboardFocus.shown && table.rowFocus.keyboardHere && table.rowFocus.section === view.section && table.rowFocus.row === view.row && !view.hidden
    readonly property double deleteWidth: 88
    readonly property bool deletable: !view.hidden && table.openRow.canDelete(view.section, view.row)
    // A swipe that goes so far deletes at once.
    readonly property double wholeSwipe: width * 0.6

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden
    clip: content.x !== 0

    spokenRole: Accessible.ListItem
    spokenName: view.textLabel.shownText
    spokenDescription: [detail(), mark(), place()].filter(part => part.length > 0).join(", ")
    spokenFocused: focusedHere
    spokenActions: ["Press", "SetFocus"].concat(deletable ? [KitLook.deleteTitle, "Scroll Left", "Scroll Right"] : [])
    onActed: action => root.doAction(action)

    Accessible.role: spokenRole

    function detail() {
        return view.detailTextLabel ? view.detailTextLabel.shownText : "";
    }

    // What the accessory says; a control at its place says it itself.
    function mark() {
        return view.accessory && !view.accessory.accessibilityElement ? view.accessory.accessibilityLabel : "";
    }

    function place() {
        return view.rowCount > 1 ? KitLook.placeTitle.arg(view.row + 1).arg(view.rowCount) : "";
    }

    function doAction(action) {
        const openRow = root.table.openRow;
        const actions = {
            "Press": () => root.table.tapRow(root.view.section, root.view.row),
            "SetFocus": () => {
                KeyboardFocus.shown = true;
                root.table.rowFocus.takeKeyboard();
                root.table.rowFocus.moveTo(root.view.section, root.view.row);
            },
            // What a swipe does, a whole one and a short one.
            [KitLook.deleteTitle]: () => openRow.deleteRow(root.view.section, root.view.row),
            "Scroll Left": () => openRow.open(root.view.section, root.view.row),
            "Scroll Right": () => openRow.close()
        };
        actions[action]();
    }

    onFocusedHereChanged: if (focusedHere)
        KeyboardFocus.announce(root)

    Behavior on y {
        enabled: root.table.sliding
        NumberAnimation {
            duration: Motion.duration(Motion.Fade)
            easing.type: Easing.OutCubic
        }
    }

    PressArea {
        id: press

        anchors.fill: parent
        enabled: !root.view.hidden
        canBeDrawn: true
        onDownChanged: root.table.pressRow(root.view.section, root.view.row, down)
        onTapped: {
            KeyboardFocus.shown = false;
            root.table.rowFocus.takeKeyboard();
            root.table.tapRow(root.view.section, root.view.row);
        }
    }
    Item {
        id: content

        width: root.width
        height: root.height
        x: swipe.carries ? Math.min(0, Math.max(-root.width, swipe.startX + swipe.activeTranslation.x)) : root.open ? -root.deleteWidth : 0

        Behavior on x {
            enabled: !swipe.carries && !root.table.sliding
            NumberAnimation {
                duration: Motion.duration(Motion.Shift)
                easing.type: Easing.OutCubic
            }
        }

        ViewFill {
            anchors.fill: parent
            view: root.view
        }
        ViewSlot {
            view: root.view.backgroundView
        }
        ViewSlot {
            view: root.view.selectedBackgroundView
            opacity: root.view.highlighted ? 1 : press.hovered && !root.view.hidden ? 0.3 : 0
            visible: opacity > 0

            Behavior on opacity {
                enabled: root.view.fadesSelection
                NumberAnimation {
                    duration: Motion.duration(Motion.Fade)
                }
            }
        }
        PictureView {
            view: root.view.imageView
        }
        LabelView {
            view: root.view.textLabel
        }
        ViewSlot {
            view: root.view.detailTextLabel
        }
        ViewSlot {
            view: root.view.accessory
            // A touch on an open row only closes it.
            enabled: !root.open
        }
        Hairline {
            visible: !root.view.meetsHeader
            x: root.view.separatorLeft
            y: root.height - height
            width: root.width - root.view.separatorLeft - root.view.separatorRight
            color: root.table.separatorTint
        }
        RoundedBox {
            anchors.fill: parent
            anchors.margins: 2
            visible: root.focusedHere
            upper: "transparent"
            lower: "transparent"
            edge: KitLook.focus
            edgeWidth: 2
            radius: Metrics.CornerRadius
        }
    }
    // Made when a swipe uncovers it.
    Loader {
        x: root.width + content.x
        width: -content.x
        height: root.height
        active: width > 0
        sourceComponent: SpokenItem {
            clip: true
            spokenRole: Accessible.Button
            spokenName: KitLook.deleteTitle
            spokenActions: ["Press"]
            onActed: root.table.openRow.deleteRow(root.view.section, root.view.row)

            Accessible.role: spokenRole
            Accessible.ignored: !root.open

            Rectangle {
                anchors.fill: parent
                gradient: Gradient {
                    GradientStop {
                        position: 0
                        color: KitLook.destructiveTop
                    }
                    GradientStop {
                        position: 1
                        color: KitLook.destructiveBottom
                    }
                }
            }
            KitText {
                anchors.centerIn: parent
                text: KitLook.deleteTitle
                color: KitLook.panelText
                font: KitLook.barFont(15, Font.Bold)
                opacity: deleteArea.down ? 0.5 : deleteArea.hovered ? 0.8 : 1
            }
            PressArea {
                id: deleteArea

                anchors.fill: parent
                onTapped: root.table.openRow.deleteRow(root.view.section, root.view.row)
            }
        }
    }

    DragHandler {
        id: swipe

        property double startX: 0
        // From its beginning until it is decided what comes of it.
        property bool carries: false

        function end(x) {
            const openRow = root.table.openRow;
            if (x < -root.deleteWidth / 2)
                openRow.open(root.view.section, root.view.row);
            else
                openRow.close();
            if (x < -root.wholeSwipe)
                openRow.deleteRow(root.view.section, root.view.row);
        }

        target: null
        yAxis.enabled: false
        // It takes the finger over from items, but not from other handlers: the swipe that leads back and a switch keep it.
        grabPermissions: PointerHandler.CanTakeOverFromItems | PointerHandler.ApprovesTakeOverByAnything
        enabled: root.deletable
        onActiveChanged: {
            if (active)
                startX = root.open ? -root.deleteWidth : 0;
            else if (carries)
                end(startX + activeTranslation.x);
            carries = active;
        }
    }
}
