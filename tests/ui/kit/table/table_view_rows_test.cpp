#include "tests/ui/kit/table/TableWorld.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

TEST(RowSelection, tellsTheDelegateAndHighlightsTheCell)
{
    TableWorld world({ 5 });
    world.show();
    world.table.tapRow(0, 2);
    EXPECT_EQ(world.source.selected, (std::vector<kit::IndexPath>{ { 0, 2 } }));
    EXPECT_TRUE(world.table.cellForRow({ 0, 2 })->isSelected());
    EXPECT_TRUE(world.table.cellForRow({ 0, 2 })->isHighlighted());
}

TEST(RowSelection, leavesTheRowBefore)
{
    TableWorld world({ 5 });
    world.show();
    world.table.tapRow(0, 2);
    world.table.tapRow(0, 3);
    EXPECT_FALSE(world.table.cellForRow({ 0, 2 })->isSelected());
    EXPECT_TRUE(world.table.cellForRow({ 0, 3 })->isSelected());
}

TEST(RowSelection, endsByDeselectionAndFadesIfToldTo)
{
    TableWorld world({ 5 });
    world.show();
    world.table.tapRow(0, 2);
    world.table.deselectRow({ 0, 1 }, kit::TableView::Animation::Animated);
    EXPECT_TRUE(world.table.cellForRow({ 0, 2 })->isSelected());
    world.table.deselectRow({ 0, 2 }, kit::TableView::Animation::Animated);
    EXPECT_FALSE(world.table.cellForRow({ 0, 2 })->isSelected());
    EXPECT_TRUE(world.table.cellForRow({ 0, 2 })->fadesSelection());
}

TEST(RowSelection, isOverForGoodOnceItsRowIsDeselected)
{
    TableWorld world({ 100 });
    world.show();
    world.table.tapRow(0, 2);
    world.table.deselectRow({ 0, 1 }, kit::TableView::Animation::None);
    world.table.setContentOffset(3'000);
    world.table.setContentOffset(0);
    EXPECT_TRUE(world.table.cellForRow({ 0, 2 })->isSelected()) << "another row was";
    world.table.deselectRow({ 0, 2 }, kit::TableView::Animation::None);
    world.table.setContentOffset(3'000);
    world.table.setContentOffset(0);
    EXPECT_FALSE(world.table.cellForRow({ 0, 2 })->isSelected());
}

TEST(RowSelection, staysOnItsRowWhenOneBelowIsDeleted)
{
    TableWorld world({ 5 });
    world.show();
    world.table.tapRow(0, 1);
    world.source.rows = { 4 };
    world.table.deleteRow({ 0, 3 }, kit::TableView::Animation::None);
    EXPECT_EQ(world.table.selectedRow(), (kit::IndexPath{ 0, 1 }));
    EXPECT_TRUE(world.table.cellForRow({ 0, 1 })->isSelected());
}

TEST(RowSelection, comesBackWithTheRowAndNotWithTheCell)
{
    TableWorld world({ 100 });
    world.show();
    world.table.tapRow(0, 0);
    world.table.setContentOffset(3'000);
    for (const kit::IndexPath& row : world.table.indexPathsForVisibleRows())
        EXPECT_FALSE(world.table.cellForRow(row)->isSelected());
    world.table.setContentOffset(0);
    EXPECT_TRUE(world.table.cellForRow({ 0, 0 })->isSelected());
}

TEST(RowSelection, isForgottenByAReload)
{
    TableWorld world({ 5 });
    world.show();
    world.table.tapRow(0, 2);
    world.table.reloadData();
    EXPECT_FALSE(world.table.cellForRow({ 0, 2 })->isSelected());
}

TEST(RowSelection, ignoresRowsThatAreNotThere)
{
    TableWorld world({ 5 });
    world.show();
    world.table.tapRow(0, 5);
    world.table.tapRow(1, 0);
    world.table.tapRow(-1, -1);
    EXPECT_TRUE(world.source.selected.empty());
}

TEST(RowSelection, followsItsRowWhenOneAboveIsDeleted)
{
    TableWorld world({ 5 });
    world.show();
    world.table.tapRow(0, 3);
    world.source.rows = { 4 };
    world.table.deleteRow({ 0, 1 }, kit::TableView::Animation::None);
    EXPECT_TRUE(world.table.cellForRow({ 0, 2 })->isSelected());
    world.table.deselectRow({ 0, 2 }, kit::TableView::Animation::None);
    EXPECT_FALSE(world.table.cellForRow({ 0, 2 })->isSelected());
}

TEST(RowSelection, staysOnItsRowWhenOneOfAnotherSectionIsDeleted)
{
    TableWorld world({ 3, 5 });
    world.show();
    world.table.tapRow(1, 3);
    world.source.rows = { 2, 5 };
    world.table.deleteRow({ 0, 1 }, kit::TableView::Animation::None);
    world.table.deselectRow({ 1, 3 }, kit::TableView::Animation::None);
    EXPECT_FALSE(world.table.cellForRow({ 1, 3 })->isSelected());
}

TEST(RowSelection, goesWithItsRow)
{
    TableWorld world({ 5 });
    world.show();
    world.table.tapRow(0, 1);
    world.source.rows = { 4 };
    world.table.deleteRow({ 0, 1 }, kit::TableView::Animation::None);
    for (const kit::IndexPath& row : world.table.indexPathsForVisibleRows())
        EXPECT_FALSE(world.table.cellForRow(row)->isSelected());
    world.table.setFrame({ 0, 0, 320, 10 });
    world.table.setFrame({ 0, 0, 320, 600 });
    EXPECT_FALSE(world.table.cellForRow({ 0, 1 })->isSelected());
}

TEST(RowPress, highlightsTheCellWhileItLasts)
{
    TableWorld world({ 5 });
    world.show();
    world.table.pressRow(0, 1, true);
    EXPECT_TRUE(world.table.cellForRow({ 0, 1 })->isHighlighted());
    EXPECT_FALSE(world.table.cellForRow({ 0, 1 })->isSelected());
    world.table.pressRow(0, 1, false);
    EXPECT_FALSE(world.table.cellForRow({ 0, 1 })->isHighlighted());
    world.table.pressRow(7, 7, true);
}

TEST(RowDeletion, movesTheCellsBelowUpWithTheirContent)
{
    TableWorld world({ 20 });
    world.show();
    const kit::TableViewCell* third = world.table.cellForRow({ 0, 3 });
    world.source.rows = { 19 };
    const int askedBefore = world.source.cellsAsked;
    QSignalSpy slid(&world.table, &kit::TableView::slidingChanged);
    world.table.deleteRow({ 0, 2 }, kit::TableView::Animation::Animated);
    EXPECT_EQ(slid.count(), 1);
    EXPECT_TRUE(world.table.isSliding());
    EXPECT_EQ(world.table.cellForRow({ 0, 2 }), third);
    EXPECT_EQ(world.textAt({ 0, 2 }), QStringLiteral("0.3"));
    EXPECT_EQ(third->frame(), QRectF(0, 120, 320, 60));
    EXPECT_EQ(third->row(), 2);
    EXPECT_EQ(world.source.cellsAsked, askedBefore + 1);
    EXPECT_EQ(world.source.cells.size(), 10U);
}

TEST(RowDeletion, doesNotSlideWithoutAnimation)
{
    TableWorld world({ 3 });
    world.show();
    QSignalSpy slid(&world.table, &kit::TableView::slidingChanged);
    world.source.rows = { 2 };
    world.table.deleteRow({ 0, 0 }, kit::TableView::Animation::None);
    EXPECT_EQ(slid.count(), 0);
    EXPECT_EQ(world.table.contentHeight(), 120);
}

TEST(RowDeletion, tellsOnceThatTheRowsHaveSlid)
{
    TableWorld world({ 20 });
    world.show();
    const QSignalSpy slid(&world.table, &kit::TableView::slidingChanged);
    world.source.rows = { 19 };
    world.table.deleteRow({ 0, 2 }, kit::TableView::Animation::Animated);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !world.table.isSliding(); }));
    EXPECT_EQ(slid.count(), 2);
}

