#pragma once

#include "ui/kit/paint/Geometry.h"
#include "ui/kit/view/View.h"

#include <vector>

namespace kit {

class OpenRow;
class TableLayout;
class TableViewCell;
class TableViewDelegate;

// What the parts of a table (its rows, headers, focused and open row) see of the whole.
class TableHost : public View
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    using View::View;

    virtual TableViewDelegate& delegate() const = 0;
    virtual const TableLayout& layout() const = 0;
    virtual bool hasRow(const IndexPath& indexPath) const = 0;
    virtual const IndexPath& selectedRow() const = 0;
    // In the table's content coordinates, in which the table header view begins at 0.
    virtual QRectF rectForRow(const IndexPath& indexPath) const = 0;
    // Null unless the row is visible.
    virtual TableViewCell* cellForRow(const IndexPath& indexPath) const = 0;
    virtual std::vector<IndexPath> indexPathsForVisibleRows() const = 0;
    // For a row for which the delegate has no cell.
    virtual TableViewCell* dequeueEmptyCell() = 0;
    virtual View* headerView(int section) const = 0;
    virtual double contentOffset() const = 0;
    // Where the content begins to be seen; below 0 while the table is pulled down.
    Q_INVOKABLE virtual void setContentOffset(double offset) = 0;
    Q_INVOKABLE virtual void tapRow(int section, int row) = 0;
    virtual OpenRow* openRow() = 0;
};

} // namespace kit
