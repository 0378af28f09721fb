#pragma once

#include <QAccessible>
#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace kit {

// What the person is working with. Only with the keyboard is it shown which control has the focus, and only with a
// mouse what stands under its pointer: a finger hovers above nothing, but Qt lets its last place hover.
class KeyboardFocus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool shown MEMBER m_shown NOTIFY shownChanged)
    Q_PROPERTY(bool hovering MEMBER m_hovering NOTIFY hoveringChanged)

public:
    // Tells a screen reader that an item has the focus which does not have the window's: a row of a table.
    Q_INVOKABLE static void announce(QQuickItem* item)
    {
        QAccessibleEvent event(item, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }

Q_SIGNALS:
    void shownChanged();
    void hoveringChanged();

private:
    bool m_shown = false;
    bool m_hovering = false;
};

} // namespace kit
