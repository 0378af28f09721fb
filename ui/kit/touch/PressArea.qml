import QtQuick
import ui.kit

// Where a touch presses a control. Two quick touches are two presses. A touch that begins while what it falls on moves under
// it, and stops that, is none.
MouseArea {
    id: root

    // While a finger that began here is here, not while it has slipped off.
    readonly property bool down: pressed && containsMouse
    // Of what a second touch at once would do again to something else.
    property bool takesOneOfTwo: false

    signal tapped

    function standsStill() {
        for (let around = parent; around; around = around.parent) {
            const scroller = around as Scroller;
            if (scroller && (scroller.moving || scroller.carried))
                return false;
        }
        return true;
    }

    onPressed: mouse => mouse.accepted = root.standsStill()
    onClicked: root.tapped()
    onDoubleClicked: if (!root.takesOneOfTwo && root.standsStill())
        root.tapped()
}
