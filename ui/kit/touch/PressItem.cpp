#include "ui/kit/touch/PressItem.h"

#include <QAccessibleObject>
#include <QKeyEvent>
#include <QQuickWindow>

#include <mutex>

namespace kit {

namespace {

// What a screen reader gets for a press item.
class PressInterface : public QAccessibleObject, public QAccessibleActionInterface
{
public:
    explicit PressInterface(PressItem* item)
        : QAccessibleObject(item)
    {
    }

    QWindow* window() const override { return item().window(); }
    QRect rect() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override { return item().spokenRole(); }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    PressItem& item() const { return *static_cast<PressItem*>(object()); }
    bool isSwitch() const { return role() == QAccessible::CheckBox; }
};

QRect PressInterface::rect() const
{
    const QRectF inScene = item().mapRectToScene({ 0, 0, item().width(), item().height() });
    const QPoint origin = window() ? window()->mapToGlobal(QPoint(0, 0)) : QPoint();
    return inScene.toRect().translated(origin);
}

// The nearest item around it that a screen reader knows, or else the window.
QAccessibleInterface* PressInterface::parent() const
{
    for (QQuickItem* around = item().parentItem(); around; around = around->parentItem())
        if (QAccessibleInterface* known = QAccessible::queryAccessibleInterface(around))
            return known;
    return window() ? QAccessible::queryAccessibleInterface(window()) : nullptr;
}

QString PressInterface::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name)
        return item().spokenName();
    return kind == QAccessible::Description ? item().spokenDescription() : QString();
}

QAccessible::State PressInterface::state() const
{
    const QRect inWindow = window() ? QRect({}, window()->size()) : QRect();
    const QRectF inScene = item().mapRectToScene({ 0, 0, item().width(), item().height() });
    QAccessible::State state;
    state.disabled = !item().isEnabled();
    state.focusable = item().activeFocusOnTab() && item().isEnabled();
    state.focused = item().hasActiveFocus();
    state.checkable = isSwitch();
    state.checked = item().isSpokenOn();
    state.selectable = role() == QAccessible::PageTab;
    state.selected = item().isSpokenSelected();
    state.invisible = !window() || !window()->isVisible() || !item().isVisible();
    state.offscreen = !inWindow.intersects(inScene.toRect());
    return state;
}

void* PressInterface::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return QAccessibleObject::interface_cast(type);
}

QStringList PressInterface::actionNames() const
{
    QStringList names{ pressAction(), setFocusAction() };
    if (isSwitch())
        names.append(toggleAction());
    return names;
}

void PressInterface::doAction(const QString& name)
{
    if (!item().isEnabled())
        return;
    if (name == pressAction() || name == toggleAction())
        Q_EMIT item().pressed();
    else if (name == setFocusAction())
        item().forceActiveFocus();
}

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* const item = qobject_cast<PressItem*>(object);
    return item ? new PressInterface(item) : nullptr;
}

} // namespace

PressItem::PressItem(QQuickItem* parent)
    : QQuickItem(parent)
{
    static std::once_flag installed;
    std::call_once(installed, [] { QAccessible::installFactory(makeInterface); });
    setFlag(ItemIsFocusScope);
    QAccessible::State disabled;
    disabled.disabled = true;
    QAccessible::State checked;
    checked.checked = true;
    QAccessible::State selected;
    selected.selected = true;
    connect(this, &QQuickItem::enabledChanged, this, [this, disabled] { tellState(disabled); });
    connect(this, &PressItem::spokenOnChanged, this, [this, checked] { tellState(checked); });
    connect(this, &PressItem::spokenSelectedChanged, this, [this, selected] { tellState(selected); });
    connect(this, &PressItem::spokenNameChanged, this, [this] {
        QAccessibleEvent event(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    });
}

void PressItem::setKeepsFinger(bool keeps)
{
    if (keepsFinger() == keeps)
        return;
    setKeepMouseGrab(keeps);
    setKeepTouchGrab(keeps);
    Q_EMIT keepsFingerChanged();
}

void PressItem::tellState(const QAccessible::State& changed)
{
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
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
