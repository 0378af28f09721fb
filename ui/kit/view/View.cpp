#include "ui/kit/view/View.h"

#include <algorithm>
#include <tuple>
#include <typeinfo>

namespace kit {

View::View(const QRectF& frame, QObject* parent)
    : QObject(parent)
    , m_frame(frame)
{
}

// The subviews, which QObject deletes after this, have no superview left to take themselves out of.
View::~View()
{
    for (View* subview : m_subviews)
        subview->m_superview = nullptr;
    removeFromSuperview();
}

void View::setFrame(const QRectF& frame)
{
    if (m_frame == frame)
        return;
    const bool resized = m_frame.size() != frame.size();
    m_frame = frame;
    if (resized)
        layoutSubviews();
    Q_EMIT frameChanged();
}

void View::setHidden(bool hidden)
{
    if (m_hidden == hidden)
        return;
    m_hidden = hidden;
    Q_EMIT appearanceChanged();
}

void View::setBackgroundColor(const Color& color)
{
    if (m_backgroundColor == color)
        return;
    m_backgroundColor = color;
    Q_EMIT appearanceChanged();
}

void View::setGradient(const Gradient& gradient)
{
    m_gradient = gradient;
    Q_EMIT appearanceChanged();
}

void View::setCornerRadius(double radius)
{
    if (m_cornerRadius == radius)
        return;
    m_cornerRadius = radius;
    Q_EMIT appearanceChanged();
}

void View::setClipsToBounds(bool clips)
{
    if (m_clipsToBounds == clips)
        return;
    m_clipsToBounds = clips;
    Q_EMIT appearanceChanged();
}

void View::setAccessibilityLabel(const QString& label)
{
    // It may come from a source, which may send megabytes.
    constexpr qsizetype LongestLabel = 1000;
    if (m_accessibilityLabel == label.left(LongestLabel))
        return;
    m_accessibilityLabel = label.left(LongestLabel);
    Q_EMIT appearanceChanged();
}

void View::setAccessibilityElement(bool element)
{
    if (m_accessibilityElement == element)
        return;
    m_accessibilityElement = element;
    Q_EMIT appearanceChanged();
}

void View::addSubview(View* view)
{
    view->removeFromSuperview();
    view->setParent(this);
    view->m_superview = this;
    m_subviews.append(view);
    m_subviewModel.append(view);
}

void View::removeFromSuperview()
{
    if (!m_superview)
        return;
    m_superview->m_subviewModel.remove(this);
    m_superview->m_subviews.removeOne(this);
    m_superview = nullptr;
    setParent(nullptr);
}

bool View::isLike(const View& other) const
{
    return typeid(*this) == typeid(View) && hasLikeFrameAndSubviews(other);
}

bool View::hasLikeFrameAndSubviews(const View& other) const
{
    const auto look = [](const View& view) {
        return std::tie(view.m_backgroundColor, view.m_gradient, view.m_cornerRadius, view.m_hidden,
            view.m_clipsToBounds, view.m_accessibilityLabel, view.m_accessibilityElement, view.m_tag);
    };
    const auto areLike = [](const View* one, const View* another) {
        return one->frame() == another->frame() && one->isLike(*another);
    };
    return typeid(*this) == typeid(other) && m_frame.size() == other.m_frame.size() && look(*this) == look(other)
        && std::equal(m_subviews.begin(), m_subviews.end(), other.m_subviews.begin(), other.m_subviews.end(), areLike);
}

QPointF View::convertPointToView(const QPointF& point, const View* view) const
{
    QPointF inRoot = point;
    for (const View* ancestor = this; ancestor && ancestor != view; ancestor = ancestor->superview())
        inRoot += ancestor->frame().topLeft() - ancestor->contentOrigin();
    if (!view)
        return inRoot;
    const bool isAncestor = [&] {
        for (const View* ancestor = this; ancestor; ancestor = ancestor->superview())
            if (ancestor == view)
                return true;
        return false;
    }();
    return isAncestor ? inRoot : inRoot - view->convertPointToView({}, nullptr);
}

} // namespace kit
