import QtQuick
import ui.kit

// A text that the kit itself shows, on one line unless told otherwise. What comes from elsewhere is never taken for markup.
Text {
    id: root

    // Pressed into what it stands on.
    property bool sunken: true
    // Shrinks down to this size before it is cut short, where texts are enlarged.
    property int standardSize: 0

    textFormat: Text.PlainText
    elide: Text.ElideRight
    fontSizeMode: standardSize > 0 && KitLook.enlargesTexts ? Text.HorizontalFit : Text.FixedSize
    minimumPixelSize: standardSize
    style: sunken ? Text.Sunken : Text.Normal
    styleColor: KitLook.textShadow
    renderType: Text.NativeRendering
}
