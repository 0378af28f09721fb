#include "ui/kit/view/ImageView.h"

#include <tuple>

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

bool ImageView::isLike(const View& other) const
{
    const auto look
        = [](const ImageView& view) { return std::tie(view.m_image, view.m_contentMode, view.m_tintColor); };
    return hasLikeFrameAndSubviews(other) && look(*this) == look(static_cast<const ImageView&>(other));
}

} // namespace kit
