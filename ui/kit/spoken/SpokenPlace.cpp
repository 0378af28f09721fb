#include "ui/kit/spoken/SpokenPlace.h"

#include <QQuickWindow>

#include <algorithm>

namespace kit {

namespace {

QRectF inScene(const QQuickItem& item)
{
    return item.mapRectToScene({ 0, 0, item.width(), item.height() });
}

void collect(const QQuickItem& item, QList<QQuickItem*>& found)
{
    for (QQuickItem* child : item.childItems()) {
        if (!child->isVisible())
            continue;
        if (SpokenPlace::saidOf(*child))
            found.append(child);
        else
            collect(*child, found);
    }
}

// From the left to the right, and one after the other what begins at the same place.
void sortLine(QList<QQuickItem*>::iterator begin, QList<QQuickItem*>::iterator end)
{
    std::stable_sort(
        begin, end, [](const QQuickItem* a, const QQuickItem* b) { return inScene(*a).left() < inScene(*b).left(); });
}

// A line is all whose middle is not below the item that begins it.
void sortByLines(QList<QQuickItem*>& items)
{
    std::stable_sort(items.begin(), items.end(),
        [](const QQuickItem* a, const QQuickItem* b) { return inScene(*a).top() < inScene(*b).top(); });
    for (auto line = items.begin(); line != items.end();) {
        const double bottom = inScene(**line).bottom();
        const auto next = std::find_if(
            line + 1, items.end(), [&](const QQuickItem* item) { return inScene(*item).center().y() >= bottom; });
        sortLine(line, next);
        line = next;
    }
}

} // namespace

QObject* SpokenPlace::saidOf(const QQuickItem& item)
{
    for (QObject* attached : item.children())
        if (attached->inherits("QQuickAccessibleAttached"))
            return attached->property("ignored").toBool() ? nullptr : attached;
    return nullptr;
}

QAccessibleInterface* SpokenPlace::around(const QQuickItem& item)
{
    for (QQuickItem* parent = item.parentItem(); parent; parent = parent->parentItem())
        if (saidOf(*parent))
            return QAccessible::queryAccessibleInterface(parent);
    return item.window() ? QAccessible::queryAccessibleInterface(item.window()) : nullptr;
}

QList<QAccessibleInterface*> SpokenPlace::within(const QQuickItem& item)
{
    QList<QQuickItem*> items;
    collect(item, items);
    sortByLines(items);
    QList<QAccessibleInterface*> interfaces;
    for (QQuickItem* found : items)
        if (QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(found))
            interfaces.append(interface);
    return interfaces;
}

QRect SpokenPlace::rectOf(const QQuickItem& item)
{
    const QPoint origin = item.window() ? item.window()->mapToGlobal(QPoint(0, 0)) : QPoint();
    return inScene(item).toRect().translated(origin);
}

QAccessible::State SpokenPlace::stateOf(const QQuickItem& item)
{
    const QQuickWindow* const window = item.window();
    QAccessible::State state;
    state.disabled = !item.isEnabled();
    state.invisible = !window || !window->isVisible() || !item.isVisible();
    state.offscreen = !window || !QRect({}, window->size()).intersects(inScene(item).toRect());
    return state;
}

} // namespace kit
