// What a list shows of a refresh, and one that has none.
#include "tests/ui/kit/window/FingerTest.h"

#include <algorithm>

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

TEST_F(Refresh, turnsTwelveSpokesOfWhichEachIsFainterThanTheNext)
{
    table().refreshControl()->beginRefreshing();
    table().setContentOffset(300);
    grabbed();
    const auto& spinner = *qobject_cast<QQuickItem*>(accessible(QStringLiteral("Refreshing"))->object());
    std::vector<double> rotations;
    std::vector<double> opacities;
    for (const QQuickItem* part : spinner.childItems())
        if (part->width() > 0) {
            rotations.push_back(part->rotation());
            opacities.push_back(part->opacity());
        }
    ASSERT_EQ(rotations.size(), 12U);
    std::sort(opacities.begin(), opacities.end());
    for (int spoke = 0; spoke < 12; ++spoke) {
        EXPECT_EQ(rotations[static_cast<std::size_t>(spoke)], spoke * 30);
        EXPECT_NEAR(opacities[static_cast<std::size_t>(spoke)], 1 - 0.07 * (11 - spoke), 0.001);
    }
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
