#include "tests/ui/kit/table/TableWorld.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

// Where the focus is after that row was deleted, in a table of sections of so many rows.
std::pair<int, int> focusAfterDeletion(
    std::vector<int> rows, const kit::IndexPath& focused, const kit::IndexPath& deleted)
{
    TableWorld world(rows);
    world.show();
    world.table.rowFocus()->moveTo(focused.section, focused.row);
    --rows[static_cast<std::size_t>(deleted.section)];
    world.source.rows = rows;
    world.table.deleteRow(deleted, kit::TableView::Animation::None);
    return { world.table.rowFocus()->section(), world.table.rowFocus()->row() };
}

// Rows that go by another name than the one they show.
class NamedRows : public RowSource
{
public:
    QString nameForRowAtIndexPath(const kit::IndexPath& indexPath) const override
    {
        return QStringLiteral("Name %1").arg(indexPath.row);
    }
};

} // namespace

TEST(RowFocus, beginsAtTheFirstVisibleRowOrTheLast)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(600);
    world.table.rowFocus()->moveBy(1);
    EXPECT_EQ(world.table.rowFocus()->row(), 10);
    world.table.rowFocus()->clear();
    EXPECT_EQ(world.table.rowFocus()->row(), -1);
    world.table.rowFocus()->moveBy(-1);
    EXPECT_EQ(world.table.rowFocus()->row(), 19);
}

TEST(RowFocus, comesIntoTheTableAtTheFirstVisibleRowOrWhereItWas)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(600);
    world.table.rowFocus()->moveBy(0);
    EXPECT_EQ(world.table.rowFocus()->row(), 10);
    world.table.rowFocus()->moveTo(0, 13);
    world.table.rowFocus()->moveBy(0);
    EXPECT_EQ(world.table.rowFocus()->row(), 13);
}

TEST(RowFocus, movesAcrossSections)
{
    TableWorld world({ 1, 0, 2 });
    world.show();
    world.table.rowFocus()->moveBy(1);
    world.table.rowFocus()->moveBy(1);
    EXPECT_EQ(world.table.rowFocus()->section(), 2);
    EXPECT_EQ(world.table.rowFocus()->row(), 0);
    world.table.rowFocus()->moveBy(-1);
    EXPECT_EQ(world.table.rowFocus()->section(), 0);
}

