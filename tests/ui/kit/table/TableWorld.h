#pragma once

#include "ui/kit/table/TableView.h"

#include <QPointer>

#include <memory>
#include <set>
#include <vector>

// A cell that counts how often it was prepared for another row.
class CountingCell : public kit::TableViewCell
{
public:
    using kit::TableViewCell::TableViewCell;

    int reuses() const { return m_reuses; }
    void prepareForReuse() override
    {
        kit::TableViewCell::prepareForReuse();
        ++m_reuses;
    }

private:
    int m_reuses = 0;
};

// What a table shows: sections of as many rows, each row of the identifier "Cell" unless told otherwise, and what was
// asked.
class RowSource : public kit::TableViewDelegate
{
public:
    std::vector<int> rows;
    double rowHeight = -1;
    double firstRowHeight = -1;
    // Rows whose number this does not divide have no height; 0 for none such.
    int heightEvery = 0;
    bool withoutCells = false;
    double headerHeight = 0;
    bool withHeaders = false;
    QString headerText;
    bool editable = false;
    bool tellsNames = false;
    // Rows whose number this divides have a cell of another kind; 0 for none.
    int otherKindEvery = 0;

    int cellsAsked = 0;
    std::set<kit::TableViewCell*> cells;
    std::vector<kit::IndexPath> selected;
    std::vector<kit::IndexPath> deleted;
    std::vector<QPointer<kit::View>> headers;

    void setTable(kit::TableView* table) { m_table = table; }

    int numberOfSections() const override { return static_cast<int>(rows.size()); }
    int numberOfRowsInSection(int section) const override { return rows[static_cast<std::size_t>(section)]; }
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override
    {
        ++cellsAsked;
        if (withoutCells)
            return nullptr;
        const bool isOther = otherKindEvery > 0 && indexPath.row % otherKindEvery == 0;
        const QString identifier = isOther ? QStringLiteral("OtherCell") : QStringLiteral("Cell");
        kit::TableViewCell* cell = m_table->dequeueReusableCell(identifier);
        if (!cell)
            cell = new CountingCell(kit::TableViewCell::Style::Default, identifier);
        cell->textLabel()->setText(textOf(indexPath));
        cells.insert(cell);
        return cell;
    }
    kit::View* viewForHeaderInSection(int /*section*/) override
    {
        if (!withHeaders)
            return nullptr;
        headers.emplace_back(new kit::View({ 0, 0, m_table->width(), headerHeight }));
        headers.back()->setAccessibilityLabel(headerText);
        return headers.back();
    }
    double heightForHeaderInSection(int /*section*/) const override { return headerHeight; }
    bool rowsDifferInHeight() const override { return rowHeight >= 0 || firstRowHeight >= 0 || heightEvery > 0; }
    double heightForRowAtIndexPath(const kit::IndexPath& indexPath) const override
    {
        if (heightEvery > 0 && indexPath.row % heightEvery != 0)
            return 0;
        return indexPath.row == 0 && firstRowHeight >= 0 ? firstRowHeight : rowHeight;
    }
    QString nameForRowAtIndexPath(const kit::IndexPath& indexPath) const override
    {
        return tellsNames ? textOf(indexPath) : QString();
    }
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override { selected.push_back(indexPath); }
    bool canEditRowAtIndexPath(const kit::IndexPath& /*indexPath*/) const override { return editable; }
    void commitEditingStyle(kit::EditingStyle /*style*/, const kit::IndexPath& indexPath) override
    {
        deleted.push_back(indexPath);
    }

    static QString textOf(const kit::IndexPath& indexPath)
    {
        return QStringLiteral("%1.%2").arg(indexPath.section).arg(indexPath.row);
    }

private:
    kit::TableView* m_table = nullptr;
};

// A table of 320 by 600 points and rows of 60.
struct TableWorld
{
    explicit TableWorld(const std::vector<int>& rows)
    {
        source.rows = rows;
        source.setTable(&table);
        table.setDelegate(&source);
        table.setRowHeight(60);
    }
    void show() { table.setFrame({ 0, 0, 320, 600 }); }
    QString textAt(const kit::IndexPath& indexPath) const
    {
        const kit::TableViewCell* cell = table.cellForRow(indexPath);
        return cell ? cell->textLabel()->text() : QString();
    }
    const CountingCell* cellAt(const kit::IndexPath& indexPath) const
    {
        return static_cast<const CountingCell*>(table.cellForRow(indexPath));
    }

    RowSource source;
    kit::TableView table;
};
