#include "ui/kit/table/RowFocus.h"

#include "ui/kit/table/OpenRow.h"
#include "ui/kit/table/TableHost.h"
#include "ui/kit/table/TableLayout.h"
#include "ui/kit/table/TableViewCell.h"
#include "ui/kit/table/TableViewDelegate.h"

#include <algorithm>
#include <limits>

namespace kit {

namespace {

// How much of what is seen at once a key scrolls within a row that is higher than that.
constexpr double ShareByArrow = 0.25;
constexpr double ShareByPage = 0.9;

} // namespace

void RowFocus::moveBy(int rows)
{
    if (rows != 0 && showMoreOfRow(rows < 0 ? -ShareByArrow : ShareByArrow))
        return;
    const auto visible = m_table.indexPathsForVisibleRows();
    if (visible.empty())
        return;
    const auto target = m_focused == NoRow ? std::optional(rows < 0 ? visible.back() : visible.front())
                                           : m_table.layout().rowAfter(m_focused, rows);
    if (target)
        moveTo(target->section, target->row);
}

void RowFocus::moveByPage(int direction)
{
    if (!m_table.hasRow(m_focused))
        return moveBy(direction);
    if (showMoreOfRow(direction * ShareByPage))
        return;
    const double page = m_table.height() - m_table.layout().headerHeight(m_focused.section);
    const IndexPath target = m_table.layout().rowOnePageFrom(m_focused, direction, page);
    moveTo(target.section, target.row);
}

void RowFocus::moveToFirst()
{
    if (const auto first = m_table.layout().rowAfter({ 0, 0 }, 0)) {
        moveTo(first->section, first->row);
        scrollTo(std::min(m_table.contentOffset(), offsetsShowing(*first).beginning));
    }
}

void RowFocus::moveToLast()
{
    if (const auto last = m_table.layout().rowAfter({ 0, 0 }, std::numeric_limits<int>::max())) {
        moveTo(last->section, last->row);
        scrollTo(std::max(m_table.contentOffset(), offsetsShowing(*last).end));
    }
}

void RowFocus::moveTo(int section, int row)
{
    if (!m_table.hasRow({ section, row }))
        return;
    const double before = m_table.contentOffset();
    m_typed.clear();
    setFocused({ section, row });
    scrollIntoView({ section, row });
    tellScroll(before);
}

void RowFocus::reveal(int section, int row)
{
    const double before = m_table.contentOffset();
    for (const int neighbour : { -1, 1, 0 })
        if (const auto shown = m_table.layout().rowAfter({ section, row }, neighbour))
            scrollIntoView(*shown);
    tellScroll(before);
}

void RowFocus::tellScroll(double before)
{
    if (m_table.contentOffset() == before)
        return;
    m_table.openRow()->close();
    Q_EMIT scrolled();
}

// Rows off the screen have a name only where the delegate tells it.
QString RowFocus::nameOf(const IndexPath& indexPath) const
{
    const QString told = m_table.delegate().nameForRowAtIndexPath(indexPath);
    const TableViewCell* const cell = told.isNull() ? m_table.cellForRow(indexPath) : nullptr;
    return cell ? cell->textLabel()->text() : told;
}

void RowFocus::type(const QString& letters)
{
    const QString typed = isTyping() ? m_typed + letters : letters;
    auto row = m_table.layout().rowAfter({ 0, 0 }, 0);
    while (row && !nameOf(*row).startsWith(typed, Qt::CaseInsensitive)) {
        const auto next = m_table.layout().rowAfter(*row, 1);
        row = next == row ? std::nullopt : next;
    }
    if (row)
        moveTo(row->section, row->row);
    m_typed = typed;
    m_sinceTyped.start();
}

bool RowFocus::isTyping() const
{
    constexpr qint64 InOneGo = 1000;
    return !m_typed.isEmpty() && m_sinceTyped.elapsed() <= InOneGo;
}

RowFocus::Offsets RowFocus::offsetsShowing(const IndexPath& indexPath) const
{
    const QRectF rect = m_table.rectForRow(indexPath);
    const double beginning = rect.top() - m_table.layout().headerHeight(indexPath.section);
    const double end = rect.bottom() - m_table.height();
    // What stands above the first row, also the header of a section without rows, shows with it as far as there is
    // room.
    if (m_table.layout().rowAfter({ 0, 0 }, 0) == indexPath)
        return { end <= beginning ? std::max(0.0, end) : 0.0, end };
    return { beginning, end };
}

// The whole row or, of one that is higher than the table, nothing else.
void RowFocus::scrollIntoView(const IndexPath& indexPath)
{
    const auto [beginning, end] = offsetsShowing(indexPath);
    m_table.setContentOffset(std::clamp(m_table.contentOffset(), std::min(beginning, end), std::max(beginning, end)));
}

void RowFocus::scrollTo(double offset)
{
    const double before = m_table.contentOffset();
    m_table.setContentOffset(offset);
    tellScroll(before);
}

// Whether the focused row is seen, is higher than the table and goes on that way: then it is scrolled, and keeps the
// focus.
bool RowFocus::showMoreOfRow(double share)
{
    if (!m_table.cellForRow(m_focused))
        return false;
    const auto [beginning, end] = offsetsShowing(m_focused);
    const double offset = m_table.contentOffset();
    const bool goesOn = share < 0 ? offset > beginning : offset < end;
    if (end <= beginning || !goesOn)
        return false;
    const double seen = m_table.height() - m_table.layout().headerHeight(m_focused.section);
    scrollTo(std::clamp(offset + share * seen, beginning, end));
    return true;
}

void RowFocus::activate()
{
    if (m_table.hasRow(m_focused))
        m_table.tapRow(m_focused.section, m_focused.row);
}

void RowFocus::deleteRow()
{
    OpenRow& open = *m_table.openRow();
    if (m_focused == IndexPath{ open.section(), open.row() })
        open.deleteRow(m_focused.section, m_focused.row);
    else
        open.open(m_focused.section, m_focused.row);
}

void RowFocus::clear()
{
    setFocused(NoRow);
}

void RowFocus::holdWithinTable()
{
    if (!m_table.hasRow(m_focused))
        clear();
}

void RowFocus::closeGap(const IndexPath& deleted)
{
    if (m_focused.section != deleted.section || m_focused.row < deleted.row)
        return;
    const IndexPath before{ m_focused.section, m_focused.row - 1 };
    if (m_focused.row > deleted.row || !m_table.hasRow(m_focused))
        setFocused(before.row < 0 ? NoRow : before);
}

void RowFocus::setFocused(const IndexPath& indexPath)
{
    if (m_focused == indexPath)
        return;
    m_focused = indexPath;
    Q_EMIT changed();
}

} // namespace kit
