// What a list shows of a refresh, and one that has none.
#include "tests/ui/kit/window/FingerTest.h"

namespace {

class Refresh : public FingerTest
{
protected:
    Refresh() { grabbed(); }

    kit::TableView& table() const { return *one->tableView(); }
    // Of the spinner that a screen reader finds, in the table.
    QRectF spinner() const
    {
        QAccessibleInterface* const found = accessible(QStringLiteral("Refreshing"));
        return QRectF(found->rect().translated(-quick()->position() - QPoint(0, 44)));
    }
};

} // namespace

TEST_F(Refresh, spinsInTheMiddleBelowAPinnedHeaderWhereTheListWasScrolledOn)
{
    table().refreshControl()->beginRefreshing();
    table().setContentOffset(300);
    grabbed();
    EXPECT_EQ(spinner().center().x(), 195);
    EXPECT_EQ(spinner().center().y(), 25 + 10 + 22);
}

TEST_F(Refresh, spinsInTheRoomAboveAListThatIsAtItsBeginning)
{
    table().refreshControl()->beginRefreshing();
    ASSERT_TRUE(waitUntil([this] { return table().contentOffset() == -60; }));
    grabbed();
    EXPECT_EQ(spinner().center(), QPointF(195, 30));
}

TEST_F(Refresh, isNothingToAListThatHasNone)
{
    auto* const page = new ListScreen(QStringLiteral("Page"));
    page->tableView()->setRefreshControl(nullptr);
    stack(0)->pushViewController(page, kit::NavigationController::Animation::None);
    grabbed();
    begin({ 200, 200 });
    moveTo({ 200, 600 });
    EXPECT_LT(page->tableView()->contentOffset(), 0) << "drawn down";
    EXPECT_EQ(accessible(QStringLiteral("Refreshing")), nullptr);
    end();
    EXPECT_TRUE(waitUntil([&] { return page->tableView()->contentOffset() == 0; }));
    EXPECT_EQ(page->refreshes, 0);
}
