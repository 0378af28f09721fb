// What a wheel or a trackpad scrolls, and what it leaves where it is.
#include "tests/ui/kit/window/FingerTest.h"
#include "ui/kit/paint/Animations.h"

namespace {

class Wheel : public FingerTest
{
protected:
    Wheel() { grabbed(); }
    void TearDown() override { kit::Animations::setEnabled(false); }

    // Enough for a table to take it for scrolling.
    void scrollOn()
    {
        for (int turn = 0; turn < 3; ++turn) {
            turnWheel({ 200, 300 }, -40);
            drawFrame();
        }
    }
};

} // namespace

TEST_F(Wheel, scrollsTheTableBelowIt)
{
    scrollOn();
    EXPECT_TRUE(waitUntil([this] { return one->tableView()->contentOffset() > 0; }));
}

TEST_F(Wheel, leavesWhatStandsBehindAnAlert)
{
    for (const auto style : { kit::AlertController::Style::Alert, kit::AlertController::Style::ActionSheet }) {
        kit::AlertController* const alert = addAlert(style);
        alert->addAction(QStringLiteral("Close"), kit::AlertAction::Style::Cancel);
        one->present(alert);
        grabbed();
        scrollOn();
        EXPECT_EQ(one->tableView()->contentOffset(), 0);
        press(Qt::Key_Escape);
        grabbed();
        EXPECT_EQ(one->tableView()->contentOffset(), 0);
    }
}

TEST_F(Wheel, leavesTheScreenThatComesAndTheOneThatGoes)
{
    auto* const next = new ListScreen(QStringLiteral("Next"));
    kit::Animations::setEnabled(true);
    stack(0)->pushViewController(next, kit::NavigationController::Animation::Animated);
    ASSERT_TRUE(waitUntil([this] { return stack(0)->progress() > 0.2; }));
    const QPointF onNext(quick()->width() - 5, 300);
    for (int turn = 0; turn < 3; ++turn)
        turnWheel(onNext, -40);
    ASSERT_TRUE(stack(0)->isTransitioning());
    ASSERT_TRUE(waitUntil([this] { return !stack(0)->isTransitioning(); }));
    EXPECT_EQ(one->tableView()->contentOffset(), 0);
    EXPECT_EQ(next->tableView()->contentOffset(), 0);
}
