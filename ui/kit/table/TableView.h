#pragma once

#include "ui/kit/table/OpenRow.h"
#include "ui/kit/table/RefreshControl.h"
#include "ui/kit/table/RowFocus.h"
#include "ui/kit/table/SectionHeaders.h"
#include "ui/kit/table/TableHost.h"
#include "ui/kit/table/TableLayout.h"
#include "ui/kit/table/TableViewCell.h"
#include "ui/kit/table/TableViewDelegate.h"
#include "ui/kit/table/VisibleRows.h"

#include <QTimer>

#include <functional>
#include <vector>

namespace kit {

// A table of sections and rows with a pinned section header. It asks its delegate what there is to show and finds the
// places; its parts keep the cells of the rows that are seen, the headers, the row that the keyboard acts on and the
// row that stands open for deletion. Lives on the main thread.
class TableView : public TableHost
{
    Q_OBJECT
    QML_NAMED_ELEMENT(KitTable)
    QML_UNCREATABLE("views are made in C++")
    Q_PROPERTY(kit::ObjectListModel* cellModel READ cellModel CONSTANT)
    Q_PROPERTY(kit::ObjectListModel* headerModel READ headerModel CONSTANT)
    Q_PROPERTY(kit::View* tableHeaderView READ tableHeaderView NOTIFY tableHeaderViewChanged)
    Q_PROPERTY(kit::RefreshControl* refreshControl READ refreshControl NOTIFY refreshControlChanged)
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY contentHeightChanged)
    Q_PROPERTY(double contentOffset READ contentOffset NOTIFY contentOffsetChanged)
    Q_PROPERTY(QColor separatorTint READ separatorTint NOTIFY appearanceChanged)
    Q_PROPERTY(bool sliding READ isSliding NOTIFY slidingChanged)
    Q_PROPERTY(kit::OpenRow* openRow READ openRow CONSTANT)
    Q_PROPERTY(kit::RowFocus* rowFocus READ rowFocus CONSTANT)

public:
    enum class Animation { None, Animated };

    explicit TableView(QObject* parent = nullptr);
    ~TableView() override;

    // Null stands for a table without rows. Anything else shows with the next reload.
    void setDelegate(TableViewDelegate* delegate);
    TableViewDelegate& delegate() const override { return *m_delegate; }

    double rowHeight() const { return m_rowHeight; }
    void setRowHeight(double height) { m_rowHeight = height; }
    double estimatedRowHeight() const { return m_estimatedRowHeight; }
    void setEstimatedRowHeight(double height) { m_estimatedRowHeight = height; }
    double sectionHeaderHeight() const { return m_sectionHeaderHeight; }
    void setSectionHeaderHeight(double height) { m_sectionHeaderHeight = height; }
    double estimatedSectionHeaderHeight() const { return m_estimatedSectionHeaderHeight; }
    void setEstimatedSectionHeaderHeight(double height) { m_estimatedSectionHeaderHeight = height; }
    double sectionFooterHeight() const { return m_sectionFooterHeight; }
    void setSectionFooterHeight(double height) { m_sectionFooterHeight = height; }
    double estimatedSectionFooterHeight() const { return m_estimatedSectionFooterHeight; }
    void setEstimatedSectionFooterHeight(double height) { m_estimatedSectionFooterHeight = height; }
    const Color& separatorColor() const { return m_separatorColor; }
    void setSeparatorColor(const Color& color);
    const EdgeInsets& separatorInset() const { return m_separatorInset; }
    void setSeparatorInset(const EdgeInsets& inset) { m_separatorInset = inset; }
    // Recorded only: separators end with the last row whether there is one or not.
    View* tableFooterView() const { return m_tableFooterView; }
    void setTableFooterView(View* view);
    // Stands above the first section and scrolls with it; its frame's height counts. Setting it again takes its new
    // size.
    View* tableHeaderView() const { return m_tableHeaderView; }
    void setTableHeaderView(View* view);
    bool delaysContentTouches() const { return m_delaysContentTouches; }
    void setDelaysContentTouches(bool delays) { m_delaysContentTouches = delays; }
    RefreshControl* refreshControl() const { return m_refreshControl; }
    // Takes ownership.
    void setRefreshControl(RefreshControl* control);

