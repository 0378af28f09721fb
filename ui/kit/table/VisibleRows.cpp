#include "ui/kit/table/VisibleRows.h"

#include "ui/kit/table/TableHost.h"
#include "ui/kit/table/TableLayout.h"
#include "ui/kit/table/TableViewDelegate.h"

#include <iterator>
#include <utility>

namespace kit {

std::vector<IndexPath> VisibleRows::indexPaths() const
{
    std::vector<IndexPath> rows;
    rows.reserve(m_cells.size());
    for (const auto& [indexPath, cell] : m_cells)
        rows.push_back(indexPath);
    return rows;
}

TableViewCell* VisibleRows::cellFor(const IndexPath& indexPath) const
{
    const auto found = m_cells.find(indexPath);
    return found == m_cells.end() ? nullptr : found->second;
}

TableViewCell* VisibleRows::dequeue(const QString& identifier, const QMetaObject& kind)
{
    TableViewCell* const cell = m_reusable.take(identifier, kind);
    if (cell)
        cell->prepareForReuse();
    return cell;
}

void VisibleRows::show(double top, double bottom)
{
    giveUpOutside(top, bottom);
    const TableLayout& layout = m_table.layout();
    for (int section = 0; section < layout.sectionCount(); ++section) {
        const auto [first, end] = layout.rowsBetween(section, top, bottom);
        for (int row = layout.rowWithHeight(section, first); row < end; row = layout.rowWithHeight(section, row + 1))
            if (!m_cells.contains({ section, row }))
                showRow({ section, row });
    }
    m_reusable.hideAll();
}

void VisibleRows::giveUpOutside(double top, double bottom)
{
    const TableLayout& layout = m_table.layout();
    for (auto row = m_cells.begin(); row != m_cells.end();) {
        const bool isSeen = layout.rowBottom(row->first) > top && layout.rowTop(row->first) < bottom;
        if (!isSeen)
            m_reusable.give(row->second);
        row = isSeen ? std::next(row) : m_cells.erase(row);
    }
}

// A row for which the delegate has none gets an empty one.
TableViewCell* VisibleRows::askForCell(const IndexPath& indexPath)
{
    if (TableViewCell* cell = m_table.delegate().cellForRowAtIndexPath(indexPath))
        return cell;
    return m_table.dequeueEmptyCell();
}

void VisibleRows::showRow(const IndexPath& indexPath)
{
    TableViewCell* const cell = askForCell(indexPath);
    m_cells[indexPath] = cell;
    cell->setIndexPath(indexPath);
    placeCell(*cell, indexPath);
    cell->setNeedsLayout();
    cell->setHidden(false);
    if (indexPath == m_table.selectedRow())
        cell->setSelected(true, TableViewCell::Fade::Immediately);
    if (cell->superview() == &m_table)
        return;
    m_table.addSubview(cell);
    m_model.append(cell);
}

void VisibleRows::placeCell(TableViewCell& cell, const IndexPath& indexPath)
{
    const int rowCount = m_table.layout().rowCount(indexPath.section);
    const bool isLast = indexPath.row == rowCount - 1;
    cell.setRowCount(rowCount);
    cell.setFrame(m_table.rectForRow(indexPath));
    cell.setMeetsHeader(isLast && m_table.headerView(indexPath.section + 1));
}

void VisibleRows::giveUpAll()
{
    for (const auto& [indexPath, cell] : m_cells)
        m_reusable.give(cell);
    m_cells.clear();
}

void VisibleRows::place()
{
    for (const auto& [indexPath, cell] : m_cells)
        cell->setFrame(m_table.rectForRow(indexPath));
}

void VisibleRows::closeGap(const IndexPath& deleted)
{
    std::map<IndexPath, TableViewCell*> moved;
    for (const auto& [old, cell] : m_cells) {
        const bool isBelow = old.section == deleted.section && old.row > deleted.row;
        if (old == deleted)
            m_reusable.give(cell);
        else
            moved[isBelow ? IndexPath{ old.section, old.row - 1 } : old] = cell;
    }
    m_cells = std::move(moved);
}

void VisibleRows::placeMoved()
{
    for (const auto& [now, cell] : m_cells) {
        cell->setIndexPath(now);
        placeCell(*cell, now);
    }
}

} // namespace kit
