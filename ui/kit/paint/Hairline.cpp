#include "ui/kit/paint/Hairline.h"

#include <QQuickWindow>

namespace kit {

Hairline::Hairline(QQuickItem* parent)
    : PixelItem(parent)
{
    // Made within a window, it is not told of that.
    takeHeight();
    connect(this, &Hairline::colorChanged, this, &QQuickItem::update);
}

void Hairline::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        takeHeight();
    PixelItem::itemChange(change, data);
}

void Hairline::takeHeight()
{
    if (window())
        setHeight(1 / window()->effectiveDevicePixelRatio());
}

QImage Hairline::painted(const QSize& pixelSize, double /*scale*/) const
{
    QImage line(pixelSize.width(), 1, QImage::Format_ARGB32_Premultiplied);
    line.fill(m_color);
    return line;
}

} // namespace kit
