#pragma once

#include <QAccessible>
#include <QQuickItem>

namespace kit {

// The root of a button drawn in QML. Qt's own interface for an item does not tell a screen reader that it is disabled;
// this one does, and says again when that changes. Beside the properties here the item keeps its Accessible.role, by
// which it is found at all.
class PressItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString spokenName MEMBER m_spokenName NOTIFY spokenNameChanged)
    Q_PROPERTY(QString spokenDescription MEMBER m_spokenDescription NOTIFY spokenDescriptionChanged)

public:
    explicit PressItem(QQuickItem* parent = nullptr);

    const QString& spokenName() const { return m_spokenName; }
    const QString& spokenDescription() const { return m_spokenDescription; }

Q_SIGNALS:
    void spokenNameChanged();
    void spokenDescriptionChanged();
    // A screen reader asks for a press; not while the item is disabled.
    void pressAsked();

private:
    void tellEnabled();

    QString m_spokenName;
    QString m_spokenDescription;
};

} // namespace kit
