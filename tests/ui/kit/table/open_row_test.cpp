#include "tests/ui/kit/table/TableWorld.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

// Rows of which a screen says no more than how many there are.
class PlainRows : public kit::TableViewDelegate
{
public:
    int numberOfRowsInSection(int /*section*/) const override { return 3; }
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& /*indexPath*/) override { return nullptr; }
};

} // namespace

TEST(OpenRow, opensNoRowUnlessAScreenSaysThatItCanBeDeleted)
{
    PlainRows rows;
    kit::TableView table;
    table.setDelegate(&rows);
    table.setFrame({ 0, 0, 320, 600 });
    EXPECT_FALSE(table.openRow()->canDelete(0, 1));
    table.openRow()->open(0, 1);
    EXPECT_FALSE(table.openRow()->isOpen());
}

TEST(OpenRow, opensOnlyRowsThatCanBeDeleted)
{
    TableWorld world({ 3 });
    world.show();
    world.table.openRow()->open(0, 1);
    EXPECT_EQ(world.table.openRow()->row(), -1);
    world.source.editable = true;
    world.table.openRow()->open(0, 1);
    EXPECT_EQ(world.table.openRow()->section(), 0);
    EXPECT_EQ(world.table.openRow()->row(), 1);
    EXPECT_FALSE(world.table.openRow()->canDelete(0, 3));
}

TEST(OpenRow, closesAtATapWithoutSelecting)
{
    TableWorld world({ 3 });
    world.source.editable = true;
    world.show();
    world.table.openRow()->open(0, 1);
    world.table.pressRow(0, 2, true);
    EXPECT_FALSE(world.table.cellForRow({ 0, 2 })->isHighlighted());
    world.table.tapRow(0, 2);
    EXPECT_EQ(world.table.openRow()->row(), -1);
    EXPECT_TRUE(world.source.selected.empty());
    world.table.tapRow(0, 2);
    EXPECT_EQ(world.source.selected.size(), 1U);
}

TEST(OpenRow, givesWayToTheNext)
{
    TableWorld world({ 3 });
    world.source.editable = true;
    world.show();
    QSignalSpy changed(world.table.openRow(), &kit::OpenRow::changed);
    world.table.openRow()->open(0, 1);
    world.table.openRow()->open(0, 2);
    EXPECT_EQ(world.table.openRow()->row(), 2);
    EXPECT_TRUE(world.table.openRow()->close());
    EXPECT_FALSE(world.table.openRow()->close());
    EXPECT_EQ(world.table.openRow()->row(), -1);
    EXPECT_EQ(changed.count(), 3);
}

TEST(OpenRow, closesWhenItsDeletionIsAskedForAndAtAReload)
{
    TableWorld world({ 3 });
    world.source.editable = true;
    world.show();
    world.table.openRow()->open(0, 1);
    world.table.openRow()->deleteRow(0, 1);
    EXPECT_EQ(world.source.deleted, (std::vector<kit::IndexPath>{ { 0, 1 } }));
    EXPECT_EQ(world.table.openRow()->row(), -1);
    world.table.openRow()->open(0, 1);
    world.table.reloadData();
    EXPECT_EQ(world.table.openRow()->row(), -1);
}

TEST(OpenRow, asksForNoDeletionOfARowThatCannotBeDeleted)
{
    TableWorld world({ 3 });
    world.show();
    world.table.openRow()->deleteRow(0, 1);
    EXPECT_TRUE(world.source.deleted.empty());
}

TEST(OpenRow, closesWhenARowIsDeletedUnderIt)
{
    TableWorld world({ 5 });
    world.source.editable = true;
    world.show();
    world.table.openRow()->open(0, 1);
    world.source.rows = { 4 };
    world.table.deleteRow({ 0, 3 }, kit::TableView::Animation::None);
    EXPECT_FALSE(world.table.openRow()->isOpen());
}
