pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// What can be done with the text of a field, in a callout over everything else that points at the text. It offers what
// applies, and takes no keyboard from the field. A press anywhere else only closes it.
Item {
    id: root

    required property TextInput field
    readonly property bool hasSelection: field.selectionStart !== field.selectionEnd
    property panelPlace place

    visible: false
    parent: field.Window.contentItem
    anchors.fill: parent
    z: 10

    // Does nothing while there is nothing to offer.
    function open() {
        visible = field.length > 0 || field.canPaste;
        stand();
    }

    // Of what is selected, the end with the cursor is in sight; the other may be scrolled away.
    function stand() {
        const first = field.positionToRectangle(field.selectionStart);
        const last = field.positionToRectangle(field.selectionEnd);
        const left = Math.max(0, first.x);
        const right = Math.min(field.width, last.x);
        const text = field.mapToItem(root, left, 0, Math.max(1, right - left), field.height);
        place = PanelPlacing.beside(text, Qt.size(body.width, body.height), Qt.size(width, height));
    }

    function act(change) {
        visible = false;
        change();
    }

    onWidthChanged: visible = false
    onHeightChanged: visible = false

    // What makes room for a keyboard moves the field.
    Connections {
        function onKeyboardRectangleChanged() {
            if (root.visible)
                Qt.callLater(root.stand);
        }

        target: Qt.inputMethod
    }

    component Choice: Item {
        id: choice

        required property string title

        signal chosen

        width: label.implicitWidth + 22
        height: Metrics.TouchSize

        Accessible.role: Accessible.Button
        Accessible.name: title
        Accessible.ignored: !visible
        Accessible.onPressAction: choice.chosen()

        Rectangle {
            anchors.fill: parent
            anchors.margins: 5
            radius: 7
            color: KitLook.highlight
            opacity: area.down ? 1 : 0.4
            visible: area.down || area.hovered
        }
        KitText {
            id: label

            anchors.centerIn: parent
            text: choice.title
            font: KitLook.barFont(14, Font.Bold)
            color: KitLook.panelText
        }
        PressArea {
            id: area

            anchors.fill: parent
            takesOneOfTwo: true
            onTapped: choice.chosen()
        }
    }

    Item {
        id: body

        x: root.place.x
        y: root.place.y
        width: choices.width + 8
        height: Metrics.TouchSize
        onWidthChanged: if (root.visible)
            root.stand()

        PanelShape {
            anchors.fill: parent
            anchors.margins: -reach
            place: root.place
            topColor: KitLook.panelTop
            bottomColor: KitLook.panelBottom
            edgeColor: KitLook.panelEdge
            shadowColor: KitLook.lightShade
        }
        Row {
            id: choices

            x: 4

            Choice {
                title: KitLook.selectTitle
                visible: !root.hasSelection && root.field.length > 0
                onChosen: root.field.selectWord()
            }
            Choice {
                title: KitLook.selectAllTitle
                visible: root.field.selectedText.length < root.field.length
                onChosen: root.field.selectAll()
            }
            Choice {
                title: KitLook.cutTitle
                visible: root.hasSelection
                onChosen: root.act(() => root.field.cut())
            }
            Choice {
                title: KitLook.copyTitle
                visible: root.hasSelection
                onChosen: root.act(() => root.field.copy())
            }
            Choice {
                title: KitLook.pasteTitle
                visible: root.field.canPaste
                onChosen: root.act(() => root.field.paste())
            }
        }
    }
    PressGuard {
        active: root.visible
        spared: body
        onPressedElsewhere: root.visible = false
    }
}
