#include "ui/kit/text/TextScale.h"

#include <algorithm>
#include <cmath>

namespace kit {

namespace {

constexpr double Largest = 2;
constexpr double LargestInBars = 1.25;
constexpr double TextShareOfRows = 0.6;

double s_scale = 1;

int scaled(int size, double scale)
{
    return static_cast<int>(std::lround(size * scale));
}

} // namespace

double TextScale::value()
{
    return s_scale;
}

void TextScale::set(double scale)
{
    s_scale = std::isnan(scale) ? 1 : std::clamp(scale, 1.0, Largest);
}

double TextScale::grown(double height)
{
    return s_scale == 1 ? height : std::round(height * (1 + (s_scale - 1) * TextShareOfRows));
}

int TextScale::fontSize(int standardSize)
{
    return scaled(standardSize, s_scale);
}

int TextScale::barFontSize(int standardSize)
{
    return scaled(standardSize, std::min(s_scale, LargestInBars));
}

} // namespace kit
