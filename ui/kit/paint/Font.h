#pragma once

#include <QFont>
#include <QString>

// The system font in its two weights. Sizes are points of the interface, that is logical pixels, at the usual text
// size; the fonts are as much larger as the text scale tells.
namespace kit::Font {

QFont systemFont(double size);
QFont boldSystemFont(double size);

// The size that the font was asked for.
int standardSize(const QFont& font);

// The font with its enlargement held to what a bar has room for.
QFont fittedToBar(const QFont& font);

// The height of a text broken into lines within a width, not rounded.
double boundingHeight(const QString& text, const QFont& font, double width);

} // namespace kit::Font
