import QtQuick
import ui.kit

// Draws a controller by the file its kind names, from the first time it is wanted on.
Loader {
    id: root

    required property ViewController controller
    property bool wanted: true

    function load() {
        if (wanted && status === Loader.Null)
            setSource(controller.component + ".qml", {
                "controller": controller
            });
    }

    function loadAnew() {
        source = "";
        load();
    }

    onWantedChanged: load()
    Component.onCompleted: load()
}
