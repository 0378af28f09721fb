import QtQuick
import ui.kit

// A glossy button of an alert or sheet.
FocusScope {
    id: root

    enum Look {
        Default,
        Cancel,
        Destructive
    }

    required property string title
    required property int look
    property bool emphasised: false

    signal pressed

    implicitHeight: KitLook.grown(44)
    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: title
    Accessible.focusable: true
    Accessible.onPressAction: if (enabled)
        root.pressed()
    Keys.onReturnPressed: pressed()
    Keys.onEnterPressed: pressed()
    Keys.onSpacePressed: pressed()

    RoundedBox {
        anchors.fill: parent
        radius: 7
        edge: KitLook.edge
        opacity: area.pressed ? 0.7 : 1
        upper: root.look === PanelButton.Destructive ? KitLook.destructiveTop : root.look === PanelButton.Cancel ? KitLook.cancelTop : KitLook.buttonTop
        lower: root.look === PanelButton.Destructive ? KitLook.destructiveBottom : root.look === PanelButton.Cancel ? KitLook.cancelBottom : KitLook.buttonBottom

        Rectangle {
            x: 4
            y: 1
            width: parent.width - 8
            height: 1
            color: KitLook.highlight
        }
    }
    Text {
        anchors.fill: parent
        anchors.margins: 6
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: root.title
        textFormat: Text.PlainText
        font.family: KitLook.fontFamily
        font.pixelSize: KitLook.fontSize(16)
        fontSizeMode: KitLook.enlargesTexts ? Text.HorizontalFit : Text.FixedSize
        minimumPixelSize: 16
        font.bold: true
        color: KitLook.panelText
        elide: Text.ElideRight
        style: Text.Sunken
        styleColor: KitLook.textShadow
        renderType: Text.NativeRendering
    }
    FocusRing {
        control: root
        radius: 8
    }
    PressArea {
        id: area

        anchors.fill: parent
        onTapped: root.pressed()
    }
}
