#pragma once

#include <QAccessible>
#include <QQuickItem>

namespace kit::SpokenPlace {

// What QML said of the item by its Accessible properties, or null where it said nothing or that it is to be ignored.
QObject* saidOf(const QQuickItem& item);
// The interface of the nearest item around it that a screen reader meets, or else that of its window; null without one.
QAccessibleInterface* around(const QQuickItem& item);
// What a screen reader meets within it, without what those hold in turn: what shows, line by line.
QList<QAccessibleInterface*> within(const QQuickItem& item);
// On the screen.
QRect rectOf(const QQuickItem& item);
// Whether it shows, is in sight and takes part, as of every item.
QAccessible::State stateOf(const QQuickItem& item);

} // namespace kit::SpokenPlace
