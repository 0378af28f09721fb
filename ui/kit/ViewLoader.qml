import QtQuick
import ui.kit

// Draws any view by the file its kind names; nothing for none.
Loader {
    id: root

    property View view

    function load() {
        if (root.view)
            root.setSource(root.view.component + ".qml", {
                "view": root.view
            });
        else
            root.source = "";
    }

    onViewChanged: load()
}
