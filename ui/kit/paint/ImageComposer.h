#pragma once

#include "ui/kit/paint/Image.h"

#include <QColor>
#include <QSize>

namespace kit {

// How an image is to look: the key of a composed picture.
struct ImageLook
{
    enum class Mode { ScaleToFill, AspectFit, Tile };

    Image image;
    QSize pixelSize;
    double scale = 1;
    Mode mode = Mode::ScaleToFill;
    QColor tint;
    double radius = 0;

    friend bool operator==(const ImageLook&, const ImageLook&) = default;
};

namespace ImageComposer {

// The picture of that look, premultiplied, of exactly its pixel size. Recent ones are kept. Safe on any thread.
QImage composed(const ImageLook& look);

} // namespace ImageComposer

} // namespace kit
