#pragma once

#include <QMetaObject>
#include <QString>

#include <vector>

namespace kit {

class TableViewCell;

// A table's cells that stand for no row at the moment. Does not own them.
class CellPool
{
public:
    // One of that identifier and class, or of a class made from it; null if there is none.
    TableViewCell* take(const QString& identifier, const QMetaObject& kind);
    void give(TableViewCell* cell) { m_cells.push_back(cell); }
    void hideAll() const;

private:
    std::vector<TableViewCell*> m_cells;
};

} // namespace kit
