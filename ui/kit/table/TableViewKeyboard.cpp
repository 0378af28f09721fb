// A table's keyboard: which row has the focus, and what the keys do with it.
#include "ui/kit/table/TableView.h"

#include <algorithm>
#include <limits>

namespace kit {

void TableView::moveFocus(int rows)
{
    const auto visible = indexPathsForVisibleRows();
    if (visible.empty())
        return;
    const bool isFirst = m_focusedRow == NoRow;
    const auto target
        = isFirst ? std::optional(rows < 0 ? visible.back() : visible.front()) : m_layout.rowAfter(m_focusedRow, rows);
    if (target)
        focusRow(target->section, target->row);
}

void TableView::moveFocusByPage(int direction)
{
    if (!hasRow(m_focusedRow))
        return moveFocus(direction);
    const double page = height() - m_layout.headerHeight(m_focusedRow.section);
    const IndexPath target = m_layout.rowOnePageFrom(m_focusedRow, direction, page);
    focusRow(target.section, target.row);
}

void TableView::scrollByPage(int direction)
{
    const auto visible = indexPathsForVisibleRows();
    if (visible.empty())
        return;
    const double page = height() - m_layout.headerHeight(visible.front().section);
    const double end = std::max(0.0, contentHeight() - height());
    setContentOffset(std::clamp(m_contentOffset + direction * page, 0.0, end));
}

void TableView::focusFirstRow()
{
    if (const auto first = m_layout.rowAfter({ 0, 0 }, 0))
        focusRow(first->section, first->row);
}

void TableView::focusLastRow()
{
    if (const auto last = m_layout.rowAfter({ 0, 0 }, std::numeric_limits<int>::max()))
        focusRow(last->section, last->row);
}

void TableView::focusRow(int section, int row)
{
    if (!hasRow({ section, row }))
        return;
    const double before = m_contentOffset;
    setFocusedRow({ section, row });
    scrollRowIntoView({ section, row });
    if (m_contentOffset == before)
        return;
    closeOpenRow();
    Q_EMIT scrolledByKeyboard();
}

void TableView::scrollRowIntoView(const IndexPath& indexPath)
{
    const QRectF rect = rectForRow(indexPath);
    const double pinned = m_layout.headerHeight(indexPath.section);
    // What stands above the first row, also the header of a section without rows, shows with it.
    if (m_layout.rowAfter({ 0, 0 }, 0) == indexPath)
        setContentOffset(std::min(m_contentOffset, 0.0));
    if (rect.top() - pinned < m_contentOffset)
        setContentOffset(std::max(0.0, rect.top() - pinned));
    else if (rect.bottom() > m_contentOffset + height())
        setContentOffset(rect.bottom() - height());
}

void TableView::activateFocusedRow()
{
    if (hasRow(m_focusedRow))
        tapRow(m_focusedRow.section, m_focusedRow.row);
}

void TableView::deleteFocusedRow()
{
    if (hasRow(m_focusedRow))
        deleteTapped(m_focusedRow.section, m_focusedRow.row);
}

void TableView::clearFocus()
{
    setFocusedRow(NoRow);
}

void TableView::setFocusedRow(const IndexPath& indexPath)
{
    if (m_focusedRow == indexPath)
        return;
    m_focusedRow = indexPath;
    Q_EMIT focusedRowChanged();
}

} // namespace kit
