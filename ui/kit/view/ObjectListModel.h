#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QtQml/qqmlregistration.h>

namespace kit {

// A list of objects that QML repeats over: an insertion or removal makes or drops just that object's item.
// Does not own the objects.
class ObjectListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")

public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override { return { { Qt::UserRole, "object" } }; }

    const QList<QObject*>& objects() const { return m_objects; }
    void append(QObject* object);
    void remove(QObject* object);

private:
    QList<QObject*> m_objects;
};

} // namespace kit
