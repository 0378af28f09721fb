#pragma once

// How much larger than usual a person wants texts, from 1 to 2: the desktop's text size. 1 until it is set, and then
// nothing differs from a kit without it. After a change the window has to be drawn anew. Main thread.
//
// Everybody goes on telling sizes and heights as they are at 1. Texts grow by the whole scale where they are drawn,
// rows and section headers by grown(). An enlarged text that does not fit shrinks by up to a third before it is cut
// short, and in a fixed frame to what that has room for, but never below its size at 1. Bars keep their heights; their
// texts grow as far as those allow.
namespace kit::TextScale {

double value();
// Clamped; what is no number counts as 1.
void set(double scale);

// The height that a row of that height needs for its enlarged text, a whole number of points. Three fifths of a row are
// text, which grows; the rest is air, which need not.
double grown(double height);
// Of a text in logical pixels, in the page and in a bar.
int fontSize(int standardSize);
int barFontSize(int standardSize);

} // namespace kit::TextScale
