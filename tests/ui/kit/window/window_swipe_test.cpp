// The swipe from the left edge in a real window, among the table's own touches.
#include "tests/ui/kit/window/FingerTest.h"

namespace {

// A screen of a tab's stack, pushed, with a finger that goes over it.
class SwipeTest : public FingerTest
{
protected:
    SwipeTest()
    {
        page = new ListScreen(QStringLiteral("Page"));
        stack(0)->pushViewController(page, kit::NavigationController::Animation::None);
        grabbed();
    }

    ListScreen* page;
};

} // namespace

TEST_F(SwipeTest, drawsThePageAsideAndGoesBack)
{
    begin({ 5, 400 });
    moveTo({ 215, 410 });
    EXPECT_TRUE(stack(0)->isSwipingBack());
    EXPECT_GT(stack(0)->progress(), 0.4);
    EXPECT_LT(stack(0)->progress(), 0.6);
    EXPECT_EQ(stack(0)->leavingViewController(), page);
    grabbed();
    moveTo({ 350, 400 });
    end();
    EXPECT_FALSE(stack(0)->canGoBack());
    EXPECT_FALSE(stack(0)->isTransitioning());
    grabbed();
    tap(middleOf({ 0, 3 }));
    EXPECT_TRUE(stack(0)->canGoBack()) << "the page below takes touches again";
}

TEST_F(SwipeTest, comesBackWhenTheFingerDoes)
{
    begin({ 5, 400 });
    moveTo({ 300, 400 });
    moveTo({ 40, 400 });
    end();
    EXPECT_EQ(stack(0)->topViewController(), page);
    EXPECT_FALSE(stack(0)->isTransitioning());
    grabbed();
    press(Qt::Key_Down);
    EXPECT_EQ(page->tableView()->rowFocus()->row(), 0) << "the page has the keyboard again";
    begin({ 5, 400 });
    moveTo({ 350, 400 });
    end();
    EXPECT_FALSE(stack(0)->canGoBack()) << "and can be drawn aside again";
}

TEST_F(SwipeTest, goesBackByAMouseToo)
{
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, { 5, 400 });
    for (int x = 5; x <= 305; x += 20)
        QTest::mouseMove(quick(), { x, 400 });
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, { 305, 400 });
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(SwipeTest, leavesTheRootWhereItIs)
{
    stack(0)->popViewController(kit::NavigationController::Animation::None);
    grabbed();
    begin({ 5, 400 });
    moveTo({ 350, 400 });
    EXPECT_FALSE(stack(0)->isTransitioning());
    end();
    EXPECT_EQ(stack(0)->topViewController(), one);
}

TEST_F(SwipeTest, leavesAVerticalMoveFromTheEdgeToTheTable)
{
    begin({ 5, 500 });
    moveTo({ 9, 300 });
    EXPECT_FALSE(stack(0)->isSwipingBack());
    end();
    EXPECT_TRUE(waitUntil([this] { return page->tableView()->contentOffset() > 0; }));
    EXPECT_EQ(stack(0)->topViewController(), page);
}

TEST_F(SwipeTest, leavesATapAtTheEdgeToTheRow)
{
    const QRectF row = page->tableView()->rectForRow({ 0, 3 });
    begin({ 5, static_cast<int>(stack(0)->barHeight() + row.center().y()) });
    end();
    EXPECT_EQ(stack(0)->topViewController()->title(), QStringLiteral("Row 0.3"));
}

TEST_F(SwipeTest, leavesASwipeInTheMiddleToTheRow)
{
    const QRectF row = page->tableView()->rectForRow({ 0, 3 });
    const int y = static_cast<int>(stack(0)->barHeight() + row.center().y());
    begin({ 250, y });
    moveTo({ 120, y });
    end();
    EXPECT_EQ(page->tableView()->openRow()->row(), 3);
    begin({ 120, y });
    moveTo({ 300, y });
    EXPECT_FALSE(stack(0)->isSwipingBack());
    end();
    EXPECT_EQ(page->tableView()->openRow()->row(), -1);
    EXPECT_EQ(stack(0)->topViewController(), page);
}

TEST_F(SwipeTest, closesTheOpenRowOfThePageThatItDrawsAside)
{
    page->tableView()->openRow()->open(0, 3);
    const QRectF row = page->tableView()->rectForRow({ 0, 3 });
    const int y = static_cast<int>(stack(0)->barHeight() + row.center().y());
    begin({ 5, y });
    moveTo({ 120, y });
    EXPECT_TRUE(stack(0)->isSwipingBack());
    moveTo({ 30, y });
    end();
    EXPECT_EQ(stack(0)->topViewController(), page);
    EXPECT_EQ(page->tableView()->openRow()->row(), -1);
}

TEST_F(SwipeTest, endsWhenAnAlertComesInBetween)
{
    begin({ 5, 400 });
    moveTo({ 100, 400 });
    ASSERT_TRUE(stack(0)->isSwipingBack());
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("OK"), kit::AlertAction::Style::Default);
    one->present(alert);
    grabbed();
    end();
    EXPECT_FALSE(stack(0)->isSwipingBack());
    EXPECT_FALSE(stack(0)->isTransitioning());
    press(Qt::Key_Return);
    EXPECT_EQ(window->presentedAlert(), nullptr);
}

TEST_F(SwipeTest, endsWhenTheTabChangesUnderTheFinger)
{
    begin({ 5, 400 });
    moveTo({ 200, 400 });
    press(Qt::Key_2, Qt::ControlModifier);
    moveTo({ 380, 400 });
    end();
    EXPECT_EQ(tabs->selectedIndex(), 1);
    EXPECT_EQ(stack(0)->topViewController(), page);
    EXPECT_FALSE(stack(0)->isTransitioning());
}

TEST_F(SwipeTest, beginsWithinTwentyFourPointsOfTheEdgeAndNotBeyond)
{
    begin({ 24, 500 });
    moveTo({ 224, 500 });
    EXPECT_FALSE(stack(0)->isSwipingBack());
    end();
    begin({ 23, 500 });
    moveTo({ 223, 500 });
    EXPECT_TRUE(stack(0)->isSwipingBack());
    end();
}
