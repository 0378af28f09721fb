import QtQuick
import ui.kit

Text {
    id: root

    required property Label view

    x: view.frame.x
    y: view.frame.y
    width: view.frame.width
    height: view.frame.height
    visible: !view.hidden && text.length > 0
    text: view.shownText
    onTextChanged: view.drawWhole(root)
    textFormat: Text.PlainText
    font: view.font
    color: view.color
    // Undefined follows the text.
    horizontalAlignment: view.alignment & Qt.AlignHCenter ? Text.AlignHCenter : view.alignment & Qt.AlignRight ? Text.AlignRight : view.numberOfLines === 1 ? Text.AlignLeft : undefined
    verticalAlignment: Text.AlignVCenter
    elide: view.numberOfLines === 0 ? Text.ElideNone : Text.ElideRight
    wrapMode: view.numberOfLines === 1 ? Text.NoWrap : Text.Wrap
    maximumLineCount: view.numberOfLines > 0 ? view.numberOfLines : 100000
    fontSizeMode: view.adjustsFontSizeToFitWidth ? Text.HorizontalFit : view.enlarged ? Text.Fit : Text.FixedSize
    minimumPixelSize: view.smallestFontSize
    style: view.shadow === Label.Below ? Text.Raised : view.shadow === Label.Above ? Text.Sunken : Text.Normal
    styleColor: view.shadowColor
    renderType: Text.NativeRendering

    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: !view.accessibilityElement
}
