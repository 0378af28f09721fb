import QtQuick

// Content that a finger, a wheel or a key moves.
Flickable {
    // Moved by the kit itself, of which a Flickable knows nothing.
    property bool carried: false
}
