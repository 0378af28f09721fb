// How the pages of a stack move, by a clock that goes as far as the test lets it.
#include "tests/ui/kit/navigation/LifeRecorder.h"
#include "tests/ui/kit/paint/AnimationClock.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/paint/Animations.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

class NavigationMovement : public testing::Test
{
protected:
    NavigationMovement()
    {
        kit::Animations::setEnabled(true);
        stack.layOut({ 0, 0, 320, 600 });
        stack.beginAppearance();
        stack.endAppearance();
    }
    ~NavigationMovement() override { kit::Animations::setEnabled(false); }

    AnimationClock clock;
    QStringList moments;
    kit::NavigationController stack{ new LifeRecorder(QStringLiteral("root"), moments) };
};

} // namespace

TEST_F(NavigationMovement, beginsFastAndEndsSlowlyWhereThePageIsToStand)
{
    auto* const second = new LifeRecorder(QStringLiteral("second"), moments);
    stack.pushViewController(second, kit::NavigationController::Animation::Animated);
    EXPECT_EQ(stack.progress(), 0);
    const QSignalSpy moved(&stack, &kit::NavigationController::progressChanged);
    // What is left to go shrinks with the third power of the time that is left.
    clock.goTo(kit::Animations::Push / 2);
    EXPECT_NEAR(stack.progress(), 1 - 0.125, 0.01);
    EXPECT_GE(moved.count(), 1);
    clock.goTo(kit::Animations::Push * 4 / 5);
    EXPECT_NEAR(stack.progress(), 1 - 0.008, 0.001);
    EXPECT_TRUE(stack.isTransitioning());
    clock.goTo(kit::Animations::Push);
    EXPECT_EQ(stack.progress(), 1);
    EXPECT_FALSE(stack.isTransitioning());
}