TEST(RowFocus, scrollsTheRowIntoViewBelowThePinnedHeader)
{
    TableWorld world({ 100 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    world.table.rowFocus()->moveTo(0, 50);
    EXPECT_EQ(world.table.contentOffset(), 25 + 51 * 60 - 600);
    world.table.rowFocus()->moveTo(0, 20);
    EXPECT_EQ(world.table.contentOffset(), 20 * 60);
    world.table.rowFocus()->moveTo(0, 21);
    EXPECT_EQ(world.table.contentOffset(), 20 * 60);
    // Half of it shows, but behind the header.
    world.table.setContentOffset(20 * 60 + 12);
    world.table.rowFocus()->moveTo(0, 20);
    EXPECT_EQ(world.table.contentOffset(), 20 * 60);
}

TEST(RowFocus, showsTheTableHeaderViewWithTheFirstRow)
{
    TableWorld world({ 100 });
    world.table.setTableHeaderView(new kit::View({ 0, 0, 320, 185 }));
    world.show();
    world.table.rowFocus()->moveTo(0, 50);
    world.table.rowFocus()->moveBy(-0x3fffffff);
    EXPECT_EQ(world.table.rowFocus()->row(), 0);
    EXPECT_EQ(world.table.contentOffset(), 0);
    world.table.rowFocus()->moveBy(0x3fffffff);
    EXPECT_EQ(world.table.rowFocus()->row(), 99);
    EXPECT_EQ(world.table.contentOffset(), world.table.contentHeight() - 600);
}

TEST(RowFocus, showsTheHeaderOfASectionWithoutRowsWithTheFirstRow)
{
    TableWorld world({ 0, 100 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    world.table.rowFocus()->moveTo(1, 50);
    world.table.rowFocus()->moveBy(-0x3fffffff);
    EXPECT_EQ(world.table.rowFocus()->section(), 1);
    EXPECT_EQ(world.table.contentOffset(), 0);
}

TEST(RowFocus, movesByAPageOfWhatIsSeenWhateverTheRowsHeights)
{
    TableWorld world({ 100, 100 });
    world.source.withHeaders = true;
    world.source.headerHeight = 60;
    world.source.rowHeight = 90;
    world.show();
    world.table.rowFocus()->moveTo(0, 10);
    world.table.rowFocus()->moveByPage(1);
    EXPECT_EQ(world.table.rowFocus()->row(), 15) << "six rows of 90 points fill the 540 below the header";
    world.table.rowFocus()->moveByPage(-1);
    EXPECT_EQ(world.table.rowFocus()->row(), 10);
    world.table.rowFocus()->moveTo(0, 98);
    world.table.rowFocus()->moveByPage(1);
    EXPECT_EQ(world.table.rowFocus()->section(), 1);
    EXPECT_EQ(world.table.rowFocus()->row(), 2) << "the second header takes room too";
}

TEST(RowFocus, movesByARowAtLeastWhereOneFillsThePage)
{
    TableWorld world({ 3 });
    world.source.rowHeight = 600;
    world.show();
    world.table.rowFocus()->moveByPage(1);
    EXPECT_EQ(world.table.rowFocus()->row(), 0) << "the first key goes to what is seen";
    world.table.rowFocus()->moveByPage(1);
    EXPECT_EQ(world.table.rowFocus()->row(), 1);
    world.table.rowFocus()->moveByPage(1);
    world.table.rowFocus()->moveByPage(1);
    EXPECT_EQ(world.table.rowFocus()->row(), 2);
}

TEST(RowFocus, movesByAPageToEitherEndAndStaysThere)
{
    TableWorld world({ 15 });
    world.show();
    world.table.rowFocus()->moveTo(0, 12);
    for (int time = 0; time < 2; ++time) {
        world.table.rowFocus()->moveByPage(1);
        EXPECT_EQ(world.table.rowFocus()->row(), 14);
    }
    world.table.rowFocus()->moveTo(0, 2);
    for (int time = 0; time < 2; ++time) {
        world.table.rowFocus()->moveByPage(-1);
        EXPECT_EQ(world.table.rowFocus()->row(), 0);
    }
}

TEST(RowFocus, doesWithTheRowWhatATapDoesAndDeletesItAtTheSecondCommand)
{
    TableWorld world({ 5 });
    world.source.editable = true;
    world.show();
    world.table.rowFocus()->activate();
    world.table.rowFocus()->deleteRow();
    EXPECT_TRUE(world.source.selected.empty());
    EXPECT_TRUE(world.source.deleted.empty());
    world.table.rowFocus()->moveTo(0, 3);
    world.table.rowFocus()->activate();
    EXPECT_EQ(world.source.selected, (std::vector<kit::IndexPath>{ { 0, 3 } }));
    world.table.rowFocus()->deleteRow();
    EXPECT_TRUE(world.source.deleted.empty());
    EXPECT_EQ(world.table.openRow()->row(), 3);
    world.table.rowFocus()->deleteRow();
    EXPECT_EQ(world.source.deleted, (std::vector<kit::IndexPath>{ { 0, 3 } }));
}

TEST(RowFocus, doesNothingWithoutARow)
{
    TableWorld world({ 5 });
    world.source.editable = true;
    world.show();
    world.table.openRow()->open(0, 1);
    world.table.rowFocus()->activate();
    EXPECT_TRUE(world.source.selected.empty());
    EXPECT_EQ(world.table.openRow()->row(), 1);
}

TEST(RowFocus, staysOverAReloadOnlyWhileItsRowIsThere)
{
    TableWorld world({ 5 });
    world.show();
    world.table.rowFocus()->moveTo(0, 3);
    world.table.reloadData();
    EXPECT_EQ(world.table.rowFocus()->row(), 3);
    world.source.rows = { 2 };
    world.table.reloadData();
    EXPECT_EQ(world.table.rowFocus()->row(), -1);
}

TEST(RowFocus, stepsToTheRowBeforeWhenTheLastIsDeleted)
{
    EXPECT_EQ(focusAfterDeletion({ 3, 2 }, { 0, 2 }, { 0, 2 }), std::pair(0, 1));
}

TEST(RowFocus, goesToTheRowThatTakesThePlaceOfADeletedOne)
{
    EXPECT_EQ(focusAfterDeletion({ 5 }, { 0, 2 }, { 0, 2 }), std::pair(0, 2));
}

TEST(RowFocus, goesToTheOnlyRowThatIsLeftAndAwayWithThatToo)
{
    EXPECT_EQ(focusAfterDeletion({ 2 }, { 0, 1 }, { 0, 1 }), std::pair(0, 0));
    EXPECT_EQ(focusAfterDeletion({ 1 }, { 0, 0 }, { 0, 0 }), std::pair(-1, -1));
}

TEST(RowFocus, staysOnItsRowWhenOneOfAnotherSectionIsDeleted)
{
    EXPECT_EQ(focusAfterDeletion({ 5, 5 }, { 1, 3 }, { 0, 1 }), std::pair(1, 3));
}

TEST(RowFocus, staysOnItsRowWhenOneBelowIsDeleted)
{
    EXPECT_EQ(focusAfterDeletion({ 5 }, { 0, 1 }, { 0, 3 }), std::pair(0, 1));
}

TEST(RowFocus, staysOnItsRowWhenOneAboveIsDeleted)
{
    EXPECT_EQ(focusAfterDeletion({ 5 }, { 0, 3 }, { 0, 1 }), std::pair(0, 2));
}

TEST(RowFocus, goesToEitherEndFromAnywhere)
{
    TableWorld world({ 0, 50, 50 });
    world.show();
    QSignalSpy scrolled(world.table.rowFocus(), &kit::RowFocus::scrolled);
    world.table.rowFocus()->moveToLast();
    EXPECT_EQ(world.table.rowFocus()->section(), 2) << "also when no row had the focus";
    EXPECT_EQ(world.table.rowFocus()->row(), 49);
    EXPECT_EQ(world.table.contentOffset(), world.table.contentHeight() - 600);
    EXPECT_EQ(scrolled.count(), 1);
    world.table.rowFocus()->clear();
    world.table.rowFocus()->moveToFirst();
    EXPECT_EQ(world.table.rowFocus()->section(), 1);
    EXPECT_EQ(world.table.rowFocus()->row(), 0);
    EXPECT_EQ(world.table.contentOffset(), 0);
    EXPECT_EQ(scrolled.count(), 2);
    world.table.rowFocus()->moveBy(1);
    EXPECT_EQ(scrolled.count(), 2) << "the next row was seen already";
}

TEST(RowFocus, closesTheOpenRowThatItScrollsAwayFrom)
{
    TableWorld world({ 100 });
    world.source.editable = true;
    world.show();
    world.table.openRow()->open(0, 1);
    world.table.rowFocus()->moveTo(0, 2);
    EXPECT_EQ(world.table.openRow()->row(), 1);
    world.table.rowFocus()->moveToLast();
    EXPECT_EQ(world.table.openRow()->row(), -1);
}

TEST(RowFocus, goesNowhereInAnEmptyTable)
{
    TableWorld world({});
    world.show();
    world.table.rowFocus()->moveBy(1);
    world.table.rowFocus()->moveByPage(1);
    world.table.rowFocus()->moveToFirst();
    world.table.rowFocus()->moveToLast();
    world.table.rowFocus()->moveTo(0, 0);
    EXPECT_EQ(world.table.rowFocus()->row(), -1);
}

TEST(RowFocus, findsARowByTheLettersItsNameBeginsWith)
{
    TableWorld world({ 5, 200 });
    world.show();
    world.table.rowFocus()->type(QStringLiteral("0"));
    world.table.rowFocus()->type(QStringLiteral(".3"));
    EXPECT_EQ(world.table.rowFocus()->section(), 0);
    EXPECT_EQ(world.table.rowFocus()->row(), 3);
    world.table.rowFocus()->type(QStringLiteral("9"));
    EXPECT_EQ(world.table.rowFocus()->row(), 3) << "no name begins like that";
}

TEST(RowFocus, findsTheVeryFirstRowByItsName)
{
    TableWorld world({ 5, 5 });
    world.show();
    world.table.rowFocus()->moveTo(1, 3);
    world.table.rowFocus()->type(QStringLiteral("0"));
    EXPECT_EQ(world.table.rowFocus()->section(), 0);
    EXPECT_EQ(world.table.rowFocus()->row(), 0);
}

TEST(RowFocus, beginsANewNameOnceAKeyMovedIt)
{
    TableWorld world({ 5, 5 });
    world.show();
    EXPECT_FALSE(world.table.rowFocus()->isTyping());
    world.table.rowFocus()->type(QStringLiteral("0.3"));
    EXPECT_TRUE(world.table.rowFocus()->isTyping());
    world.table.rowFocus()->moveBy(1);
    EXPECT_FALSE(world.table.rowFocus()->isTyping());
    world.table.rowFocus()->type(QStringLiteral("1.2"));
    EXPECT_EQ(world.table.rowFocus()->section(), 1);
    EXPECT_EQ(world.table.rowFocus()->row(), 2);
}

TEST(RowFocus, beginsANewNameAfterAWhile)
{
    TableWorld world({ 5, 5 });
    world.show();
    world.table.rowFocus()->type(QStringLiteral("0.3"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !world.table.rowFocus()->isTyping(); }));
    world.table.rowFocus()->type(QStringLiteral("1.2"));
    EXPECT_EQ(world.table.rowFocus()->section(), 1);
    EXPECT_EQ(world.table.rowFocus()->row(), 2);
}

TEST(RowFocus, findsARowOffTheScreenByTheNameItsDelegateTells)
{
    TableWorld world({ 5, 200 });
    world.source.tellsNames = true;
    world.show();
    const int askedBefore = world.source.cellsAsked;
    world.table.rowFocus()->type(QStringLiteral("1.15"));
    EXPECT_EQ(world.table.rowFocus()->section(), 1);
    EXPECT_EQ(world.table.rowFocus()->row(), 15);
    EXPECT_GT(world.table.contentOffset(), 0);
    EXPECT_LE(world.source.cellsAsked, askedBefore + 11) << "for those that came into view";
}

TEST(RowFocus, findsARowByTheNameItsDelegateTellsRatherThanByWhatItShows)
{
    kit::TableView table;
    NamedRows rows;
    rows.rows = { 5 };
    rows.setTable(&table);
    table.setDelegate(&rows);
    table.setFrame({ 0, 0, 320, 600 });
    table.rowFocus()->type(QStringLiteral("Name 2"));
    EXPECT_EQ(table.rowFocus()->row(), 2);
    table.setDelegate(nullptr);
}

TEST(RowFocus, revealsARowTogetherWithItsNeighbours)
{
    TableWorld world({ 100 });
    world.show();
    world.table.rowFocus()->reveal(0, 9);
    EXPECT_EQ(world.table.contentOffset(), 60) << "the tenth row is the last of ten that are seen";
    world.table.rowFocus()->reveal(0, 1);
    EXPECT_EQ(world.table.contentOffset(), 0);
    EXPECT_EQ(world.table.rowFocus()->row(), -1);
}

TEST(RowFocus, revealsNoMoreThanTheNeighbours)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(3'000);
    world.table.rowFocus()->reveal(0, 20);
    EXPECT_EQ(world.table.contentOffset(), 19 * 60);
    world.table.setContentOffset(0);
    world.table.rowFocus()->reveal(0, 20);
    EXPECT_EQ(world.table.contentOffset(), 22 * 60 - 600);
}

TEST(RowFocus, revealsTheRowItselfWhereItsNeighboursHaveNoRoom)
{
    TableWorld world({ 100 });
    world.table.setFrame({ 0, 0, 320, 100 });
    world.table.rowFocus()->reveal(0, 5);
    EXPECT_EQ(world.table.contentOffset(), 5 * 60);
}

TEST(RowFocus, closesTheOpenRowWhenItRevealsAnother)
{
    TableWorld world({ 100 });
    world.source.editable = true;
    world.show();
    const QSignalSpy scrolled(world.table.rowFocus(), &kit::RowFocus::scrolled);
    world.table.openRow()->open(0, 1);
    world.table.rowFocus()->reveal(0, 2);
    EXPECT_EQ(world.table.openRow()->row(), 1);
    EXPECT_EQ(scrolled.count(), 0);
    world.table.rowFocus()->reveal(0, 50);
    EXPECT_EQ(world.table.openRow()->row(), -1);
    EXPECT_EQ(scrolled.count(), 1);
}

TEST(RowFocus, tellsOnceThatItIsOnAnotherRow)
{
    TableWorld world({ 5 });
    world.show();
    const QSignalSpy changed(world.table.rowFocus(), &kit::RowFocus::changed);
    world.table.rowFocus()->moveTo(0, 3);
    world.table.rowFocus()->moveTo(0, 3);
    EXPECT_EQ(changed.count(), 1);
    world.table.rowFocus()->clear();
    EXPECT_EQ(changed.count(), 2);
}

TEST(RowFocus, showsAllOfARowThatIsHigherThanTheTableBeforeItGoesOn)
{
    TableWorld world({ 3 });
    world.source.firstRowHeight = 60;
    world.source.rowHeight = 2000;
    world.show();
    const double height = world.table.height();
    kit::RowFocus& focus = *world.table.rowFocus();
    for (const auto& [key, isPage] : { std::pair{ 1, false }, std::pair{ 1, true } }) {
        SCOPED_TRACE(isPage ? "by pages" : "by rows");
        const auto go = [&, isByPage = isPage](
                            int direction) { isByPage ? focus.moveByPage(direction) : focus.moveBy(direction); };
        focus.moveTo(0, 0);
        go(1);
        EXPECT_EQ(focus.row(), 1);
        EXPECT_EQ(world.table.contentOffset(), 60) << "it begins with its beginning";
        double seen = 60 + height;
        while (focus.row() == 1 && world.table.contentOffset() < 2060 - height) {
            go(1);
            ASSERT_GT(world.table.contentOffset() + height, seen) << "it goes on";
            ASSERT_LT(world.table.contentOffset(), seen) << "and leaves nothing out";
            seen = world.table.contentOffset() + height;
        }
        EXPECT_EQ(focus.row(), 1);
        EXPECT_EQ(world.table.contentOffset(), 2060 - height) << "up to its end";
        go(1);
        EXPECT_EQ(focus.row(), 2);
        EXPECT_EQ(world.table.contentOffset(), 2060);
        go(-1);
        EXPECT_EQ(focus.row(), 1);
        EXPECT_EQ(world.table.contentOffset(), 2060 - height) << "from below it begins with its end";
        go(-1);
        EXPECT_EQ(focus.row(), 1);
        EXPECT_LT(world.table.contentOffset(), 2060 - height);
    }
}

TEST(RowFocus, standsStillAtTheEndsOfRowsHigherThanTheTable)
{
    TableWorld world({ 2 });
    world.source.rowHeight = 2000;
    world.show();
    const double height = world.table.height();
    kit::RowFocus& focus = *world.table.rowFocus();
    focus.moveToLast();
    EXPECT_EQ(world.table.contentOffset(), 4000 - height);
    focus.moveBy(1);
    EXPECT_EQ(world.table.contentOffset(), 4000 - height);
    focus.moveByPage(1);
    EXPECT_EQ(world.table.contentOffset(), 4000 - height);
    focus.moveToFirst();
    EXPECT_EQ(world.table.contentOffset(), 0);
    focus.moveBy(-1);
    EXPECT_EQ(world.table.contentOffset(), 0);
    focus.moveByPage(1);
    focus.moveToFirst();
    EXPECT_EQ(world.table.contentOffset(), 0) << "from the middle of the first";
}

TEST(RowFocus, goesOnFromARowHigherThanTheTableThatWasScrolledAway)
{
    TableWorld world({ 40 });
    world.source.firstRowHeight = 2000;
    world.source.rowHeight = 60;
    world.show();
    kit::RowFocus& focus = *world.table.rowFocus();
    focus.moveToFirst();
    world.table.setContentOffset(3000);
    focus.moveBy(1);
    EXPECT_EQ(focus.row(), 1);
}

TEST(RowFocus, showsTheFirstRowWithAsMuchOfWhatStandsAboveItAsThereIsRoomFor)
{
    TableWorld world({ 40 });
    world.show();
    world.table.setTableHeaderView(new kit::View({ 0, 0, 320, world.table.height() - 20 }));
    for (const double offset : { 0.0, 300.0, 1000.0 }) {
        world.table.setContentOffset(offset);
        world.table.rowFocus()->moveToFirst();
        EXPECT_EQ(world.table.contentOffset(), 40) << offset;
    }
}
