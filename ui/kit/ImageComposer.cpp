#include "ImageComposer.h"

#include <QCache>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>

size_t qHash(const ImageLook& look, size_t seed)
{
    return qHashMulti(seed, look.image.identity(), look.pixelSize.width(), look.pixelSize.height(), look.tint.rgba(),
        static_cast<int>(look.mode), look.radius);
}

namespace {

constexpr qsizetype KeptBytes = qsizetype(64) * 1024 * 1024;

// The edges of two caps and what is between, in whole pixels; caps that are too large for the length share it.
std::array<double, 4> cappedEdges(double before, double after, double length)
{
    const double fit = before + after > length ? length / (before + after) : 1;
    const double first = std::round(before * fit);
    return { 0.0, first, std::max(first, length - std::round(after * fit)), length };
}

// The four corners keep their size, the edges stretch along themselves, the middle both ways.
void drawStretched(QPainter& painter, const QRectF& target, const QImage& pixels, const EdgeInsets& caps, double scale)
{
    const double source = pixels.devicePixelRatio();
    const double w = pixels.width();
    const double h = pixels.height();
    const std::array sx{ 0.0, caps.left * source, w - caps.right * source, w };
    const std::array sy{ 0.0, caps.top * source, h - caps.bottom * source, h };
    const std::array tx = cappedEdges(caps.left * scale, caps.right * scale, target.width());
    const std::array ty = cappedEdges(caps.top * scale, caps.bottom * scale, target.height());
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            painter.drawImage(QRectF(QPointF(tx[column], ty[row]), QPointF(tx[column + 1], ty[row + 1])), pixels,
                QRectF(QPointF(sx[column], sy[row]), QPointF(sx[column + 1], sy[row + 1])));
}

void drawTiled(QPainter& painter, const QRectF& target, const QImage& pixels, double scale)
{
    QImage tile = pixels;
    tile.setDevicePixelRatio(1);
    if (const double source = pixels.devicePixelRatio(); source != scale)
        tile = tile.scaled((QSizeF(tile.size()) * scale / source).toSize().expandedTo({ 1, 1 }), Qt::IgnoreAspectRatio,
            Qt::SmoothTransformation);
    painter.fillRect(target, QBrush(tile));
}

QRectF fitted(const QSizeF& size, const QRectF& into)
{
    QRectF rect({ 0, 0 }, size.scaled(into.size(), Qt::KeepAspectRatio));
    rect.moveCenter(into.center());
    return rect;
}

// Fewer pixels are made by averaging: a painter would leave out those between, and an icon would look torn.
void drawWhole(QPainter& painter, const QRectF& target, const QImage& pixels)
{
    const QSize size = target.size().toSize();
    if (size.isEmpty() || (size.width() >= pixels.width() && size.height() >= pixels.height()))
        painter.drawImage(target, pixels);
    else
        painter.drawImage(target, pixels.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void draw(QPainter& painter, const ImageLook& look)
{
    const QRectF target({ 0, 0 }, QSizeF(look.pixelSize));
    const QImage pixels = look.image.pixels(look.scale);
    if (look.mode == ImageLook::Mode::Tile)
        drawTiled(painter, target, pixels, look.scale);
    else if (look.mode == ImageLook::Mode::AspectFit)
        drawWhole(painter, fitted(pixels.size(), target), pixels);
    else if (look.image.isResizable())
        drawStretched(painter, target, pixels, look.image.capInsets(), look.scale);
    else
        drawWhole(painter, target, pixels);
}

QImage compose(const ImageLook& look)
{
    QImage picture(look.pixelSize, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (look.radius > 0) {
        QPainterPath path;
        path.addRoundedRect(
            QRectF({ 0, 0 }, QSizeF(look.pixelSize)), look.radius * look.scale, look.radius * look.scale);
        painter.setClipPath(path);
    }
    draw(painter, look);
    if (look.image.renderingMode() == Image::RenderingMode::Template) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), look.tint);
    }
    return picture;
}

} // namespace

QImage ImageComposer::composed(const ImageLook& look)
{
    static std::mutex mutex;
    static QCache<ImageLook, QImage> kept(KeptBytes);
    const std::scoped_lock lock(mutex);
    if (const QImage* picture = kept.object(look))
        return *picture;
    QImage picture = compose(look);
    kept.insert(look, new QImage(picture), picture.sizeInBytes());
    return picture;
}
