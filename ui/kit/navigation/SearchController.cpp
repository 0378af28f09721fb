#include "ui/kit/navigation/SearchController.h"

namespace kit {

void SearchBar::setPlaceholder(const QString& placeholder)
{
    m_placeholder = placeholder;
    Q_EMIT searchBarChanged();
}

void SearchBar::setTintColor(const Color& color)
{
    m_tintColor = color;
    Q_EMIT searchBarChanged();
}

void SearchBar::setText(const QString& text)
{
    if (m_text == text)
        return;
    m_text = text;
    Q_EMIT textChanged();
}

void SearchBar::setActive(bool active)
{
    // Told again of an active field too: its focus may have gone elsewhere and is wanted back.
    if (!m_active && !active)
        return;
    m_active = active;
    Q_EMIT activeChanged();
}

// Told of an empty field too: what is shown for it may have changed since.
void SearchBar::cancel()
{
    m_text = QLatin1String("");
    Q_EMIT textChanged();
    setActive(false);
}

SearchController::SearchController(QObject* parent)
    : QObject(parent)
{
    connect(&m_searchBar, &SearchBar::textChanged, this, [this] {
        if (m_updater)
            m_updater(this);
    });
}

} // namespace kit
