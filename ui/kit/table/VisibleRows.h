#pragma once

#include "ui/kit/table/CellPool.h"
#include "ui/kit/table/TableViewCell.h"
#include "ui/kit/view/ObjectListModel.h"

#include <map>
#include <vector>

namespace kit {

class TableHost;

// The cells of a table, one for each row that is seen. The cells of rows that left are given to those that come, by
// reuse identifier. Lives as long as its table, which owns the cells.
class VisibleRows
{
public:
    explicit VisibleRows(TableHost& table)
        : m_table(table)
    {
    }

    // Every cell there is, those for reuse too.
    ObjectListModel* model() { return &m_model; }
    std::vector<IndexPath> indexPaths() const;
    // Null unless the row is seen.
    TableViewCell* cellFor(const IndexPath& indexPath) const;
    // One that waits for reuse, prepared for it; null if there is none.
    TableViewCell* dequeue(const QString& identifier, const QMetaObject& kind);

    // Asks for the cells of the rows that any part of [top, bottom) falls on, and gives up all others.
    void show(double top, double bottom);
    void giveUpAll();
    // Gives the cells the frames of their rows.
    void place();
    // Gives up the cell of a deleted row; those below it in its section stand for the row before from now on.
    void closeGap(const IndexPath& deleted);
    // The rows stand elsewhere, or others follow them.
    void placeMoved();

private:
    void giveUpOutside(double top, double bottom);
    void showRow(const IndexPath& indexPath);
    TableViewCell* askForCell(const IndexPath& indexPath);
    void placeCell(TableViewCell& cell, const IndexPath& indexPath);

    TableHost& m_table;
    std::map<IndexPath, TableViewCell*> m_cells;
    CellPool m_reusable;
    ObjectListModel m_model;
};

} // namespace kit
