#include "ui/kit/touch/PressItem.h"

#include <QKeyEvent>

namespace kit {

PressItem::PressItem(QQuickItem* parent)
    : SpokenScope(parent)
{
    const auto offer = [this] {
        QStringList actions{ QAccessibleActionInterface::pressAction() };
        if (spokenRole() == QAccessible::CheckBox)
            actions.append(QAccessibleActionInterface::toggleAction());
        setProperty("spokenActions", actions);
    };
    setProperty("spokenRole", QAccessible::Button);
    offer();
    connect(this, &SpokenItem::spokenRoleChanged, this, offer);
    connect(this, &SpokenItem::acted, this, &PressItem::pressed);
}

// One press of a key is one press, however long it is held.
void PressItem::keyPressEvent(QKeyEvent* event)
{
    const bool presses
        = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    event->setAccepted(presses);
    if (presses && !event->isAutoRepeat())
        Q_EMIT pressed();
}

} // namespace kit
