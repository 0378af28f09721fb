#include "tests/ui/kit/table/TableWorld.h"

#include <QSignalSpy>

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

TEST(OpenRow, opensOnlyRowsThatCanBeDeleted)
{
    TableWorld world({ 3 });
    world.show();
    world.table.openRowForDeletion(0, 1);
    EXPECT_EQ(world.table.openRow(), -1);
    world.source.editable = true;
    world.table.openRowForDeletion(0, 1);
    EXPECT_EQ(world.table.openSection(), 0);
    EXPECT_EQ(world.table.openRow(), 1);
    EXPECT_FALSE(world.table.canDeleteRow(0, 3));
}

TEST(OpenRow, closesAtATapWithoutSelecting)
{
    TableWorld world({ 3 });
    world.source.editable = true;
    world.show();
    world.table.openRowForDeletion(0, 1);
    world.table.pressRow(0, 2, true);
    EXPECT_FALSE(world.table.cellForRow({ 0, 2 })->isHighlighted());
    world.table.tapRow(0, 2);
    EXPECT_EQ(world.table.openRow(), -1);
    EXPECT_TRUE(world.source.selected.empty());
    world.table.tapRow(0, 2);
    EXPECT_EQ(world.source.selected.size(), 1U);
}

TEST(OpenRow, givesWayToTheNext)
{
    TableWorld world({ 3 });
    world.source.editable = true;
    world.show();
    QSignalSpy changed(&world.table, &kit::TableView::openRowChanged);
    world.table.openRowForDeletion(0, 1);
    world.table.openRowForDeletion(0, 2);
    EXPECT_EQ(world.table.openRow(), 2);
    EXPECT_TRUE(world.table.closeOpenRow());
    EXPECT_FALSE(world.table.closeOpenRow());
    EXPECT_EQ(world.table.openRow(), -1);
    EXPECT_EQ(changed.count(), 3);
}

TEST(OpenRow, closesWhenItsDeletionIsAskedForAndAtAReload)
{
    TableWorld world({ 3 });
    world.source.editable = true;
    world.show();
    world.table.openRowForDeletion(0, 1);
    world.table.deleteTapped(0, 1);
    EXPECT_EQ(world.source.deleted, (std::vector<kit::IndexPath>{ { 0, 1 } }));
    EXPECT_EQ(world.table.openRow(), -1);
    world.table.openRowForDeletion(0, 1);
    world.table.reloadData();
    EXPECT_EQ(world.table.openRow(), -1);
}

TEST(OpenRow, asksForNoDeletionOfARowThatCannotBeDeleted)
{
    TableWorld world({ 3 });
    world.show();
    world.table.deleteTapped(0, 1);
    EXPECT_TRUE(world.source.deleted.empty());
}

TEST(RowFocus, beginsAtTheFirstVisibleRowOrTheLast)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(600);
    world.table.moveFocus(1);
    EXPECT_EQ(world.table.focusedRow(), 10);
    world.table.clearFocus();
    EXPECT_EQ(world.table.focusedRow(), -1);
    world.table.moveFocus(-1);
    EXPECT_EQ(world.table.focusedRow(), 19);
}

TEST(RowFocus, movesAcrossSections)
{
    TableWorld world({ 1, 0, 2 });
    world.show();
    world.table.moveFocus(1);
    world.table.moveFocus(1);
    EXPECT_EQ(world.table.focusedSection(), 2);
    EXPECT_EQ(world.table.focusedRow(), 0);
    world.table.moveFocus(-1);
    EXPECT_EQ(world.table.focusedSection(), 0);
}

