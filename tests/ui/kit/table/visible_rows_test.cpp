#include "tests/ui/kit/table/TableWorld.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

class OtherCell : public kit::TableViewCell
{
    Q_OBJECT

public:
    using kit::TableViewCell::TableViewCell;
};

// Rows with a detail at the right, longer from row to row.
class DetailedRows : public RowSource
{
public:
    explicit DetailedRows(kit::TableView& shown)
        : m_shown(shown)
    {
        rows = { 100 };
        shown.setDelegate(this);
    }
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override
    {
        auto* const cell
            = m_shown.dequeueCell<kit::TableViewCell>(QStringLiteral("Cell"), kit::TableViewCell::Style::Value1);
        cell->detailTextLabel()->setText(QString(1 + indexPath.row / 5, u'x'));
        return cell;
    }

private:
    kit::TableView& m_shown;
};

} // namespace

TEST(VisibleRows, makesCellsForTheVisibleRowsOnly)
{
    TableWorld world({ 1'000'000 });
    world.show();
    EXPECT_EQ(world.source.cells.size(), 10U);
    EXPECT_EQ(world.table.indexPathsForVisibleRows().size(), 10U);
    EXPECT_EQ(world.table.contentHeight(), 60'000'000);
    EXPECT_EQ(world.table.cellForRow({ 0, 10 }), nullptr);
}

