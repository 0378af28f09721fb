#include "ui/kit/navigation/NavigationItem.h"

namespace kit {

namespace {

// Puts an object in the place of another. The one before goes later, for it may be the very button whose action this
// is.
template <typename Object> void replace(Object*& slot, Object* object, QObject* owner)
{
    if (slot == object)
        return;
    if (slot)
        slot->deleteLater();
    slot = object;
    if (object)
        object->setParent(owner);
}

} // namespace

void NavigationItem::setTitle(const QString& title)
{
    m_title = title;
    Q_EMIT itemChanged();
}

void NavigationItem::setLeftBarButtonItem(BarButtonItem* item)
{
    replace(m_leftItem, item, this);
    Q_EMIT itemChanged();
}

void NavigationItem::setRightBarButtonItem(BarButtonItem* item)
{
    replace(m_rightItem, item, this);
    Q_EMIT itemChanged();
}

void NavigationItem::setSearchController(SearchController* controller)
{
    replace(m_searchController, controller, this);
    Q_EMIT itemChanged();
}

} // namespace kit
