#include "ui/kit/table/TableView.h"

#include "ui/kit/paint/Animations.h"
#include "ui/kit/paint/TextScale.h"

#include <algorithm>

namespace kit {

TableView::TableView(QObject* parent)
    : View({}, parent)
    , m_delegate(&TableViewDelegate::none())
{
    m_slide.setSingleShot(true);
    connect(&m_slide, &QTimer::timeout, this, &TableView::slidingChanged);
}

TableView::~TableView() = default;

void TableView::setDelegate(TableViewDelegate* delegate)
{
    m_delegate = delegate ? delegate : &TableViewDelegate::none();
    if (!delegate && m_loaded)
        reloadData();
}

void TableView::setSeparatorColor(const Color& color)
{
    m_separatorColor = color;
    Q_EMIT appearanceChanged();
}

// Puts a view in the place of another. What draws the one before must have let go of it before it goes itself.
void TableView::adoptSubview(View*& slot, View* view, const std::function<void()>& letGo)
{
    View* const before = slot == view ? nullptr : slot;
    slot = view;
    if (view && view->superview() != this)
        addSubview(view);
    letGo();
    if (!before)
        return;
    before->removeFromSuperview();
    before->deleteLater();
}

void TableView::setTableFooterView(View* view)
{
    adoptSubview(m_tableFooterView, view, [] {});
}

void TableView::setTableHeaderView(View* view)
{
    adoptSubview(m_tableHeaderView, view, [this] { Q_EMIT tableHeaderViewChanged(); });
    if (m_loaded)
        placeEverything();
}

void TableView::setRefreshControl(RefreshControl* control)
{
    if (m_refreshControl == control)
        return;
    if (m_refreshControl)
        m_refreshControl->deleteLater();
    m_refreshControl = control;
    if (control)
        control->setParent(this);
    Q_EMIT refreshControlChanged();
}

// MARK: loading

void TableView::reloadData()
{
    m_loaded = true;
    setOpenRow(NoRow);
    m_selectedRow = NoRow;
    retireAllCells();
    rebuildLayout(askRowCounts());
    remakeHeaders();
    if (!hasRow(m_focusedRow))
        setFocusedRow(NoRow);
    showChangedLayout();
}

// The content's new height is told last: who hears of it may scroll at once.
void TableView::showChangedLayout()
{
    placeHeaders();
    holdContentOffset();
    updateVisibleRows();
    Q_EMIT contentHeightChanged();
}

std::vector<int> TableView::askRowCounts() const
{
    std::vector<int> rowCounts;
    const int sections = m_delegate->numberOfSections();
    rowCounts.reserve(static_cast<std::size_t>(std::max(0, sections)));
    for (int section = 0; section < sections; ++section)
        rowCounts.push_back(std::max(0, m_delegate->numberOfRowsInSection(section)));
    return rowCounts;
}

void TableView::rebuildLayout(const std::vector<int>& rowCounts)
{
    TableLayout::Heights heights;
    heights.tableHeader = m_tableHeaderView ? m_tableHeaderView->height() : 0;
    heights.rowCounts = rowCounts;
    for (int section = 0; section < static_cast<int>(rowCounts.size()); ++section) {
        const double header = m_delegate->heightForHeaderInSection(section);
        heights.sectionHeaders.push_back(TextScale::grown(header < 0 ? m_sectionHeaderHeight : header));
        heights.sectionFooters.push_back(m_sectionFooterHeight);
    }
    heights.row = [this](const IndexPath& indexPath) {
        const double height = m_delegate->heightForRowAtIndexPath(indexPath);
        return height < 0 ? TextScale::grown(m_rowHeight) : height;
    };
    m_layout = TableLayout(heights);
}

void TableView::remakeHeaders()
{
    for (const auto& [section, header] : m_headers) {
        m_headerModel.remove(header);
        header->removeFromSuperview();
        header->deleteLater();
    }
    m_headers.clear();
    for (int section = 0; section < m_layout.sectionCount(); ++section) {
        View* header = m_delegate->viewForHeaderInSection(section);
        if (!header)
            continue;
        addSubview(header);
        m_headers[section] = header;
        m_headerModel.append(header);
    }
}

void TableView::placeHeaders()
{
    for (const auto& [section, header] : m_headers)
        header->setFrame({ 0, m_layout.headerTop(section, m_contentOffset), width(), m_layout.headerHeight(section) });
}

void TableView::layoutSubviews()
{
    if (!m_loaded) {
        if (m_delegate != &TableViewDelegate::none())
            reloadData();
        return;
    }
    remakeHeaders();
    placeEverything();
}

std::vector<int> TableView::shownRowCounts() const
{
    std::vector<int> rowCounts;
    rowCounts.reserve(static_cast<std::size_t>(m_layout.sectionCount()));
    for (int section = 0; section < m_layout.sectionCount(); ++section)
        rowCounts.push_back(m_layout.rowCount(section));
    return rowCounts;
}

// The rows stay those last asked for; only their places are found anew.
void TableView::placeEverything()
{
    rebuildLayout(shownRowCounts());
    for (const auto& [indexPath, cell] : m_visibleCells)
        cell->setFrame(rectForRow(indexPath));
    showChangedLayout();
}

// MARK: cells

TableViewCell* TableView::dequeueReusableCell(const QString& identifier, const QMetaObject& kind)
{
    TableViewCell* const cell = m_reusableCells.take(identifier, kind);
    if (cell)
        cell->prepareForReuse();
    return cell;
}

void TableView::updateVisibleRows()
{
    if (!m_loaded)
        return;
    const double top = m_contentOffset;
    const double bottom = m_contentOffset + height();
    retireRowsOutside(top, bottom);
    for (int section = 0; section < m_layout.sectionCount(); ++section) {
        const auto [first, end] = m_layout.rowsBetween(section, top, bottom);
        for (int row = m_layout.rowWithHeight(section, first); row < end;
             row = m_layout.rowWithHeight(section, row + 1))
            if (!m_visibleCells.contains({ section, row }))
                showRow({ section, row });
    }
    m_reusableCells.hideAll();
}

void TableView::retireRowsOutside(double top, double bottom)
{
    for (auto row = m_visibleCells.begin(); row != m_visibleCells.end();) {
        const bool isSeen = m_layout.rowBottom(row->first) > top && m_layout.rowTop(row->first) < bottom;
        if (!isSeen)
            m_reusableCells.give(row->second);
        row = isSeen ? std::next(row) : m_visibleCells.erase(row);
    }
}

// A row for which the delegate has none gets an empty one.
TableViewCell* TableView::askForCell(const IndexPath& indexPath)
{
    if (TableViewCell* cell = m_delegate->cellForRowAtIndexPath(indexPath))
        return cell;
    return dequeueCell<TableViewCell>(QString(), TableViewCell::Style::Default);
}

void TableView::showRow(const IndexPath& indexPath)
{
    TableViewCell* const cell = askForCell(indexPath);
    m_visibleCells[indexPath] = cell;
    cell->setIndexPath(indexPath);
    placeCell(*cell, indexPath);
    cell->setNeedsLayout();
    cell->setHidden(false);
    if (indexPath == m_selectedRow)
        cell->setSelected(true, TableViewCell::Fade::Immediately);
    if (cell->superview() == this)
        return;
    addSubview(cell);
    m_cellModel.append(cell);
}

void TableView::placeCell(TableViewCell& cell, const IndexPath& indexPath)
{
    const int next = indexPath.section + 1;
    const bool isLast = indexPath.row == m_layout.rowCount(indexPath.section) - 1;
    cell.setFrame(rectForRow(indexPath));
    cell.setMeetsHeader(isLast && next < m_layout.sectionCount() && m_headers.contains(next));
}

void TableView::retireAllCells()
{
    for (const auto& [indexPath, cell] : m_visibleCells)
        m_reusableCells.give(cell);
    m_visibleCells.clear();
}

// MARK: rows

QRectF TableView::rectForRow(const IndexPath& indexPath) const
{
    if (!hasRow(indexPath))
        return {};
    const double top = m_layout.rowTop(indexPath);
    return { 0, top, width(), m_layout.rowBottom(indexPath) - top };
}

std::optional<IndexPath> TableView::indexPathForRowAtPoint(const QPointF& point) const
{
    if (point.x() < 0 || point.x() > width())
        return std::nullopt;
    return m_layout.rowAt(point.y());
}

TableViewCell* TableView::cellForRow(const IndexPath& indexPath) const
{
    const auto found = m_visibleCells.find(indexPath);
    return found == m_visibleCells.end() ? nullptr : found->second;
}

std::vector<IndexPath> TableView::indexPathsForVisibleRows() const
{
    std::vector<IndexPath> rows;
    for (const auto& [indexPath, cell] : m_visibleCells)
        rows.push_back(indexPath);
    return rows;
}

View* TableView::headerView(int section) const
{
    const auto found = m_headers.find(section);
    return found == m_headers.end() ? nullptr : found->second;
}

bool TableView::hasRow(const IndexPath& indexPath) const
{
    return indexPath.row >= 0 && indexPath.row < m_layout.rowCount(indexPath.section);
}

// After the content shrank, its end is the furthest that shows. A table that is pulled down stays so.
void TableView::holdContentOffset()
{
    if (height() > 0)
        setContentOffset(std::min(m_contentOffset, std::max(0.0, contentHeight() - height())));
}

void TableView::setContentOffset(double offset)
{
    if (offset == m_contentOffset)
        return;
    m_contentOffset = offset;
    placeHeaders();
    updateVisibleRows();
    Q_EMIT contentOffsetChanged();
    Q_EMIT contentOriginChanged();
}

void TableView::setSelected(const IndexPath& indexPath, bool selected, Animation animation)
{
    const auto fade
        = animation == Animation::Animated ? TableViewCell::Fade::Animated : TableViewCell::Fade::Immediately;
    if (TableViewCell* cell = cellForRow(indexPath))
        cell->setSelected(selected, fade);
    m_selectedRow = selected ? indexPath : NoRow;
}

void TableView::deselectRow(const IndexPath& indexPath, Animation animation)
{
    if (indexPath == m_selectedRow)
        setSelected(indexPath, false, animation);
}

// The selection goes with its row, the focus passes to the row that takes its place, or else to the one before.
void TableView::moveRowsAfterDeletion(const IndexPath& indexPath)
{
    if (m_selectedRow == indexPath)
        m_selectedRow = NoRow;
    else if (m_selectedRow.section == indexPath.section && m_selectedRow.row > indexPath.row)
        --m_selectedRow.row;
    if (m_focusedRow.section != indexPath.section || m_focusedRow.row < indexPath.row)
        return;
    const IndexPath before{ m_focusedRow.section, m_focusedRow.row - 1 };
    if (m_focusedRow.row > indexPath.row || !hasRow(m_focusedRow))
        setFocusedRow(before.row < 0 ? NoRow : before);
}

// The cells below keep their rows' content and take the place above; a new one comes in at the end.
void TableView::deleteRow(const IndexPath& indexPath, Animation animation)
{
    if (!hasRow(indexPath))
        return;
    const std::vector<int> rowCounts = askRowCounts();
    std::vector<int> expected = shownRowCounts();
    --expected[static_cast<std::size_t>(indexPath.section)];
    if (rowCounts != expected)
        return reloadData();
    setOpenRow(NoRow);
    if (animation == Animation::Animated) {
        m_slide.start(Animations::duration(Animations::Fade));
        Q_EMIT slidingChanged();
    }
    std::map<IndexPath, TableViewCell*> moved;
    for (const auto& [old, cell] : m_visibleCells) {
        const bool isBelow = old.section == indexPath.section && old.row > indexPath.row;
        if (old == indexPath)
            m_reusableCells.give(cell);
        else
            moved[isBelow ? IndexPath{ old.section, old.row - 1 } : old] = cell;
    }
    m_visibleCells = std::move(moved);
    rebuildLayout(rowCounts);
    moveRowsAfterDeletion(indexPath);
    for (const auto& [now, cell] : m_visibleCells) {
        cell->setIndexPath(now);
        placeCell(*cell, now);
    }
    showChangedLayout();
}

// MARK: what a person does

void TableView::tapRow(int section, int row)
{
    const IndexPath indexPath{ section, row };
    if (m_openRow != NoRow)
        return setOpenRow(NoRow);
    if (!hasRow(indexPath))
        return;
    if (m_selectedRow != NoRow)
        setSelected(m_selectedRow, false, Animation::None);
    setSelected(indexPath, true, Animation::None);
    m_delegate->didSelectRowAtIndexPath(indexPath);
}

void TableView::pressRow(int section, int row, bool pressed)
{
    if (TableViewCell* cell = cellForRow({ section, row }))
        cell->setPressed(pressed && m_openRow == NoRow);
}

bool TableView::canDeleteRow(int section, int row) const
{
    return hasRow({ section, row }) && m_delegate->canEditRowAtIndexPath({ section, row });
}

void TableView::openRowForDeletion(int section, int row)
{
    setOpenRow(canDeleteRow(section, row) ? IndexPath{ section, row } : NoRow);
}

bool TableView::closeOpenRow()
{
    const bool wasOpen = m_openRow != NoRow;
    setOpenRow(NoRow);
    return wasOpen;
}

void TableView::deleteTapped(int section, int row)
{
    if (!canDeleteRow(section, row))
        return;
    setOpenRow(NoRow);
    m_delegate->commitEditingStyle(EditingStyle::Delete, { section, row });
}

void TableView::setOpenRow(const IndexPath& indexPath)
{
    if (m_openRow == indexPath)
        return;
    m_openRow = indexPath;
    Q_EMIT openRowChanged();
}

} // namespace kit
