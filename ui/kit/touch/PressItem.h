#pragma once

#include <QAccessible>
#include <QQuickItem>

namespace kit {

// The root of a control drawn in QML that is pressed: by keys, by a screen reader and by what its file adds. Qt's own
// interface for an item does not tell a screen reader that it is disabled; this one does, and says again when that
// changes. Beside the properties here the item keeps its Accessible.role, by which it is found at all.
class PressItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int spokenRole MEMBER m_spokenRole NOTIFY spokenRoleChanged)
    Q_PROPERTY(QString spokenName MEMBER m_spokenName NOTIFY spokenNameChanged)
    Q_PROPERTY(QString spokenDescription MEMBER m_spokenDescription NOTIFY spokenDescriptionChanged)
    // On, of what can be on and off; selected, of what one of several is.
    Q_PROPERTY(bool spokenOn MEMBER m_spokenOn NOTIFY spokenOnChanged)
    Q_PROPERTY(bool spokenSelected MEMBER m_spokenSelected NOTIFY spokenSelectedChanged)
    // Holds on to a finger or the mouse that it has, against all that would scroll.
    Q_PROPERTY(bool keepsFinger READ keepsFinger WRITE setKeepsFinger NOTIFY keepsFingerChanged)

public:
    explicit PressItem(QQuickItem* parent = nullptr);

    const QString& spokenName() const { return m_spokenName; }
    const QString& spokenDescription() const { return m_spokenDescription; }
    QAccessible::Role spokenRole() const { return static_cast<QAccessible::Role>(m_spokenRole); }
    bool isSpokenOn() const { return m_spokenOn; }
    bool isSpokenSelected() const { return m_spokenSelected; }
    bool keepsFinger() const { return keepTouchGrab(); }
    void setKeepsFinger(bool keeps);

Q_SIGNALS:
    void spokenRoleChanged();
    void spokenNameChanged();
    void spokenDescriptionChanged();
    void spokenOnChanged();
    void spokenSelectedChanged();
    void keepsFingerChanged();
    // By a screen reader not while the item is disabled.
    void pressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void tellState(const QAccessible::State& changed);

    int m_spokenRole = QAccessible::Button;
    QString m_spokenName;
    QString m_spokenDescription;
    bool m_spokenOn = false;
    bool m_spokenSelected = false;
};

} // namespace kit
