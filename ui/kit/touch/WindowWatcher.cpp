#include "ui/kit/touch/WindowWatcher.h"

#include <QQuickWindow>

namespace kit {

void WindowWatcher::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemSceneChange) {
        if (m_watched)
            m_watched->removeEventFilter(this);
        // This change comes with the window; Qt tells all of them by one union.
        m_watched = data.window; // NOLINT(cppcoreguidelines-pro-type-union-access)
        if (m_watched)
            m_watched->installEventFilter(this);
    }
    QQuickItem::itemChange(change, data);
}

} // namespace kit
