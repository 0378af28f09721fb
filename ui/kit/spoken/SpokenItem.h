#pragma once

#include <QAccessible>
#include <QQuickItem>
#include <QStringList>

#include <optional>

namespace kit {

// An item that a screen reader meets under a role and a name, with the actions it offers. Qt's own interface for an
// item tells neither that it is disabled, busy or modal, nor does it offer actions by names of ours; and what an item
// holds it has in the order in which that was made. Here all that shows is met in the order in which it is seen, and a
// disabled item offers no action and nothing that it holds. Beside the properties here the item keeps its
// Accessible.role, by which it is found at all.
class SpokenItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int spokenRole MEMBER m_spokenRole NOTIFY spokenRoleChanged)
    Q_PROPERTY(QString spokenName MEMBER m_spokenName NOTIFY spokenNameChanged)
    Q_PROPERTY(QString spokenDescription MEMBER m_spokenDescription NOTIFY spokenDescriptionChanged)
    // On, of what can be on and off; selected, of what one of several is.
    Q_PROPERTY(bool spokenOn MEMBER m_spokenOn NOTIFY spokenOnChanged)
    Q_PROPERTY(bool spokenSelected MEMBER m_spokenSelected NOTIFY spokenSelectedChanged)
    // Whether keys act on it. Only for an item that keys act on although another one has the window's focus, as a row
    // whose table has it.
    Q_PROPERTY(bool spokenFocused READ isSpokenFocused WRITE setSpokenFocused NOTIFY spokenFocusedChanged)
    // What it offers, by name: "Press", "Scroll Down" and so on as the platform calls them, or words of its own.
    Q_PROPERTY(QStringList spokenActions MEMBER m_spokenActions NOTIFY spokenActionsChanged)

public:
    explicit SpokenItem(QQuickItem* parent = nullptr);

    QAccessible::Role spokenRole() const { return static_cast<QAccessible::Role>(m_spokenRole); }
    const QString& spokenName() const { return m_spokenName; }
    const QString& spokenDescription() const { return m_spokenDescription; }
    QAccessible::State spokenState() const;
    // None while it is disabled.
    QStringList offeredActions() const;
    // Does nothing by a name that is not offered.
    void act(const QString& action);
    // What shows of what it holds, in reading order.
    QList<QAccessibleInterface*> spokenParts() const;

    bool isSpokenFocused() const;
    void setSpokenFocused(bool focused);

Q_SIGNALS:
    void spokenRoleChanged();
    void spokenNameChanged();
    void spokenDescriptionChanged();
    void spokenOnChanged();
    void spokenSelectedChanged();
    void spokenFocusedChanged();
    void spokenActionsChanged();
    void acted(const QString& action);

private:
    bool isKeyboardStop() const { return activeFocusOnTab() || m_spokenActions.contains(u"SetFocus"); }

    int m_spokenRole = QAccessible::Pane;
    QString m_spokenName;
    QString m_spokenDescription;
    bool m_spokenOn = false;
    bool m_spokenSelected = false;
    std::optional<bool> m_spokenFocused;
    QStringList m_spokenActions;
};

} // namespace kit
