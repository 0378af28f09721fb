pragma ComponentBehavior: Bound

import QtQuick
import ui.kit

// A stack of screens under its navigation bar. During a transition the upper screen slides over the lower one, which moves
// a third as far.
FocusScope {
    id: root

    required property NavigationController controller

    focus: true

    function offsetOf(page) {
        const p = root.controller.progress;
        const isLeaving = page === root.controller.leavingViewController;
        if (!isLeaving && page !== root.controller.topViewController)
            return root.width;
        const isUpper = isLeaving !== root.controller.pushing;
        const away = isLeaving ? p : 1 - p;
        return Math.round(away * root.width * (isUpper ? 1 : -0.3));
    }

    Item {
        anchors.fill: parent
        clip: true

        Repeater {
            model: root.controller.pageModel
            delegate: ScreenPage {
                id: page

                required property QtObject object
                readonly property bool onTop: object === root.controller.topViewController

                controller: object as ViewController
                width: root.width
                height: root.height
                x: root.offsetOf(object)
                visible: onTop || object === root.controller.leavingViewController
                enabled: onTop
                focus: onTop

                Rectangle {
                    anchors.fill: parent
                    color: KitLook.shade
                    opacity: Math.abs(parent.x) / Math.max(1, root.width)
                    visible: parent.x < 0
                }
            }
        }
    }
    // A finger that comes in over the left edge draws the page aside.
    Item {
        y: root.controller.barHeight
        width: 24
        height: root.height - y

        DragHandler {
            id: edge

            property bool carries: false

            target: null
            yAxis.enabled: false
            grabPermissions: PointerHandler.CanTakeOverFromAnything | PointerHandler.ApprovesCancellation
            enabled: carries || (root.controller.canGoBack && root.controller.leavingViewController === null)
            onActiveChanged: {
                if (active)
                    speed.begin();
                if (active || !carries)
                    return;
                carries = false;
                root.controller.endSwipeBack(speed.speed() / Math.max(1, root.width));
            }
            onActiveTranslationChanged: {
                if (!active)
                    return;
                speed.move(activeTranslation.x);
                carries = carries || (activeTranslation.x > 0 && root.controller.beginSwipeBack());
                root.controller.moveSwipeBack(activeTranslation.x / Math.max(1, root.width));
            }
        }
        DragSpeed {
            id: speed
        }
    }
    NavigationBarView {
        width: root.width
        height: root.controller.barHeight
        controller: root.controller
    }
    // Nothing is pressed while it moves: a second touch meant for the screen that leaves would fall on the one that comes.
    MouseArea {
        anchors.fill: parent
        visible: root.controller.leavingViewController !== null
        acceptedButtons: Qt.AllButtons
        onWheel: wheel => wheel.accepted = true
    }
}
