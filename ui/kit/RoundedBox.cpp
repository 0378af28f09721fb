#include "RoundedBox.h"

#include <QLinearGradient>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <cmath>

namespace {

constexpr int LargestSide = 8192;

} // namespace

RoundedBox::RoundedBox(QQuickItem* parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &RoundedBox::changed, this, &QQuickItem::update);
}

void RoundedBox::geometryChange(const QRectF& now, const QRectF& before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        update();
}

void RoundedBox::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemDevicePixelRatioHasChanged)
        update();
    QQuickItem::itemChange(change, data);
}

// The edge lies under the fill, a whole number of pixels wide.
QImage RoundedBox::painted(const QSize& pixelSize, double scale) const
{
    QImage picture(pixelSize, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRectF outside = picture.rect();
    const double edge = m_edge.alpha() > 0 ? std::max(1.0, std::round(m_edgeWidth * scale)) : 0;
    const QRectF inside = outside.adjusted(edge, edge, -edge, -edge);
    const double radius = m_radius * scale;
    QLinearGradient fill(inside.topLeft(), inside.bottomLeft());
    fill.setColorAt(0, m_upper);
    fill.setColorAt(1, m_lower);
    painter.setBrush(m_edge);
    painter.drawRoundedRect(outside, radius, radius);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setBrush(fill);
    painter.drawRoundedRect(inside, std::max(0.0, radius - edge), std::max(0.0, radius - edge));
    return picture;
}

QSGNode* RoundedBox::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(oldNode);
    const double scale = window()->effectiveDevicePixelRatio();
    const QSize pixelSize = (size() * scale).toSize();
    if (pixelSize.isEmpty() || pixelSize.width() > LargestSide || pixelSize.height() > LargestSide) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
    }
    node->setTexture(window()->createTextureFromImage(painted(pixelSize, scale)));
    node->setRect(boundingRect());
    node->setFiltering(QSGTexture::Linear);
    return node;
}
