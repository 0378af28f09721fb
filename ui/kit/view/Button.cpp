#include "ui/kit/view/Button.h"

#include "ui/kit/text/Font.h"

#include <QFontMetricsF>

#include <cmath>

namespace kit {

Button::Button(QObject* parent)
    : View({}, parent)
    , m_titleLabel(new Label({}, this))
{
    m_titleLabel->setFont(Font::systemFont(15));
    m_titleLabel->setTextColor(Color::white());
    m_titleLabel->setTextAlignment(Qt::AlignHCenter);
    m_titleLabel->setAccessibilityElement(false);
}

void Button::setTitle(const QString& title)
{
    m_titleLabel->setText(title);
    setAccessibilityLabel(title);
    Q_EMIT buttonChanged();
}

void Button::setBackgroundImage(const Image& image)
{
    m_backgroundImage = image;
    Q_EMIT buttonChanged();
}

void Button::setContentEdgeInsets(const EdgeInsets& insets)
{
    m_contentEdgeInsets = insets;
    layoutSubviews();
}

void Button::setEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    Q_EMIT buttonChanged();
}

QSizeF Button::naturalSize() const
{
    const EdgeInsets& insets = m_contentEdgeInsets;
    const double titleHeight = QFontMetricsF(m_titleLabel->shownFont()).height();
    return { insets.left + m_titleLabel->naturalWidth() + insets.right, insets.top + titleHeight + insets.bottom };
}

void Button::sizeToFit()
{
    const QSizeF size = naturalSize();
    setFrame({ frame().topLeft(), QSizeF(std::ceil(size.width()), std::ceil(size.height())) });
}

void Button::press()
{
    if (m_enabled && m_action)
        m_action(this);
}

void Button::layoutSubviews()
{
    const EdgeInsets& insets = m_contentEdgeInsets;
    m_titleLabel->setFrame(bounds().adjusted(insets.left, 0, -insets.right, 0));
}

} // namespace kit
