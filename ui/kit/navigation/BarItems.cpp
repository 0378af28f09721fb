#include "ui/kit/navigation/BarItems.h"

namespace kit {

BarButtonItem::BarButtonItem(const QString& title, Style style, std::function<void()> action)
    : m_title(title)
    , m_accessibilityLabel(title)
    , m_action(std::move(action))
    , m_style(style)
{
}

BarButtonItem::BarButtonItem(const Image& image, const QString& accessibilityLabel, std::function<void()> action)
    : m_image(image)
    , m_accessibilityLabel(accessibilityLabel)
    , m_action(std::move(action))
{
}

void BarButtonItem::setEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    Q_EMIT enabledChanged();
}

void BarButtonItem::press()
{
    if (m_enabled && m_action)
        m_action();
}

void TabBarItem::setTitle(const QString& title)
{
    m_title = title;
    Q_EMIT itemChanged();
}

void TabBarItem::setImage(const Image& image)
{
    m_image = image;
    Q_EMIT itemChanged();
}

} // namespace kit
