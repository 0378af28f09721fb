#include "ui/kit/spoken/SpokenItem.h"

#include "ui/kit/spoken/FieldInterface.h"
#include "ui/kit/spoken/SpokenPlace.h"

#include <QAccessibleObject>
#include <QQuickWindow>

#include <mutex>

namespace kit {

namespace {

// What a screen reader gets for a spoken item.
class SpokenInterface : public QAccessibleObject, public QAccessibleActionInterface
{
public:
    explicit SpokenInterface(SpokenItem* item)
        : QAccessibleObject(item)
    {
    }

    QWindow* window() const override { return item().window(); }
    QRect rect() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override { return item().spokenRole(); }
    QAccessible::State state() const override { return item().spokenState(); }
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override { return item().offeredActions(); }
    void doAction(const QString& name) override { item().act(name); }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    SpokenItem& item() const { return *static_cast<SpokenItem*>(object()); }
};

QRect SpokenInterface::rect() const
{
    return SpokenPlace::rectOf(item());
}

QAccessibleInterface* SpokenInterface::parent() const
{
    return SpokenPlace::around(item());
}

int SpokenInterface::childCount() const
{
    return static_cast<int>(item().spokenParts().size());
}

QAccessibleInterface* SpokenInterface::child(int index) const
{
    return item().spokenParts().value(index);
}

int SpokenInterface::indexOfChild(const QAccessibleInterface* child) const
{
    const QList<QAccessibleInterface*> parts = item().spokenParts();
    for (int index = 0; index < parts.size(); ++index)
        if (parts[index] == child)
            return index;
    return -1;
}

QString SpokenInterface::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name)
        return item().spokenName();
    return kind == QAccessible::Description ? item().spokenDescription() : QString();
}

void* SpokenInterface::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return QAccessibleObject::interface_cast(type);
}

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    if (auto* const item = qobject_cast<SpokenItem*>(object))
        return new SpokenInterface(item);
    auto* const field = object && object->inherits("QQuickTextInput") ? qobject_cast<QQuickItem*>(object) : nullptr;
    return field && SpokenPlace::saidOf(*field) ? new FieldInterface(field) : nullptr;
}

void tell(QQuickItem* item, QAccessible::Event what)
{
    QAccessibleEvent event(item, what);
    QAccessible::updateAccessibility(&event);
}

void tellState(QQuickItem* item, const QAccessible::State& changed)
{
    QAccessibleStateChangeEvent event(item, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace

SpokenItem::SpokenItem(QQuickItem* parent)
    : QQuickItem(parent)
{
    static std::once_flag installed;
    std::call_once(installed, [] { QAccessible::installFactory(makeInterface); });
    QAccessible::State disabled;
    disabled.disabled = true;
    QAccessible::State checked;
    checked.checked = true;
    connect(this, &QQuickItem::enabledChanged, this, [this, disabled] { tellState(this, disabled); });
    connect(this, &SpokenItem::spokenOnChanged, this, [this, checked] { tellState(this, checked); });
    // On the bus nobody hears of it as of a state that changed.
    connect(this, &SpokenItem::spokenSelectedChanged, this, [this] { tell(this, QAccessible::Selection); });
    connect(this, &SpokenItem::spokenNameChanged, this, [this] { tell(this, QAccessible::NameChanged); });
    connect(this, &SpokenItem::spokenDescriptionChanged, this, [this] { tell(this, QAccessible::DescriptionChanged); });
}

bool SpokenItem::isSpokenFocused() const
{
    return m_spokenFocused.value_or(window() && window()->activeFocusItem() == this);
}

void SpokenItem::setSpokenFocused(bool focused)
{
    if (m_spokenFocused == focused)
        return;
    m_spokenFocused = focused;
    Q_EMIT spokenFocusedChanged();
}

QAccessible::State SpokenItem::spokenState() const
{
    const QAccessible::Role role = spokenRole();
    QAccessible::State state = SpokenPlace::stateOf(*this);
    state.focusable = isKeyboardStop() && isEnabled();
    state.focused = isSpokenFocused();
    state.checkable = role == QAccessible::CheckBox;
    state.checked = m_spokenOn;
    state.selectable = role == QAccessible::PageTab || role == QAccessible::ListItem;
    state.selected = m_spokenSelected;
    state.modal = role == QAccessible::Dialog;
    state.busy = role == QAccessible::ProgressBar;
    return state;
}

QStringList SpokenItem::offeredActions() const
{
    QStringList actions = isEnabled() ? m_spokenActions : QStringList();
    const QString& setFocus = QAccessibleActionInterface::setFocusAction();
    if (isEnabled() && isKeyboardStop() && !actions.contains(setFocus))
        actions.append(setFocus);
    return actions;
}

void SpokenItem::act(const QString& action)
{
    if (!offeredActions().contains(action))
        return;
    if (m_spokenActions.contains(action))
        Q_EMIT acted(action);
    else
        forceActiveFocus();
}

QList<QAccessibleInterface*> SpokenItem::spokenParts() const
{
    return isEnabled() ? SpokenPlace::within(*this) : QList<QAccessibleInterface*>();
}

} // namespace kit
