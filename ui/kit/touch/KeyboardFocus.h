#pragma once

#include <QAccessible>
#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace kit {

// Whether the person is working with the keyboard: only then is it shown which control has the focus.
class KeyboardFocus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool shown MEMBER m_shown NOTIFY shownChanged)

public:
    // Tells a screen reader that an item has the focus which does not have the window's: a row of a table.
    Q_INVOKABLE static void announce(QQuickItem* item)
    {
        QAccessibleEvent event(item, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }

Q_SIGNALS:
    void shownChanged();

private:
    bool m_shown = false;
};

} // namespace kit
