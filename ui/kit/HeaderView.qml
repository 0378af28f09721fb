import QtQuick
import ui.kit

// A section's header above the rows, pinned by C++.
PlainView {
    z: 2

    Accessible.role: Accessible.Heading
    Accessible.name: view.accessibilityLabel
}
