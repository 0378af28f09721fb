pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// An alert in the middle of the window, or a sheet, over a shade that holds back everything else. In a window of a phone's
// size the sheet lies at the lower edge; in a large one it stands beside what opened it and points there.
// Where the window is too low, the texts and the buttons scroll, each for themselves.
SpokenScope {
    id: root

    required property AlertController alert
    readonly property bool large: width >= 600 && height >= 480
    readonly property bool beside: alert.sheet && large
    readonly property bool sideBySide: !alert.sheet && alert.actions.length === 2

    spokenRole: Accessible.Dialog
    spokenName: heading.text
    spokenDescription: message.text

    Accessible.role: spokenRole
    Keys.onUpPressed: texts.scroll(-40)
    Keys.onDownPressed: texts.scroll(40)
    Keys.onEscapePressed: root.alert.cancel()
    Keys.onReturnPressed: root.alert.confirm()
    Keys.onEnterPressed: root.alert.confirm()

    Rectangle {
        anchors.fill: parent
        // What an arrow points at stays easy to read.
        color: root.beside ? KitLook.lightShade : KitLook.shade

        NumberAnimation on opacity {
            from: 0
            to: 1
            duration: Motion.duration(Motion.Shift)
        }
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onClicked: if (root.alert.sheet)
            root.alert.cancel()
    }
    Item {
        id: panel

        readonly property double room: root.height - 16 - 28 - 8
        readonly property double rest: root.alert.sheet ? root.height - height - 8 : (root.height - height) / 2
        readonly property panelPlace place: PanelPlacing.beside(root.alert.anchor, Qt.size(width, height), Qt.size(root.width, root.height))

        x: root.beside ? place.x : Math.round((root.width - width) / 2)
        y: root.beside ? place.y : Math.round(rest)
        width: root.alert.sheet && !root.large ? Math.min(KitLook.grown(480), root.width - 16) : Math.min(KitLook.grown(290), root.width - 32)
        height: choices.y + choices.height + 14

        PanelShape {
            anchors.fill: parent
            anchors.margins: -reach
            visible: root.beside
            place: panel.place
            topColor: KitLook.panelTop
            bottomColor: KitLook.panelBottom
            edgeColor: KitLook.panelEdge
            shadowColor: KitLook.shade
        }
        Rectangle {
            anchors.fill: parent
            visible: !root.beside
            radius: 12
            border.color: KitLook.panelEdge
            border.width: 2
            gradient: Gradient {
                GradientStop {
                    position: 0
                    color: KitLook.panelTop
                }
                GradientStop {
                    position: 1
                    color: KitLook.panelBottom
                }
            }
        }

        NumberAnimation on scale {
            running: !root.alert.sheet
            from: 0.85
            to: 1
            duration: Motion.duration(Motion.Shift)
            easing.type: Easing.OutBack
        }

        // Touches on the panel do not reach what closes the sheet.
        MouseArea {
            anchors.fill: parent
        }
        Flickable {
            id: texts

            x: 14
            y: 14
            width: parent.width - 28
            height: Math.min(contentHeight, panel.room - choices.height)
            contentHeight: contents.height
            clip: contentHeight > height
            boundsBehavior: Flickable.StopAtBounds

            // A field stands below the texts and is what matters.
            onHeightChanged: if (fields.count > 0)
                scroll(contentHeight)
            onContentHeightChanged: if (fields.count > 0)
                scroll(contentHeight)

            function scroll(points) {
                contentY = Math.max(0, Math.min(contentY + points, contentHeight - height));
            }

            Column {
                id: contents

                width: texts.width
                spacing: 8

                KitText {
                    id: heading

                    width: parent.width
                    visible: text.length > 0
                    horizontalAlignment: Text.AlignHCenter
                    text: KitLook.shown(root.alert.title.slice(0, 500))
                    wrapMode: Text.Wrap
                    maximumLineCount: 3
                    font: KitLook.font(17, Font.Bold)
                    color: KitLook.panelText
                }
                KitText {
                    id: message

                    width: parent.width
                    visible: text.length > 0
                    horizontalAlignment: Text.AlignHCenter
                    text: KitLook.shownSentence(root.alert.message.slice(0, 2000))
                    wrapMode: Text.Wrap
                    elide: Text.ElideNone
                    font: KitLook.font(14, Font.Normal)
                    color: KitLook.panelText
                }
                Repeater {
                    id: fields

                    model: root.alert.textFields
                    delegate: RoundedBox {
                        id: box

                        required property AlertTextField modelData
                        required property int index

                        width: contents.width
                        height: KitLook.grown(Metrics.FieldHeight)
                        radius: Metrics.CornerRadius
                        upper: KitLook.field
                        lower: KitLook.field
                        edge: KitLook.edge

                        KitText {
                            anchors.fill: input
                            visible: input.text.length === 0 && input.preeditText.length === 0
                            verticalAlignment: Text.AlignVCenter
                            text: box.modelData.placeholder
                            color: KitLook.fieldPlaceholder
                            font: input.font
                            sunken: false
                        }
                        FieldInput {
                            id: input

                            anchors.fill: parent
                            anchors.leftMargin: 10
                            anchors.rightMargin: 10
                            focus: box.index === 0
                            font: KitLook.font(15, Font.Normal)
                            selectionColor: KitLook.focus
                            inputMethodHints: box.modelData.inputHints
                            text: box.modelData.text

                            Accessible.role: Accessible.EditableText
                            Accessible.name: box.modelData.placeholder

                            onTextChanged: box.modelData.text = text
                            Component.onCompleted: if (box.index === 0)
                                forceActiveFocus()
                        }
                    }
                }
            }
        }
        Flickable {
            id: choices

            x: 14
            y: 14 + texts.height + 8
            width: parent.width - 28
            height: Math.min(contentHeight, Math.max(panel.room - contents.height, panel.room / 2))
            contentHeight: buttons.height
            clip: contentHeight > height
            boundsBehavior: Flickable.StopAtBounds

            function reveal(top, size) {
                contentY = Math.max(Math.min(contentY, top), top + size - height);
            }

            Grid {
                id: buttons
                width: choices.width
                columns: root.sideBySide ? 2 : 1
                spacing: 8
                topPadding: 4
                Repeater {
                    model: root.alert.actions
                    delegate: PanelButton {
                        required property AlertAction modelData
                        required property int index
                        width: root.sideBySide ? (buttons.width - 8) / 2 : buttons.width
                        title: modelData.title
                        look: modelData.destructive ? PanelButton.Destructive : modelData.cancel ? PanelButton.Cancel : PanelButton.Default
                        onPressed: root.alert.choose(index)
                        onActiveFocusChanged: if (activeFocus)
                            choices.reveal(y, height)
                    }
                }
            }
        }
        ScrollIndicator {
            opacity: 1
            flickable: texts
        }
        ScrollIndicator {
            opacity: 1
            flickable: choices
        }
    }

    Component.onCompleted: if (alert.textFields.length === 0)
        forceActiveFocus()
}
