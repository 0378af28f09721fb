#pragma once

#include "ui/kit/paint/Image.h"

#include <QColor>

namespace kit {

// A colour of four components, each usually 0 to 1 but never clamped here, or a pattern image that tiles what it fills.
struct Color
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;
    Image pattern;

    static Color clear() { return {}; }
    static Color white() { return { 1, 1, 1, 1, {} }; }
    static Color black(double alpha = 1) { return { 0, 0, 0, alpha, {} }; }
    static Color withPatternImage(const Image& image) { return { 0, 0, 0, 1, image }; }

    // Clamped to what can be shown.
    QColor toQColor() const;

    friend bool operator==(const Color&, const Color&) = default;
};

} // namespace kit
