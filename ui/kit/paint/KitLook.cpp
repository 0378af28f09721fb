#include "ui/kit/paint/KitLook.h"

namespace kit {

QFont KitLook::fontOf(int pixelSize, int weight)
{
    QFont font;
    font.setFamily(QStringLiteral("Inter"));
    font.setPixelSize(pixelSize);
    font.setWeight(static_cast<QFont::Weight>(weight));
    return font;
}

} // namespace kit
