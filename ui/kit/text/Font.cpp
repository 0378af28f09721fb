#include "ui/kit/text/Font.h"

#include "ui/kit/text/TextScale.h"

#include <QTextLayout>

namespace kit {

namespace {

QFont interfaceFont(double size, QFont::Weight weight)
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(static_cast<int>(size));
    font.setWeight(weight);
    return font;
}

double layOut(QTextLayout& layout, double width)
{
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
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

QFont Font::enlarged(const QFont& font)
{
    QFont enlarged = font;
    enlarged.setPixelSize(TextScale::fontSize(font.pixelSize()));
    return enlarged;
}

QFont Font::fittedToBar(const QFont& font)
{
    QFont fitted = font;
    fitted.setPixelSize(TextScale::barFontSize(font.pixelSize()));
    return fitted;
}

double Font::boundingHeight(const QString& text, const QFont& font, double width)
{
    QString lines = text;
    lines.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(lines, enlarged(font));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    return layOut(layout, width);
}

} // namespace kit
