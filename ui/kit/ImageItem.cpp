#include "ImageItem.h"

#include "ImageComposer.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>

namespace {

// In device pixels. What is larger is stretched to its size, so that a very long row does not take all memory.
constexpr int LargestSide = 8192;

} // namespace

ImageItem::ImageItem(QQuickItem* parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void ImageItem::setImage(const Image& image)
{
    if (m_image == image)
        return;
    m_image = image;
    changed();
}

void ImageItem::setTint(const QColor& tint)
{
    if (m_tint == tint)
        return;
    m_tint = tint;
    changed();
}

void ImageItem::setMode(Mode mode)
{
    if (m_mode == mode)
        return;
    m_mode = mode;
    changed();
}

void ImageItem::setRadius(double radius)
{
    if (m_radius == radius)
        return;
    m_radius = radius;
    changed();
}

void ImageItem::changed()
{
    Q_EMIT imageChanged();
    update();
}

void ImageItem::geometryChange(const QRectF& now, const QRectF& before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        update();
}

void ImageItem::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemDevicePixelRatioHasChanged)
        update();
    QQuickItem::itemChange(change, data);
}

QSGNode* ImageItem::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(oldNode);
    const double scale = window()->effectiveDevicePixelRatio();
    const QSize pixelSize = (size() * scale).toSize().boundedTo({ LargestSide, LargestSide });
    if (m_image.isNull() || pixelSize.isEmpty()) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
    }
    const bool isTemplate = m_image.renderingMode() == Image::RenderingMode::Template;
    const QImage picture = ImageComposer::composed(
        { m_image, pixelSize, scale, static_cast<ImageLook::Mode>(m_mode), isTemplate ? m_tint : QColor(), m_radius });
    node->setTexture(window()->createTextureFromImage(picture));
    node->setRect(boundingRect());
    node->setFiltering(QSGTexture::Linear);
    return node;
}
