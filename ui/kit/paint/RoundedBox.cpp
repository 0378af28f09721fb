#include "ui/kit/paint/RoundedBox.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace kit {

RoundedBox::RoundedBox(QQuickItem* parent)
    : PixelItem(parent)
{
    connect(this, &RoundedBox::changed, this, &QQuickItem::update);
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

} // namespace kit