TEST(RowDeletion, tellsTheCellsThatStayOfTheirPlaceAmongFewerRows)
{
    TableWorld world({ 5 });
    world.show();
    EXPECT_EQ(world.table.cellForRow({ 0, 4 })->rowCount(), 5);
    world.source.rows = { 4 };
    world.table.deleteRow({ 0, 2 }, kit::TableView::Animation::None);
    EXPECT_EQ(world.table.cellForRow({ 0, 3 })->rowCount(), 4);
    EXPECT_EQ(world.table.cellForRow({ 0, 3 })->row(), 3);
}

TEST(RowDeletion, leavesOtherSectionsTheirCells)
{
    TableWorld world({ 2, 2 });
    world.show();
    const kit::TableViewCell* other = world.table.cellForRow({ 1, 1 });
    world.source.rows = { 1, 2 };
    world.table.deleteRow({ 0, 0 }, kit::TableView::Animation::Animated);
    EXPECT_EQ(world.table.cellForRow({ 1, 1 }), other);
    EXPECT_EQ(other->frame().top(), 120);
}

TEST(RowDeletion, ofTheLastRowLeavesAnEmptyTable)
{
    TableWorld world({ 1 });
    world.show();
    world.source.rows = { 0 };
    world.table.deleteRow({ 0, 0 }, kit::TableView::Animation::Animated);
    EXPECT_EQ(world.table.contentHeight(), 0);
    EXPECT_TRUE(world.table.indexPathsForVisibleRows().empty());
    world.table.deleteRow({ 0, 0 }, kit::TableView::Animation::Animated);
}

TEST(RowDeletion, atTheEndPullsTheOffsetBack)
{
    TableWorld world({ 20 });
    world.show();
    world.table.setContentOffset(600);
    world.source.rows = { 19 };
    world.table.deleteRow({ 0, 19 }, kit::TableView::Animation::None);
    EXPECT_EQ(world.table.contentOffset(), 540);
    EXPECT_EQ(world.textAt({ 0, 9 }), QStringLiteral("0.9"));
}

TEST(RowDeletion, outlivesADelegateThatLostMoreRowsThanItSaid)
{
    TableWorld world({ 9, 2 });
    world.show();
    world.source.rows = { 3 };
    world.table.deleteRow({ 0, 0 }, kit::TableView::Animation::None);
    EXPECT_EQ(world.table.indexPathsForVisibleRows(), (std::vector<kit::IndexPath>{ { 0, 0 }, { 0, 1 }, { 0, 2 } }));
}
