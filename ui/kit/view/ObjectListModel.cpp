#include "ui/kit/view/ObjectListModel.h"

namespace kit {

int ObjectListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_objects.size());
}

QVariant ObjectListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_objects.size() || role != Qt::UserRole)
        return {};
    return QVariant::fromValue(m_objects.at(index.row()));
}

void ObjectListModel::append(QObject* object)
{
    const int row = rowCount();
    beginInsertRows({}, row, row);
    m_objects.append(object);
    endInsertRows();
}

void ObjectListModel::remove(QObject* object)
{
    const auto row = static_cast<int>(m_objects.indexOf(object));
    if (row < 0)
        return;
    beginRemoveRows({}, row, row);
    m_objects.removeAt(row);
    endRemoveRows();
}

} // namespace kit
