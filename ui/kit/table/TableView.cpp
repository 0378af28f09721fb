#include "ui/kit/table/TableView.h"

#include "ui/kit/paint/Animations.h"
#include "ui/kit/text/TextScale.h"

#include <algorithm>

namespace kit {

TableView::TableView(QObject* parent)
    : TableHost({}, parent)
    , m_delegate(&TableViewDelegate::none())
    , m_rows(*this)
    , m_headers(*this)
    , m_openRow(*this)
    , m_rowFocus(*this)
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
    m_openRow.close();
    m_selectedRow = NoRow;
    m_rows.giveUpAll();
    rebuildLayout(askRowCounts());
    m_headers.remake();
    m_rowFocus.holdWithinTable();
    showChangedLayout();
}

// The content's new height is told last: who hears of it may scroll at once.
void TableView::showChangedLayout()
{
    m_headers.place();
    holdContentOffset();
    showVisibleRows();
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
    heights.eachRow = TextScale::grown(m_rowHeight);
    if (m_delegate->rowsDifferInHeight())
        heights.row = [this, each = heights.eachRow](const IndexPath& indexPath) {
            const double height = m_delegate->heightForRowAtIndexPath(indexPath);
            return height < 0 ? each : height;
        };
    m_layout = TableLayout(heights);
}

void TableView::layoutSubviews()
{
    if (!m_loaded) {
        if (m_delegate != &TableViewDelegate::none())
            reloadData();
        return;
    }
    m_headers.remake();
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
    m_rows.place();
    showChangedLayout();
}

void TableView::showVisibleRows()
{
    if (m_loaded)
        m_rows.show(m_contentOffset, m_contentOffset + height());
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
    m_headers.place();
    showVisibleRows();
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
    m_openRow.close();
    if (animation == Animation::Animated)
        slide();
    m_rows.closeGap(indexPath);
    rebuildLayout(rowCounts);
    closeGapInSelection(indexPath);
    m_rowFocus.closeGap(indexPath);
    m_rows.placeMoved();
    showChangedLayout();
}

void TableView::slide()
{
    m_slide.start(Animations::duration(Animations::Fade));
    Q_EMIT slidingChanged();
}

// The selection goes with its row.
void TableView::closeGapInSelection(const IndexPath& deleted)
{
    if (m_selectedRow == deleted)
        m_selectedRow = NoRow;
    else if (m_selectedRow.section == deleted.section && m_selectedRow.row > deleted.row)
        --m_selectedRow.row;
}

// MARK: what a person does

void TableView::tapRow(int section, int row)
{
    const IndexPath indexPath{ section, row };
    if (m_openRow.close() || !hasRow(indexPath))
        return;
    if (m_selectedRow != NoRow)
        setSelected(m_selectedRow, false, Animation::None);
    setSelected(indexPath, true, Animation::None);
    m_delegate->didSelectRowAtIndexPath(indexPath);
}

void TableView::pressRow(int section, int row, bool pressed)
{
    if (TableViewCell* cell = cellForRow({ section, row }))
        cell->setPressed(pressed && !m_openRow.isOpen());
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

} // namespace kit
