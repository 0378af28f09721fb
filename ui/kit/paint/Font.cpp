#include "ui/kit/paint/Font.h"

#include "ui/kit/paint/TextScale.h"

#include <QTextLayout>

namespace kit {

namespace {

QFont interfaceFont(double size, QFont::Weight weight)
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(TextScale::fontSize(static_cast<int>(size)));
    font.setWeight(weight);
    return font;
}

double layOut(QTextLayout& layout, double width)
{
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({ 0, height });
        height += line.height();
    }
    layout.endLayout();
    return height;
}

} // namespace

QFont Font::systemFont(double size)
{
    return interfaceFont(size, QFont::Normal);
}

QFont Font::boldSystemFont(double size)
{
    return interfaceFont(size, QFont::Bold);
}

int Font::standardSize(const QFont& font)
{
    return TextScale::standardFontSize(font.pixelSize());
}

QFont Font::fittedToBar(const QFont& font)
{
    QFont fitted = font;
    fitted.setPixelSize(TextScale::barFontSize(standardSize(font)));
    return fitted;
}

double Font::boundingHeight(const QString& text, const QFont& font, double width)
{
    QString lines = text;
    lines.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(lines, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    return layOut(layout, width);
}

} // namespace kit
