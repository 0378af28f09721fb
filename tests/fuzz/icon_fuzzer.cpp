// Any bytes as an icon: they are a picture that a row can show, or none.
#include "tests/fuzz/Require.h"
#include "ui/kit/paint/Image.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr int largestSide = 512;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const kit::Image image = kit::Image::fromData(bytes, 1);
    if (image.isNull())
        return 0;
    const QImage pixels = image.pixels(1);
    require(!pixels.isNull() && pixels.format() == QImage::Format_ARGB32_Premultiplied);
    require(pixels.width() <= largestSide && pixels.height() <= largestSide);
    return 0;
}