TEST(VisibleRows, neverMakesMoreThanOneCellBeyondTheVisibleOnes)
{
    TableWorld world({ 100'000 });
    world.show();
    for (int offset = 0; offset < 30'000; offset += 7)
        world.table.setContentOffset(offset);
    for (int offset = 30'000; offset > 0; offset -= 450)
        world.table.setContentOffset(offset);
    EXPECT_LE(world.source.cells.size(), 11U);
}

TEST(VisibleRows, jumpsAnywhereWithTheCellsItHas)
{
    TableWorld world({ 1'000'000 });
    world.show();
    world.table.setContentOffset(500'000 * 60.0);
    EXPECT_EQ(world.source.cells.size(), 10U);
    EXPECT_EQ(world.textAt({ 0, 500'000 }), QStringLiteral("0.500000"));
    EXPECT_EQ(world.table.cellForRow({ 0, 0 }), nullptr);
    EXPECT_EQ(world.table.cellForRow({ 0, 500'000 })->frame(), QRectF(0, 500'000 * 60.0, 320, 60));
}

TEST(VisibleRows, preparesACellBeforeItServesAnotherRow)
{
    TableWorld world({ 100 });
    world.show();
    const CountingCell* first = world.cellAt({ 0, 0 });
    EXPECT_EQ(first->reuses(), 0);
    world.table.setContentOffset(60);
    EXPECT_EQ(world.cellAt({ 0, 10 }), first);
    EXPECT_EQ(first->reuses(), 1);
    EXPECT_EQ(first->indexPath(), (kit::IndexPath{ 0, 10 }));
    EXPECT_EQ(world.textAt({ 0, 10 }), QStringLiteral("0.10"));
}

TEST(VisibleRows, reusesACellOnlyForItsIdentifier)
{
    TableWorld world({ 100 });
    world.source.otherKindEvery = 4;
    world.show();
    for (int offset = 0; offset < 3'000; offset += 30)
        world.table.setContentOffset(offset);
    for (const kit::IndexPath& row : world.table.indexPathsForVisibleRows())
        EXPECT_EQ(world.table.cellForRow(row)->reuseIdentifier(),
            row.row % 4 == 0 ? QStringLiteral("OtherCell") : QStringLiteral("Cell"));
    EXPECT_EQ(world.table.dequeueReusableCell(QStringLiteral("UnknownCell")), nullptr);
}

TEST(VisibleRows, keepsCellsOfAnotherClassForThoseWhoAskForThem)
{
    TableWorld world({ 1 });
    world.show();
    const QString name = QStringLiteral("Cell");
    world.table.reloadData();
    world.source.rows = { 0 };
    world.table.reloadData();
    auto* const other = world.table.dequeueCell<OtherCell>(name, kit::TableViewCell::Style::Default);
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(world.source.cells.count(other), 0U)
        << "a cell of another class is no " << other->metaObject()->className();
    kit::TableViewCell* const plain = world.table.dequeueReusableCell(name);
    EXPECT_EQ(world.source.cells.count(plain), 1U) << "it waits for the next who asks";
    delete other;
}

TEST(VisibleRows, makesNoCellsForRowsWithoutAHeight)
{
    TableWorld world({ 1'000'000 });
    world.source.heightEvery = 250'000;
    world.show();
    EXPECT_EQ(world.table.indexPathsForVisibleRows(),
        (std::vector<kit::IndexPath>{ { 0, 0 }, { 0, 250'000 }, { 0, 500'000 }, { 0, 750'000 } }));
    EXPECT_EQ(world.source.cellsAsked, 4);
}

TEST(VisibleRows, showsEmptyRowsWhereItsDelegateHasNoCells)
{
    TableWorld world({ 100 });
    world.source.withoutCells = true;
    world.show();
    EXPECT_EQ(world.table.indexPathsForVisibleRows().size(), 10U);
    EXPECT_TRUE(world.textAt({ 0, 0 }).isEmpty());
    for (double offset = 0; offset < 5'000; offset += 70)
        world.table.setContentOffset(offset);
    EXPECT_LE(world.table.cellModel()->rowCount(), 11);
}

TEST(VisibleRows, hidesCellsThatNoRowUses)
{
    TableWorld world({ 20 });
    world.show();
    world.source.rows = { 3 };
    world.table.reloadData();
    int shown = 0;
    for (const kit::TableViewCell* cell : world.source.cells)
        shown += cell->isHidden() ? 0 : 1;
    EXPECT_EQ(shown, 3);
}

TEST(VisibleRows, showsAHiddenCellThatARowUsesAgain)
{
    TableWorld world({ 20 });
    world.show();
    world.source.rows = { 3 };
    world.table.reloadData();
    world.source.rows = { 20 };
    world.table.reloadData();
    EXPECT_EQ(world.source.cells.size(), 10U);
    for (const kit::TableViewCell* cell : world.source.cells)
        EXPECT_FALSE(cell->isHidden());
}

TEST(VisibleRows, drawsEachCellOnce)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(600);
    EXPECT_EQ(world.table.cellModel()->rowCount(), 10);
    for (kit::TableViewCell* cell : world.source.cells) {
        EXPECT_EQ(cell->superview(), &world.table);
        EXPECT_EQ(world.table.cellModel()->objects().count(cell), 1);
    }
}

TEST(VisibleRows, laysACellOutAnewForTheTextsOfItsNextRow)
{
    kit::TableView table;
    DetailedRows rows(table);
    table.setFrame({ 0, 0, 320, 600 });
    for (const double offset : { 0.0, 600.0, 3'000.0, 0.0 }) {
        table.setContentOffset(offset);
        for (const kit::IndexPath& row : table.indexPathsForVisibleRows()) {
            const kit::Label* const detail = table.cellForRow(row)->detailTextLabel();
            EXPECT_EQ(detail->width(), std::ceil(detail->naturalWidth()) + 1) << row.row;
        }
    }
}

TEST(VisibleRows, putsTheVisibleCellsUpForReuseBeforeItReloads)
{
    TableWorld world({ 100 });
    world.show();
    const CountingCell* first = world.cellAt({ 0, 0 });
    world.table.reloadData();
    EXPECT_EQ(world.source.cells.size(), 10U);
    EXPECT_EQ(world.source.cellsAsked, 20);
    EXPECT_EQ(first->reuses(), 1);
}

TEST(VisibleRows, givesADequeuedCellItsSeparatorInsetOnce)
{
    kit::TableView table;
    table.setSeparatorInset({ 0, 15, 0, 0 });
    const std::unique_ptr<kit::TableViewCell> cell(
        table.dequeueCell<kit::TableViewCell>(QStringLiteral("Cell"), kit::TableViewCell::Style::Value1));
    EXPECT_EQ(cell->separatorInset(), (kit::EdgeInsets{ 0, 15, 0, 0 }));
    EXPECT_EQ(cell->style(), kit::TableViewCell::Style::Value1);
    EXPECT_EQ(cell->reuseIdentifier(), QStringLiteral("Cell"));
}

TEST(RowSeparator, givesWayToTheEdgeOfTheHeaderThatFollows)
{
    TableWorld world({ 2, 2 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    EXPECT_FALSE(world.table.cellForRow({ 0, 0 })->meetsHeader());
    EXPECT_TRUE(world.table.cellForRow({ 0, 1 })->meetsHeader());
    EXPECT_FALSE(world.table.cellForRow({ 1, 1 })->meetsHeader()) << "nothing follows the last section";
}

TEST(RowSeparator, staysBetweenSectionsWithoutHeaders)
{
    TableWorld world({ 2, 2 });
    world.show();
    EXPECT_FALSE(world.table.cellForRow({ 0, 1 })->meetsHeader());
}

TEST(RowSeparator, givesWayInTheRowThatBecomesTheLastByADeletion)
{
    TableWorld world({ 3, 2 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    world.source.rows[0] = 2;
    world.table.deleteRow({ 0, 2 }, kit::TableView::Animation::None);
    EXPECT_TRUE(world.table.cellForRow({ 0, 1 })->meetsHeader());
}

#include "visible_rows_test.moc"