    // Asks for everything anew. The visible cells are put up for reuse first.
    void reloadData();
    // A cell that stood for another row before, prepared for reuse, or null.
    TableViewCell* dequeueReusableCell(
        const QString& identifier, const QMetaObject& kind = TableViewCell::staticMetaObject)
    {
        return m_rows.dequeue(identifier, kind);
    }
    // A reused cell of that class, or a new one made from the arguments and the identifier.
    template <typename Cell> Cell* dequeueCell(const QString& identifier, TableViewCell::Style style)
    {
        if (TableViewCell* reused = dequeueReusableCell(identifier, Cell::staticMetaObject))
            return static_cast<Cell*>(reused);
        auto* cell = new Cell(style, identifier);
        cell->setSeparatorInset(m_separatorInset);
        return cell;
    }
    TableViewCell* dequeueEmptyCell() override
    {
        return dequeueCell<TableViewCell>(QString(), TableViewCell::Style::Default);
    }
    void deselectRow(const IndexPath& indexPath, Animation animation);
    // The row is gone from the delegate already; those below move up. If more than it has changed, everything is asked
    // anew.
    void deleteRow(const IndexPath& indexPath, Animation animation);

    bool hasRow(const IndexPath& indexPath) const override;
    const IndexPath& selectedRow() const override { return m_selectedRow; }
    QRectF rectForRow(const IndexPath& indexPath) const override;
    std::optional<IndexPath> indexPathForRowAtPoint(const QPointF& point) const;
    TableViewCell* cellForRow(const IndexPath& indexPath) const override { return m_rows.cellFor(indexPath); }
    std::vector<IndexPath> indexPathsForVisibleRows() const override { return m_rows.indexPaths(); }
    View* headerView(int section) const override { return m_headers.headerOf(section); }
    double contentHeight() const { return m_layout.contentHeight(); }
    double contentOffset() const override { return m_contentOffset; }
    void setContentOffset(double offset) override;
    QPointF contentOrigin() const override { return { 0, m_contentOffset }; }
    const TableLayout& layout() const override { return m_layout; }

    void layoutSubviews() override;
    QString component() const override { return QStringLiteral("TableBody"); }

    // What a person does.
    void tapRow(int section, int row) override;
    Q_INVOKABLE void pressRow(int section, int row, bool pressed);
    // Shows what is next or (-1) what was before, wherever the focus is.
    Q_INVOKABLE void scrollByPage(int direction);
    OpenRow* openRow() override { return &m_openRow; }
    RowFocus* rowFocus() { return &m_rowFocus; }

    // While the rows below a deleted one move up to their new frames.
    bool isSliding() const { return m_slide.isActive(); }
    ObjectListModel* cellModel() { return m_rows.model(); }
    ObjectListModel* headerModel() { return m_headers.model(); }
    QColor separatorTint() const { return m_separatorColor.toQColor(); }

Q_SIGNALS:
    void tableHeaderViewChanged();
    void refreshControlChanged();
    void contentHeightChanged();
    void contentOffsetChanged();
    void slidingChanged();

private:
    void rebuildLayout(const std::vector<int>& rowCounts);
    std::vector<int> askRowCounts() const;
    std::vector<int> shownRowCounts() const;
    void placeEverything();
    void showVisibleRows();
    void slide();
    void closeGapInSelection(const IndexPath& deleted);
    void adoptSubview(View*& slot, View* view, const std::function<void()>& letGo);
    void holdContentOffset();
    void showChangedLayout();
    void setSelected(const IndexPath& indexPath, bool selected, Animation animation);

    TableViewDelegate* m_delegate;
    TableLayout m_layout;
    VisibleRows m_rows;
    SectionHeaders m_headers;
    OpenRow m_openRow;
    RowFocus m_rowFocus;
    View* m_tableHeaderView = nullptr;
    View* m_tableFooterView = nullptr;
    RefreshControl* m_refreshControl = nullptr;
    Color m_separatorColor{ 0.6, 0.6, 0.6, 1, {} };
    EdgeInsets m_separatorInset;
    IndexPath m_selectedRow = NoRow;
    double m_contentOffset = 0;
    QTimer m_slide;
    bool m_loaded = false;
    double m_rowHeight = 44;
    double m_estimatedRowHeight = 44;
    double m_sectionHeaderHeight = 28;
    double m_estimatedSectionHeaderHeight = 28;
    double m_sectionFooterHeight = 0;
    double m_estimatedSectionFooterHeight = 0;
    bool m_delaysContentTouches = true;
};

} // namespace kit
