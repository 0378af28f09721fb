#include "NavigationItem.h"

void NavigationItem::setTitle(const QString& title)
{
    m_title = title;
    Q_EMIT itemChanged();
}

void NavigationItem::setLeftBarButtonItem(BarButtonItem* item)
{
    delete m_leftItem;
    m_leftItem = item;
    if (item)
        item->setParent(this);
    Q_EMIT itemChanged();
}

void NavigationItem::setRightBarButtonItem(BarButtonItem* item)
{
    delete m_rightItem;
    m_rightItem = item;
    if (item)
        item->setParent(this);
    Q_EMIT itemChanged();
}

void NavigationItem::setSearchController(SearchController* controller)
{
    delete m_searchController;
    m_searchController = controller;
    if (controller)
        controller->setParent(this);
    Q_EMIT itemChanged();
}