TEST(RowFocus, scrollsTheRowIntoViewBelowThePinnedHeader)
{
    TableWorld world({ 100 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    world.table.focusRow(0, 50);
    EXPECT_EQ(world.table.contentOffset(), 25 + 51 * 60 - 600);
    world.table.focusRow(0, 20);
    EXPECT_EQ(world.table.contentOffset(), 20 * 60);
    world.table.focusRow(0, 21);
    EXPECT_EQ(world.table.contentOffset(), 20 * 60);
}

TEST(RowFocus, showsTheTableHeaderViewWithTheFirstRow)
{
    TableWorld world({ 100 });
    world.table.setTableHeaderView(new kit::View({ 0, 0, 320, 185 }));
    world.show();
    world.table.focusRow(0, 50);
    world.table.moveFocus(-0x3fffffff);
    EXPECT_EQ(world.table.focusedRow(), 0);
    EXPECT_EQ(world.table.contentOffset(), 0);
    world.table.moveFocus(0x3fffffff);
    EXPECT_EQ(world.table.focusedRow(), 99);
    EXPECT_EQ(world.table.contentOffset(), world.table.contentHeight() - 600);
}

TEST(RowFocus, showsTheHeaderOfASectionWithoutRowsWithTheFirstRow)
{
    TableWorld world({ 0, 100 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    world.table.focusRow(1, 50);
    world.table.moveFocus(-0x3fffffff);
    EXPECT_EQ(world.table.focusedSection(), 1);
    EXPECT_EQ(world.table.contentOffset(), 0);
}

TEST(RowFocus, movesByAPageOfWhatIsSeenWhateverTheRowsHeights)
{
    TableWorld world({ 100, 100 });
    world.source.withHeaders = true;
    world.source.headerHeight = 60;
    world.source.rowHeight = 90;
    world.show();
    world.table.focusRow(0, 10);
    world.table.moveFocusByPage(1);
    EXPECT_EQ(world.table.focusedRow(), 15) << "six rows of 90 points fill the 540 below the header";
    world.table.moveFocusByPage(-1);
    EXPECT_EQ(world.table.focusedRow(), 10);
    world.table.focusRow(0, 98);
    world.table.moveFocusByPage(1);
    EXPECT_EQ(world.table.focusedSection(), 1);
    EXPECT_EQ(world.table.focusedRow(), 2) << "the second header takes room too";
}

TEST(RowFocus, movesByARowAtLeastWhereOneFillsThePage)
{
    TableWorld world({ 3 });
    world.source.rowHeight = 2'000;
    world.show();
    world.table.moveFocusByPage(1);
    EXPECT_EQ(world.table.focusedRow(), 0) << "the first key goes to what is seen";
    world.table.moveFocusByPage(1);
    EXPECT_EQ(world.table.focusedRow(), 1);
    world.table.moveFocusByPage(1);
    world.table.moveFocusByPage(1);
    EXPECT_EQ(world.table.focusedRow(), 2);
}

TEST(RowFocus, doesWithTheRowWhatATapOrADeletionDoes)
{
    TableWorld world({ 5 });
    world.source.editable = true;
    world.show();
    world.table.activateFocusedRow();
    world.table.deleteFocusedRow();
    EXPECT_TRUE(world.source.selected.empty());
    EXPECT_TRUE(world.source.deleted.empty());
    world.table.focusRow(0, 3);
    world.table.activateFocusedRow();
    world.table.deleteFocusedRow();
    EXPECT_EQ(world.source.selected, (std::vector<kit::IndexPath>{ { 0, 3 } }));
    EXPECT_EQ(world.source.deleted, (std::vector<kit::IndexPath>{ { 0, 3 } }));
}

TEST(RowFocus, staysOverAReloadOnlyWhileItsRowIsThere)
{
    TableWorld world({ 5 });
    world.show();
    world.table.focusRow(0, 3);
    world.table.reloadData();
    EXPECT_EQ(world.table.focusedRow(), 3);
    world.source.rows = { 2 };
    world.table.reloadData();
    EXPECT_EQ(world.table.focusedRow(), -1);
}

TEST(RowFocus, stepsToTheRowBeforeWhenTheLastIsDeleted)
{
    TableWorld world({ 3, 2 });
    world.show();
    world.table.focusRow(0, 2);
    world.source.rows = { 2, 2 };
    world.table.deleteRow({ 0, 2 }, kit::TableView::Animation::None);
    EXPECT_EQ(world.table.focusedSection(), 0);
    EXPECT_EQ(world.table.focusedRow(), 1);
}

TEST(RowFocus, staysOnItsRowWhenOneAboveIsDeleted)
{
    TableWorld world({ 5 });
    world.show();
    world.table.focusRow(0, 3);
    world.source.rows = { 4 };
    world.table.deleteRow({ 0, 1 }, kit::TableView::Animation::None);
    EXPECT_EQ(world.table.focusedRow(), 2);
}

TEST(RowFocus, goesToEitherEndFromAnywhere)
{
    TableWorld world({ 0, 50, 50 });
    world.show();
    QSignalSpy scrolled(&world.table, &kit::TableView::scrolledByKeyboard);
    world.table.focusLastRow();
    EXPECT_EQ(world.table.focusedSection(), 2) << "also when no row had the focus";
    EXPECT_EQ(world.table.focusedRow(), 49);
    EXPECT_EQ(world.table.contentOffset(), world.table.contentHeight() - 600);
    EXPECT_EQ(scrolled.count(), 1);
    world.table.clearFocus();
    world.table.focusFirstRow();
    EXPECT_EQ(world.table.focusedSection(), 1);
    EXPECT_EQ(world.table.focusedRow(), 0);
    EXPECT_EQ(world.table.contentOffset(), 0);
    EXPECT_EQ(scrolled.count(), 2);
    world.table.moveFocus(1);
    EXPECT_EQ(scrolled.count(), 2) << "the next row was seen already";
}

TEST(RowFocus, closesTheOpenRowThatItScrollsAwayFrom)
{
    TableWorld world({ 100 });
    world.source.editable = true;
    world.show();
    world.table.openRowForDeletion(0, 1);
    world.table.focusRow(0, 2);
    EXPECT_EQ(world.table.openRow(), 1);
    world.table.focusLastRow();
    EXPECT_EQ(world.table.openRow(), -1);
}

TEST(RowFocus, goesNowhereInAnEmptyTable)
{
    TableWorld world({});
    world.show();
    world.table.moveFocus(1);
    world.table.moveFocusByPage(1);
    world.table.focusFirstRow();
    world.table.focusLastRow();
    world.table.focusRow(0, 0);
    EXPECT_EQ(world.table.focusedRow(), -1);
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
