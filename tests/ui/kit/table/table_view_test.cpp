#include "tests/ui/kit/table/TableWorld.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

// Says that its rows differ in height but leaves the heights to the table.
class DifferentRows : public kit::TableViewDelegate
{
public:
    int numberOfRowsInSection(int /*section*/) const override { return 3; }
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& /*indexPath*/) override { return nullptr; }
    bool rowsDifferInHeight() const override { return true; }
};

class LessThanNoSections : public kit::TableViewDelegate
{
public:
    int numberOfSections() const override { return -3; }
    int numberOfRowsInSection(int /*section*/) const override { return 3; }
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& /*indexPath*/) override { return nullptr; }
};

class EqualRows : public RowSource
{
public:
    bool rowsDifferInHeight() const override { return false; }
    double heightForRowAtIndexPath(const kit::IndexPath& /*indexPath*/) const override
    {
        ++heightsAsked;
        return 0;
    }

    mutable int heightsAsked = 0;
};

void deleteWhatIsToGo()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

TEST(TableView, asksForNothingBeforeItsFirstLayout)
{
    TableWorld world({ 100 });
    EXPECT_EQ(world.source.cellsAsked, 0);
    world.show();
    EXPECT_EQ(world.source.cellsAsked, 10);
}

TEST(TableView, isEmptyOnceItsDelegateIsGone)
{
    TableWorld world({ 100, 5 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.source.editable = true;
    world.show();
    world.table.setContentOffset(1'000);
    world.table.setDelegate(nullptr);
    EXPECT_TRUE(world.table.indexPathsForVisibleRows().empty());
    EXPECT_EQ(world.table.contentHeight(), 0);
    world.table.setFrame({ 0, 0, 400, 300 });
    world.table.reloadData();
    world.table.tapRow(0, 0);
    world.table.openRow()->open(0, 0);
    world.table.openRow()->deleteRow(0, 0);
    world.table.deleteRow({ 0, 0 }, kit::TableView::Animation::None);
    world.table.setDelegate(&world.source);
    world.table.reloadData();
    EXPECT_EQ(world.textAt({ 0, 0 }), QStringLiteral("0.0"));
}

TEST(TableView, showsAnotherDelegatesRowsWithTheNextReload)
{
    TableWorld world({ 5 });
    world.show();
    RowSource other;
    other.rows = { 9 };
    other.setTable(&world.table);
    world.table.setDelegate(&other);
    EXPECT_EQ(world.table.contentHeight(), 5 * 60);
    world.table.reloadData();
    EXPECT_EQ(world.table.contentHeight(), 9 * 60);
    world.table.setDelegate(nullptr);
}

TEST(TableView, showsTheRowsOfADelegateThatCameAfterNone)
{
    TableWorld world({ 5 });
    world.table.setDelegate(nullptr);
    world.table.setDelegate(&world.source);
    world.show();
    EXPECT_EQ(world.table.indexPathsForVisibleRows().size(), 5U);
}

TEST(TableView, takesRowHeightsFromTheDelegateBeforeItsOwn)
{
    TableWorld world({ 100 });
    world.source.firstRowHeight = 68;
    world.show();
    EXPECT_EQ(world.table.rectForRow({ 0, 0 }), QRectF(0, 0, 320, 68));
    EXPECT_EQ(world.table.rectForRow({ 0, 1 }), QRectF(0, 68, 320, 60));
    EXPECT_EQ(world.table.rectForRow({ 0, 100 }), QRectF());
    EXPECT_EQ(world.table.rectForRow({ 4, 0 }), QRectF());
    EXPECT_EQ(world.table.rectForRow({ -1, -1 }), QRectF());
}

TEST(TableView, takesItsOwnHeightForRowsThatDifferButHaveNoneOfTheirOwn)
{
    kit::TableView table;
    DifferentRows rows;
    table.setDelegate(&rows);
    table.setRowHeight(60);
    table.setFrame({ 0, 0, 320, 600 });
    EXPECT_EQ(table.rectForRow({ 0, 1 }), QRectF(0, 28 + 60, 320, 60));
    table.setDelegate(nullptr);
}

TEST(TableView, treatsANegativeCountOfRowsAsNone)
{
    TableWorld world({ -3 });
    world.show();
    EXPECT_EQ(world.table.contentHeight(), 0);
    EXPECT_TRUE(world.table.indexPathsForVisibleRows().empty());
}

TEST(TableView, treatsANegativeCountOfSectionsAsNone)
{
    kit::TableView table;
    LessThanNoSections sections;
    table.setDelegate(&sections);
    table.setFrame({ 0, 0, 320, 600 });
    EXPECT_EQ(table.contentHeight(), 0);
    EXPECT_TRUE(table.indexPathsForVisibleRows().empty());
    table.setDelegate(nullptr);
}

TEST(TableView, pullsTheOffsetBackWhenTheContentShrinks)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(5'000);
    QSignalSpy moved(&world.table, &kit::TableView::contentOffsetChanged);
    world.source.rows = { 20 };
    world.table.reloadData();
    EXPECT_EQ(world.table.contentOffset(), 600);
    EXPECT_EQ(moved.count(), 1);
    EXPECT_EQ(world.textAt({ 0, 19 }), QStringLiteral("0.19"));
    world.source.rows = { 2 };
    world.table.reloadData();
    EXPECT_EQ(world.table.contentOffset(), 0);
}

TEST(TableView, keepsTheOffsetWhenAReloadLeavesRoomForIt)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(1'234);
    world.table.reloadData();
    EXPECT_EQ(world.table.contentOffset(), 1'234);
}

TEST(TableView, staysPulledDownOverAReload)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(-60);
    world.table.reloadData();
    EXPECT_EQ(world.table.contentOffset(), -60);
    EXPECT_EQ(world.table.cellForRow({ 0, 0 })->frame().top(), 0);
    EXPECT_EQ(world.table.indexPathsForVisibleRows().size(), 9U);
}

TEST(TableView, showsNothingFarBelowItsEndAndComesBack)
{
    TableWorld world({ 10 });
    world.show();
    world.table.setContentOffset(10'000);
    EXPECT_TRUE(world.table.indexPathsForVisibleRows().empty());
    world.table.setContentOffset(0);
    EXPECT_EQ(world.table.indexPathsForVisibleRows().size(), 10U);
}

TEST(TableView, findsTheRowAtAPoint)
{
    TableWorld world({ 2, 2 });
    world.source.headerHeight = 25;
    world.show();
    EXPECT_FALSE(world.table.indexPathForRowAtPoint({ 10, 10 }));
    EXPECT_EQ(world.table.indexPathForRowAtPoint({ 10, 90 }), (kit::IndexPath{ 0, 1 }));
    EXPECT_EQ(world.table.indexPathForRowAtPoint({ 0, 90 }), (kit::IndexPath{ 0, 1 }));
    EXPECT_EQ(world.table.indexPathForRowAtPoint({ 320, 90 }), (kit::IndexPath{ 0, 1 }));
    EXPECT_EQ(world.table.indexPathForRowAtPoint({ 319, 175 }), (kit::IndexPath{ 1, 0 }));
    EXPECT_FALSE(world.table.indexPathForRowAtPoint({ 321, 175 }));
    EXPECT_FALSE(world.table.indexPathForRowAtPoint({ -1, 175 }));
    EXPECT_FALSE(world.table.indexPathForRowAtPoint({ 10, -5 }));
}

TEST(TableView, findsTheRowAtAPointOfAScrolledTableInContentCoordinates)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(600);
    const kit::TableViewCell* cell = world.table.cellForRow({ 0, 12 });
    EXPECT_EQ(world.table.indexPathForRowAtPoint(cell->convertPointToView({ 5, 5 }, &world.table)),
        (kit::IndexPath{ 0, 12 }));
}

TEST(TableView, movesItsRowsWhenTheTableHeaderViewGrows)
{
    TableWorld world({ 20 });
    auto* header = new kit::View({ 0, 0, 320, 100 });
    world.table.setTableHeaderView(header);
    world.show();
    EXPECT_EQ(world.table.cellForRow({ 0, 0 })->frame().top(), 100);
    header->setFrame({ 0, 0, 320, 185 });
    world.table.setTableHeaderView(header);
    EXPECT_EQ(world.table.cellForRow({ 0, 0 })->frame().top(), 185);
    EXPECT_EQ(world.table.contentHeight(), 185 + 1'200);
}

TEST(TableView, takesItsTableHeaderViewAndGivesUpTheOneBefore)
{
    TableWorld world({ 20 });
    const QPointer<kit::View> first(new kit::View({ 0, 0, 320, 100 }));
    world.table.setTableHeaderView(first);
    world.show();
    world.table.setTableHeaderView(nullptr);
    EXPECT_FALSE(world.table.subviews().contains(first));
    deleteWhatIsToGo();
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(world.table.cellForRow({ 0, 0 })->frame().top(), 0);
}

TEST(TableView, holdsItsTableHeaderViewInItsPlaceAmongItsSubviews)
{
    kit::TableView table;
    auto* const header = new kit::View({ 0, 0, 320, 100 });
    const QSignalSpy changed(&table, &kit::TableView::tableHeaderViewChanged);
    table.setTableHeaderView(header);
    EXPECT_EQ(header->superview(), &table);
    EXPECT_EQ(table.tableHeaderView(), header);
    EXPECT_EQ(changed.count(), 1);
    auto* const above = new kit::View;
    table.addSubview(above);
    table.setTableHeaderView(header);
    EXPECT_EQ(table.subviews(), (QList<kit::View*>{ header, above }));
}

TEST(TableView, ownsItsFooterView)
{
    kit::TableView table;
    const QPointer<kit::View> first(new kit::View);
    const QPointer<kit::View> second(new kit::View);
    table.setTableFooterView(first);
    EXPECT_EQ(first->superview(), &table);
    EXPECT_EQ(table.tableFooterView(), first);
    table.setTableFooterView(second);
    deleteWhatIsToGo();
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(table.tableFooterView(), second);
}

TEST(TableView, doesNotAskForRowsAnewWhenItsTableHeaderViewChanges)
{
    TableWorld world({ 20 });
    world.show();
    world.source.rows = { 2 };
    world.table.setTableHeaderView(new kit::View({ 0, 0, 320, 100 }));
    EXPECT_EQ(world.table.contentHeight(), 100 + 1'200);
    EXPECT_EQ(world.textAt({ 0, 8 }), QStringLiteral("0.8"));
}

TEST(TableView, showsMoreRowsWhenItGrows)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setFrame({ 0, 0, 320, 900 });
    EXPECT_EQ(world.table.indexPathsForVisibleRows().size(), 15U);
    world.table.setFrame({ 0, 0, 320, 60 });
    EXPECT_EQ(world.table.indexPathsForVisibleRows().size(), 1U);
}

TEST(TableView, keepsItsRowsAndTheSelectedOneWhenItsSizeChanges)
{
    TableWorld world({ 100 });
    world.show();
    world.table.tapRow(0, 2);
    world.source.rows = { 3 };
    world.table.setFrame({ 0, 0, 500, 900 });
    EXPECT_EQ(world.table.contentHeight(), 6'000);
    EXPECT_TRUE(world.table.cellForRow({ 0, 2 })->isSelected());
    EXPECT_EQ(world.table.cellForRow({ 0, 2 })->frame(), QRectF(0, 120, 500, 60));
}

TEST(TableView, asksForNoHeightsOfRowsThatDoNotDiffer)
{
    kit::TableView table;
    EqualRows rows;
    rows.rows = { 1'000'000 };
    rows.setTable(&table);
    table.setDelegate(&rows);
    table.setFrame({ 0, 0, 320, 600 });
    EXPECT_EQ(table.contentHeight(), 44'000'000);
    EXPECT_EQ(rows.heightsAsked, 0);
    table.setDelegate(nullptr);
}

TEST(TableView, scrollsByNoPageWithoutRows)
{
    TableWorld world({ 0 });
    world.show();
    world.table.scrollByPage(1);
    world.table.scrollByPage(-1);
    EXPECT_EQ(world.table.contentOffset(), 0);
}

TEST(TableView, scrollsByAPageOfWhatIsSeenBelowThePinnedHeader)
{
    TableWorld world({ 100 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    world.table.scrollByPage(1);
    EXPECT_EQ(world.table.contentOffset(), 575);
    world.table.scrollByPage(1);
    EXPECT_EQ(world.table.contentOffset(), 2 * 575);
    world.table.scrollByPage(-1);
    EXPECT_EQ(world.table.contentOffset(), 575);
}

TEST(TableView, scrollsByAPageNoFurtherThanToEitherEnd)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(5'390);
    world.table.scrollByPage(1);
    EXPECT_EQ(world.table.contentOffset(), 6'000 - 600);
    world.table.setContentOffset(10);
    world.table.scrollByPage(-1);
    EXPECT_EQ(world.table.contentOffset(), 0);
    world.source.rows = { 2 };
    world.table.reloadData();
    world.table.scrollByPage(1);
    EXPECT_EQ(world.table.contentOffset(), 0);
}

TEST(TableView, tellsOnceThatItWasScrolled)
{
    TableWorld world({ 100 });
    world.show();
    const QSignalSpy scrolled(&world.table, &kit::TableView::contentOffsetChanged);
    const QSignalSpy moved(&world.table, &kit::View::contentOriginChanged);
    world.table.setContentOffset(100);
    world.table.setContentOffset(100);
    EXPECT_EQ(scrolled.count(), 1);
    EXPECT_EQ(moved.count(), 1);
}

TEST(TableView, tellsItsNewHeightOnceTheRowsAreInTheirPlaces)
{
    TableWorld world({ 100 });
    world.show();
    world.table.setContentOffset(3'000);
    int told = 0;
    QObject::connect(&world.table, &kit::TableView::contentHeightChanged, &world.table, [&] {
        ++told;
        EXPECT_EQ(world.table.contentHeight(), 20 * 60);
        EXPECT_EQ(world.table.contentOffset(), 600);
        EXPECT_EQ(world.textAt({ 0, 19 }), QStringLiteral("0.19"));
    });
    world.source.rows = { 20 };
    world.table.reloadData();
    EXPECT_EQ(told, 1);
}

TEST(TableView, tellsOfTheColorOfItsSeparators)
{
    kit::TableView table;
    const QSignalSpy changed(&table, &kit::View::appearanceChanged);
    table.setSeparatorColor(kit::Color::white());
    EXPECT_EQ(table.separatorColor(), kit::Color::white());
    EXPECT_EQ(table.separatorTint(), QColor(Qt::white));
    EXPECT_EQ(changed.count(), 1);
}

TEST(TableView, ownsItsRefreshControl)
{
    kit::TableView table;
    const QPointer<kit::RefreshControl> first(new kit::RefreshControl);
    const QPointer<kit::RefreshControl> second(new kit::RefreshControl);
    const QSignalSpy changed(&table, &kit::TableView::refreshControlChanged);
    table.setRefreshControl(first);
    EXPECT_EQ(first->parent(), &table);
    table.setRefreshControl(second);
    table.setRefreshControl(second);
    EXPECT_EQ(changed.count(), 2);
    deleteWhatIsToGo();
    EXPECT_TRUE(first.isNull());
    ASSERT_FALSE(second.isNull());
    EXPECT_EQ(table.refreshControl(), second);
    table.setRefreshControl(nullptr);
    deleteWhatIsToGo();
    EXPECT_TRUE(second.isNull());
    EXPECT_EQ(table.refreshControl(), nullptr);
}

TEST(TableView, takesItsCellsAndHeadersAlong)
{
    QPointer<kit::TableViewCell> cell;
    QPointer<kit::View> header;
    {
        TableWorld world({ 5 });
        world.source.withHeaders = true;
        world.source.headerHeight = 25;
        world.show();
        cell = world.table.cellForRow({ 0, 0 });
        header = world.table.headerView(0);
        ASSERT_TRUE(cell && header);
    }
    EXPECT_TRUE(cell.isNull());
    EXPECT_TRUE(header.isNull());
}
