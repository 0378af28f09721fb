import QtQuick
import ui.kit

// A switch: a press changes it, and its knob follows a finger that draws it.
Pressable {
    id: root

    required property Switch view
    property color fill: view.on ? KitLook.switchOn : KitLook.switchOff
    readonly property double shading: down ? 1.1 : hovered ? 1.05 : 1
    readonly property double firstX: 2
    readonly property double lastX: width - knob.width - 2

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden
    ringMargin: -3
    ringRadius: height / 2 + 3
    reachAside: 6
    reachAbove: 6
    canBeDrawn: true
    spokenRole: Accessible.CheckBox
    spokenName: view.accessibilityLabel
    spokenOn: view.on
    onPressed: root.view.toggle()

    Behavior on fill {
        ColorAnimation {
            duration: Motion.duration(Motion.Flip)
        }
    }
    RoundedBox {
        anchors.fill: parent
        radius: height / 2
        upper: Qt.darker(root.fill, 1.5)
        lower: root.fill
        edge: KitLook.edge
        opacity: 0.95
    }
    RoundedBox {
        id: knob

        x: draw.active ? draw.place : root.view.on ? root.lastX : root.firstX
        y: 2
        width: root.height - 4
        height: width
        radius: width / 2
        edge: KitLook.edge
        upper: Qt.darker(KitLook.knobBottom, root.shading)
        lower: Qt.darker(KitLook.knobTop, root.shading)

        Behavior on x {
            enabled: !draw.active
            NumberAnimation {
                duration: Motion.duration(Motion.Flip)
                easing.type: Easing.OutCubic
            }
        }
    }
    DragHandler {
        id: draw

        property double startX: 0
        readonly property double place: Math.max(root.firstX, Math.min(root.lastX, startX + activeTranslation.x))
        // A finger that slipped no further has tapped.
        readonly property double slip: 10

        target: null
        margin: 6
        yAxis.enabled: false
        // Before the row takes it for a swipe.
        dragThreshold: 5
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        onActiveChanged: {
            if (active) {
                startX = root.view.on ? root.lastX : root.firstX;
                return;
            }
            const drawnOn = startX + activeTranslation.x > (root.firstX + root.lastX) / 2;
            if (Math.abs(activeTranslation.x) < slip || drawnOn !== root.view.on)
                root.view.toggle();
        }
    }
}
