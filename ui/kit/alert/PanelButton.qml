import QtQuick
import ui.kit

// A glossy button of an alert or sheet.
Pressable {
    id: root

    enum Look {
        Default,
        Cancel,
        Destructive
    }

    required property string title
    required property int look

    implicitHeight: KitLook.grown(Metrics.TouchSize)
    ringRadius: 8
    spokenName: title

    RoundedBox {
        anchors.fill: parent
        radius: 7
        edge: KitLook.edge
        opacity: root.down ? 0.7 : 1
        upper: root.look === PanelButton.Destructive ? KitLook.destructiveTop : root.look === PanelButton.Cancel ? KitLook.cancelTop : KitLook.buttonTop
        lower: root.look === PanelButton.Destructive ? KitLook.destructiveBottom : root.look === PanelButton.Cancel ? KitLook.cancelBottom : KitLook.buttonBottom

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: KitLook.highlight
            opacity: 0.4
            visible: root.hovered && !root.down
        }
        Rectangle {
            x: 4
            y: 1
            width: parent.width - 8
            height: 1
            color: KitLook.highlight
        }
    }
    KitText {
        anchors.fill: parent
        anchors.margins: 6
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: root.title
        font: KitLook.font(16, Font.Bold)
        standardSize: 16
        color: KitLook.panelText
    }
}
