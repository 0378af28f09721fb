#pragma once

#include <QFont>
#include <QString>

// The system font in its two weights. Sizes are points of the interface, that is logical pixels.
namespace Font {

QFont systemFont(double size);
QFont boldSystemFont(double size);

// The height of a text broken into lines within a width, not rounded.
double boundingHeight(const QString& text, const QFont& font, double width);

} // namespace Font
