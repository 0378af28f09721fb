#include "tests/ui/kit/table/TableWorld.h"

#include <QCoreApplication>
#include <QEvent>

#include <gtest/gtest.h>

namespace {

void deleteWhatIsToGo()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A header for one of the sections alone.
class OneHeader : public RowSource
{
public:
    int headed = 0;

    kit::View* viewForHeaderInSection(int section) override
    {
        return section == headed ? RowSource::viewForHeaderInSection(section) : nullptr;
    }
    double heightForHeaderInSection(int section) const override
    {
        EXPECT_GE(section, 0);
        EXPECT_LT(section, numberOfSections()) << "asked for one that is not there";
        return section == headed ? headerHeight : 0;
    }
};

} // namespace

TEST(SectionHeaders, makesItsHeadersAnewWithTheNewWidth)
{
    TableWorld world({ 3, 3 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    ASSERT_EQ(world.source.headers.size(), 2U);
    world.table.setFrame({ 0, 0, 500, 600 });
    ASSERT_EQ(world.source.headers.size(), 4U);
    EXPECT_EQ(world.table.headerView(1)->frame(), QRectF(0, 205, 500, 25));
    EXPECT_EQ(world.table.cellForRow({ 0, 0 })->width(), 500);
    deleteWhatIsToGo();
    EXPECT_TRUE(world.source.headers[0].isNull());
    EXPECT_TRUE(world.source.headers[1].isNull());
}

TEST(SectionHeaders, keepsOnlyTheLastHeadersAmongItsSubviews)
{
    TableWorld world({ 3, 3 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    const auto before = world.table.subviews().size();
    for (int reload = 0; reload < 20; ++reload)
        world.table.reloadData();
    EXPECT_EQ(world.table.subviews().size(), before);
    EXPECT_EQ(world.table.headerModel()->rowCount(), 2);
}

TEST(SectionHeaders, takesOtherHeadersAwayAtOnce)
{
    TableWorld world({ 3, 3 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    kit::View* const before = world.table.headerView(0);
    world.source.headerText = QStringLiteral("Changed");
    world.table.reloadData();
    EXPECT_FALSE(world.table.subviews().contains(before));
    EXPECT_TRUE(world.table.subviews().contains(world.table.headerView(0)));
}

TEST(SectionHeaders, keepsHeadersThatNewOnesAreLike)
{
    TableWorld world({ 3, 3 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    const kit::View* const before = world.table.headerView(1);
    world.table.setContentOffset(100);
    world.table.reloadData();
    EXPECT_EQ(world.table.headerView(1), before);
    EXPECT_EQ(world.source.headers.size(), 4U);
    EXPECT_TRUE(world.source.headers[2].isNull());
    EXPECT_TRUE(world.source.headers[3].isNull());
}

TEST(SectionHeaders, showsHeadersThatDifferFromThoseBefore)
{
    TableWorld world({ 3, 3 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    world.source.headerText = QStringLiteral("Changed");
    world.table.reloadData();
    EXPECT_EQ(world.table.headerView(1)->accessibilityLabel(), QStringLiteral("Changed"));
    world.source.rows = { 3 };
    world.table.reloadData();
    EXPECT_EQ(world.table.headerView(1), nullptr);
    world.source.rows = { 3, 3, 3 };
    world.table.reloadData();
    EXPECT_NE(world.table.headerView(2), nullptr);
    world.source.withHeaders = false;
    world.table.reloadData();
    EXPECT_EQ(world.table.headerView(0), nullptr);
    EXPECT_EQ(world.table.headerModel()->rowCount(), 0);
}

TEST(SectionHeaders, showsAHeaderThatIsLikeTheOneBeforeAboveItsOwnSection)
{
    kit::TableView table;
    OneHeader source;
    source.rows = { 3, 3 };
    source.withHeaders = true;
    source.headerHeight = 25;
    source.setTable(&table);
    table.setDelegate(&source);
    table.setFrame({ 0, 0, 320, 600 });
    EXPECT_NE(table.headerView(0), nullptr);
    EXPECT_EQ(table.headerView(1), nullptr);
    source.headed = 1;
    table.reloadData();
    EXPECT_EQ(table.headerView(0), nullptr);
    ASSERT_NE(table.headerView(1), nullptr);
    EXPECT_EQ(table.headerView(1)->frame(), QRectF(0, 3 * 44, 320, 25));
    table.setDelegate(nullptr);
}

TEST(SectionHeaders, pinsItsHeaderWhileItScrolls)
{
    TableWorld world({ 20, 20 });
    world.source.withHeaders = true;
    world.source.headerHeight = 25;
    world.show();
    world.table.setContentOffset(100);
    EXPECT_EQ(world.table.headerView(0)->frame().top(), 100);
    world.table.setContentOffset(1'210);
    EXPECT_EQ(world.table.headerView(0)->frame().top(), 1'200);
    EXPECT_EQ(world.table.headerView(1)->frame().top(), 1'225);
    EXPECT_EQ(world.table.headerView(2), nullptr);
}
