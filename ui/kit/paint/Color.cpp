#include "ui/kit/paint/Color.h"

#include <algorithm>

namespace kit {

QColor Color::toQColor() const
{
    const auto shown = [](double component) { return static_cast<float>(std::clamp(component, 0.0, 1.0)); };
    return QColor::fromRgbF(shown(red), shown(green), shown(blue), shown(alpha));
}

} // namespace kit
