#include "ui/kit/table/RefreshControl.h"

namespace kit {

void RefreshControl::setTintColor(const Color& color)
{
    m_tintColor = color;
    Q_EMIT tintChanged();
}

void RefreshControl::beginRefreshing()
{
    setRefreshing(true);
}

void RefreshControl::endRefreshing()
{
    setRefreshing(false);
}

void RefreshControl::pull()
{
    setRefreshing(true);
    if (m_valueChanged)
        m_valueChanged();
}

void RefreshControl::setRefreshing(bool refreshing)
{
    if (m_refreshing == refreshing)
        return;
    m_refreshing = refreshing;
    Q_EMIT refreshingChanged();
}

} // namespace kit
