#include "ui/kit/view/ImageView.h"

namespace kit {

ImageView::ImageView(const Image& image, QObject* parent)
    : View({ { 0, 0 }, image.size() }, parent)
    , m_image(image)
{
}

void ImageView::setImage(const Image& image)
{
    if (m_image == image)
        return;
    m_image = image;
    Q_EMIT imageChanged();
}

void ImageView::setContentMode(ContentMode mode)
{
    if (m_contentMode == mode)
        return;
    m_contentMode = mode;
    Q_EMIT imageChanged();
}

void ImageView::setTintColor(const Color& color)
{
    if (m_tintColor == color)
        return;
    m_tintColor = color;
    Q_EMIT imageChanged();
}

} // namespace kit
