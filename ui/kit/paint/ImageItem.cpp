#include "ui/kit/paint/ImageItem.h"

#include "ui/kit/paint/ImageComposer.h"

namespace kit {

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

QImage ImageItem::painted(const QSize& pixelSize, double scale) const
{
    if (m_image.isNull())
        return {};
    const bool isTemplate = m_image.renderingMode() == Image::RenderingMode::Template;
    return ImageComposer::composed(
        { m_image, pixelSize, scale, static_cast<ImageLook::Mode>(m_mode), isTemplate ? m_tint : QColor(), m_radius });
}

} // namespace kit
