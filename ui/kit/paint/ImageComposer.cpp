#include "ui/kit/paint/ImageComposer.h"

#include <QCache>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>

namespace kit {

namespace {

// Together with the icons that are kept, less than 64 MiB.
constexpr qsizetype KeptBytes = qsizetype(36) * 1024 * 1024;

// A look without its image, so that what is composed keeps no picture alive that it was made from.
struct KeptLook
{
    explicit KeptLook(const ImageLook& look)
        : image(look.image.identity())
        , capInsets(look.image.capInsets())
        , resizingMode(look.image.resizingMode())
        , isResizable(look.image.isResizable())
        , pixelSize(look.pixelSize)
        , scale(look.scale)
        , mode(look.mode)
        , tint(look.tint)
        , radius(look.radius)
    {
    }

    quint64 image;
    EdgeInsets capInsets;
    Image::ResizingMode resizingMode;
    bool isResizable;
    QSize pixelSize;
    double scale;
    ImageLook::Mode mode;
    QColor tint;
    double radius;

    friend bool operator==(const KeptLook&, const KeptLook&) = default;
    friend size_t qHash(const KeptLook& look, size_t seed)
    {
        return qHashMulti(seed, look.image, look.pixelSize.width(), look.pixelSize.height(), look.tint.rgba(),
            static_cast<int>(look.mode), look.radius);
    }
};

// What an entry holds besides its pixels: its key, the picture's own data, the nodes of the cache.
constexpr qsizetype EntryBytes = 512;

// The edges of two caps and what is between, in whole pixels; caps that are too large for the length share it.
std::array<double, 4> cappedEdges(double before, double after, double length)
{
    const double fit = before + after > length ? length / (before + after) : 1;
    const double first = std::round(before * fit);
    return { 0.0, first, std::max(first, length - std::round(after * fit)), length };
}

struct Stretch
{
    double begin;
    double end;
};

// The caps of a picture and what is between them; where they meet, that is the last pixel of the first one.
std::array<Stretch, 3> cappedStretches(double before, double after, double length)
{
    const double first = std::min(before, length);
    const double last = std::max(0.0, length - after);
    const Stretch middle
        = first < last ? Stretch{ first, last } : Stretch{ std::max(0.0, first - 1), std::max(1.0, first) };
    return { Stretch{ 0, first }, middle, Stretch{ last, length } };
}

// One of the nine parts of a resizable picture: its place there, and what it is to fill.
struct Part
{
    QRectF source;
    QRectF target;
};

void tilePart(QPainter& painter, const QImage& pixels, const Part& part, double scale)
{
    const QImage cut = pixels.copy(part.source.toRect());
    const QSize size = (QSizeF(cut.size()) * scale).toSize().expandedTo({ 1, 1 });
    const QImage tile = size == cut.size() ? cut : cut.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    painter.setBrushOrigin(part.target.topLeft());
    painter.fillRect(part.target, QBrush(tile));
}

// The four corners keep their size, the edges stretch or repeat along themselves, the middle both ways.
void drawResized(QPainter& painter, const QRectF& target, const QImage& pixels, const Image& image, double scale)
{
    const double source = pixels.devicePixelRatio();
    const EdgeInsets& caps = image.capInsets();
    const std::array sx = cappedStretches(caps.left * source, caps.right * source, pixels.width());
    const std::array sy = cappedStretches(caps.top * source, caps.bottom * source, pixels.height());
    const std::array tx = cappedEdges(caps.left * scale, caps.right * scale, target.width());
    const std::array ty = cappedEdges(caps.top * scale, caps.bottom * scale, target.height());
    QImage plain = pixels;
    plain.setDevicePixelRatio(1);
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column) {
            const Part part{ QRectF(QPointF(sx[column].begin, sy[row].begin), QPointF(sx[column].end, sy[row].end)),
                QRectF(QPointF(tx[column], ty[row]), QPointF(tx[column + 1], ty[row + 1])) };
            const bool isCorner = row != 1 && column != 1;
            if (part.target.isEmpty() || part.source.isEmpty())
                continue;
            if (image.resizingMode() == Image::ResizingMode::Tile && !isCorner)
                tilePart(painter, plain, part, scale / source);
            else
                painter.drawImage(part.target, pixels, part.source);
        }
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
        drawResized(painter, target, pixels, look.image, look.scale);
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
    static QCache<KeptLook, QImage> kept(KeptBytes);
    const std::scoped_lock lock(mutex);
    const KeptLook key(look);
    if (const QImage* picture = kept.object(key))
        return *picture;
    QImage picture = compose(look);
    kept.insert(key, new QImage(picture), picture.sizeInBytes() + EntryBytes);
    return picture;
}

} // namespace kit
