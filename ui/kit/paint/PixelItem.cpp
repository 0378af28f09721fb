#include "ui/kit/paint/PixelItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace kit {

namespace {

constexpr QSize LargestSize(8192, 8192);

} // namespace

PixelItem::PixelItem(QQuickItem* parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void PixelItem::geometryChange(const QRectF& now, const QRectF& before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        update();
}

void PixelItem::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemDevicePixelRatioHasChanged || (change == ItemVisibleHasChanged && m_isOverdue))
        update();
    QQuickItem::itemChange(change, data);
}

QSGNode* PixelItem::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(oldNode);
    m_isOverdue = !isVisible();
    if (m_isOverdue)
        return node;
    const double scale = window()->effectiveDevicePixelRatio();
    const QSize pixelSize = (size() * scale).toSize().boundedTo(LargestSize);
    const QImage picture = pixelSize.isEmpty() ? QImage() : painted(pixelSize, scale);
    if (picture.isNull()) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
    }
    node->setTexture(window()->createTextureFromImage(picture));
    node->setRect(boundingRect());
    node->setFiltering(QSGTexture::Linear);
    return node;
}

} // namespace kit
