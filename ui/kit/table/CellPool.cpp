#include "ui/kit/table/CellPool.h"

#include "ui/kit/table/TableViewCell.h"

#include <algorithm>

namespace kit {

TableViewCell* CellPool::take(const QString& identifier, const QMetaObject& kind)
{
    const auto found = std::find_if(m_cells.begin(), m_cells.end(), [&](const TableViewCell* cell) {
        return cell->reuseIdentifier() == identifier && cell->metaObject()->inherits(&kind);
    });
    if (found == m_cells.end())
        return nullptr;
    TableViewCell* const cell = *found;
    m_cells.erase(found);
    return cell;
}

void CellPool::hideAll() const
{
    for (TableViewCell* cell : m_cells)
        cell->setHidden(true);
}

} // namespace kit
