#pragma once

#include <QFont>
#include <QString>

// The system font in its two weights. Sizes are points of the interface, that is logical pixels, at the usual text
// size: a font does not change with what a person prefers, only how it is drawn.
namespace kit::Font {

QFont systemFont(double size);
QFont boldSystemFont(double size);

// As it is drawn now: as much larger as the text scale tells.
QFont enlarged(const QFont& font);

// The same with the enlargement held to what a bar has room for.
QFont fittedToBar(const QFont& font);

// The height of a text drawn in lines within a width, not rounded.
double boundingHeight(const QString& text, const QFont& font, double width);

} // namespace kit::Font
