// The way back by a finger, as a stack of screens sees it.
#include "tests/ui/kit/navigation/LifeRecorder.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/paint/Animations.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QVariantAnimation>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Animation = kit::NavigationController::Animation;

// A stack that a person sees, of "root" and "page".
class SwipeBack : public testing::Test
{
protected:
    void SetUp() override
    {
        stack.layOut({ 0, 0, 320, 600 });
        stack.beginAppearance();
        stack.endAppearance();
        stack.pushViewController(page, Animation::None);
        moments.clear();
    }
    void TearDown() override { kit::Animations::setEnabled(false); }
    static void deleteWhatIsToGo() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    const QStringList beginning{ QStringLiteral("page will disappear"), QStringLiteral("root will appear") };
    const QStringList cancelling{ QStringLiteral("root will disappear"), QStringLiteral("page will appear"),
        QStringLiteral("root did disappear"), QStringLiteral("page did appear") };
    QStringList moments;
    kit::NavigationController stack{ new LifeRecorder(QStringLiteral("root"), moments) };
    QPointer<kit::ViewController> page = new LifeRecorder(QStringLiteral("page"), moments);
};

} // namespace

TEST_F(SwipeBack, movesThePageWithTheFinger)
{
    ASSERT_TRUE(stack.beginSwipeBack());
    EXPECT_EQ(moments, beginning);
    EXPECT_EQ(stack.leavingViewController(), page);
    EXPECT_FALSE(stack.isPushing());
    EXPECT_EQ(stack.progress(), 0);
    stack.moveSwipeBack(0.3);
    EXPECT_EQ(stack.progress(), 0.3);
    stack.moveSwipeBack(0.1);
    EXPECT_EQ(stack.progress(), 0.1);
    stack.moveSwipeBack(-2);
    EXPECT_EQ(stack.progress(), 0);
    stack.moveSwipeBack(2);
    EXPECT_EQ(stack.progress(), 1);
    EXPECT_TRUE(stack.isSwipingBack());
    EXPECT_EQ(moments, beginning);
}

TEST_F(SwipeBack, goesOnWithThePageThatIsPastTheMiddle)
{
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.6);
    stack.endSwipeBack(0);
    EXPECT_EQ(
        moments, beginning + QStringList({ QStringLiteral("page did disappear"), QStringLiteral("root did appear") }));
    EXPECT_FALSE(stack.isTransitioning());
    EXPECT_FALSE(stack.canGoBack());
    deleteWhatIsToGo();
    EXPECT_TRUE(page.isNull());
}

TEST_F(SwipeBack, bringsBackThePageThatIsNot)
{
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.4);
    stack.endSwipeBack(0);
    EXPECT_EQ(moments, beginning + cancelling);
    EXPECT_EQ(stack.topViewController(), page);
    EXPECT_EQ(page->backTitle(), QStringLiteral("root"));
    EXPECT_FALSE(stack.isTransitioning());
    EXPECT_EQ(stack.progress(), 1);
    EXPECT_EQ(stack.pageModel()->rowCount(), 2);
    deleteWhatIsToGo();
    ASSERT_FALSE(page.isNull());
    moments.clear();
    stack.goBack();
    EXPECT_EQ(stack.viewControllers().size(), 1U);
}

TEST_F(SwipeBack, bringsBackThePageThatRestsInTheVeryMiddle)
{
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.5);
    stack.endSwipeBack(0);
    EXPECT_EQ(stack.topViewController(), page);
}

TEST_F(SwipeBack, followsAFlickWhicheverWayItGoes)
{
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.2);
    stack.endSwipeBack(-3);
    EXPECT_EQ(stack.topViewController(), page);
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.7);
    stack.endSwipeBack(-3);
    EXPECT_EQ(stack.topViewController(), page);
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.2);
    stack.endSwipeBack(1);
    EXPECT_EQ(stack.topViewController(), page) << "which was too slow";
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.2);
    stack.endSwipeBack(3);
    EXPECT_NE(stack.topViewController(), page);
}

TEST_F(SwipeBack, letsThePageGoOnFromWhereItIs)
{
    kit::Animations::setEnabled(true);
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.6);
    double least = 1;
    QObject::connect(&stack, &kit::NavigationController::progressChanged, &stack,
        [&] { least = std::min(least, stack.progress()); });
    QSignalSpy changed(&stack, &kit::NavigationController::stackChanged);
    stack.endSwipeBack(0);
    EXPECT_FALSE(stack.isSwipingBack());
    EXPECT_TRUE(stack.isTransitioning());
    ASSERT_TRUE(changed.wait());
    EXPECT_FALSE(stack.isTransitioning());
    EXPECT_GE(least, 0.6);
    EXPECT_EQ(stack.progress(), 1);
}

// What began later is over later, however the two are drawn.
TEST_F(SwipeBack, takesNoLongerForTheRestOfTheWayThanForAllOfIt)
{
    kit::Animations::setEnabled(true);
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.6);
    stack.endSwipeBack(0);
    QVariantAnimation whole;
    whole.setStartValue(0.0);
    whole.setEndValue(1.0);
    whole.setDuration(kit::Animations::duration(kit::Animations::Push));
    QSignalSpy ended(&whole, &QVariantAnimation::finished);
    whole.start();
    ASSERT_TRUE(stack.isTransitioning());
    ASSERT_TRUE(ended.wait());
    EXPECT_FALSE(stack.isTransitioning());
}

TEST_F(SwipeBack, bringsThePageBackFromWhereItIs)
{
    kit::Animations::setEnabled(true);
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.4);
    stack.endSwipeBack(0);
    EXPECT_TRUE(stack.isTransitioning());
    EXPECT_TRUE(stack.isPushing()) << "as if it was pushed again";
    EXPECT_EQ(stack.topViewController(), page);
    EXPECT_GE(stack.progress(), 0.6);
    EXPECT_EQ(moments, beginning + cancelling.mid(0, 2));
    QSignalSpy changed(&stack, &kit::NavigationController::stackChanged);
    ASSERT_TRUE(changed.wait());
    EXPECT_FALSE(stack.isTransitioning());
    EXPECT_EQ(moments, beginning + cancelling);
}

TEST_F(SwipeBack, isNotThereOnTheRoot)
{
    stack.popViewController(Animation::None);
    moments.clear();
    EXPECT_FALSE(stack.beginSwipeBack());
    stack.moveSwipeBack(0.9);
    stack.endSwipeBack(9);
    stack.endSwipeBack(-9);
    EXPECT_TRUE(moments.isEmpty());
    EXPECT_EQ(stack.progress(), 1);
    EXPECT_EQ(stack.viewControllers().size(), 1U);
}

TEST_F(SwipeBack, isNotThereDuringATransitionOrASecondTime)
{
    kit::Animations::setEnabled(true);
    stack.pushViewController(new LifeRecorder(QStringLiteral("third"), moments), Animation::Animated);
    EXPECT_FALSE(stack.beginSwipeBack());
    stack.pushViewController(new LifeRecorder(QStringLiteral("fourth"), moments), Animation::None);
    EXPECT_TRUE(stack.beginSwipeBack());
    EXPECT_FALSE(stack.beginSwipeBack());
    EXPECT_EQ(stack.viewControllers().size(), 3U);
}

TEST_F(SwipeBack, isNotThereOutOfSight)
{
    stack.beginDisappearance();
    stack.endDisappearance();
    EXPECT_FALSE(stack.beginSwipeBack());
}

TEST_F(SwipeBack, givesWayToAPush)
{
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.9);
    moments.clear();
    stack.pushViewController(new LifeRecorder(QStringLiteral("third"), moments), Animation::None);
    EXPECT_EQ(moments,
        cancelling
            + QStringList({ QStringLiteral("page will disappear"), QStringLiteral("third loaded"),
                QStringLiteral("third will appear"), QStringLiteral("page did disappear"),
                QStringLiteral("third did appear") }));
    EXPECT_EQ(stack.viewControllers().size(), 3U);
    stack.moveSwipeBack(0.2);
    stack.endSwipeBack(9);
    EXPECT_EQ(stack.progress(), 1);
    EXPECT_EQ(stack.viewControllers().size(), 3U);
}

TEST_F(SwipeBack, leadsBackOnceWhenTheBackButtonIsPressedDuringIt)
{
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.2);
    stack.goBack();
    stack.endSwipeBack(9);
    EXPECT_EQ(stack.viewControllers().size(), 1U);
    EXPECT_FALSE(stack.isTransitioning());
}

TEST_F(SwipeBack, endsWhenTheStackDisappears)
{
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.9);
    moments.clear();
    stack.beginDisappearance();
    stack.endDisappearance();
    EXPECT_EQ(moments,
        cancelling + QStringList({ QStringLiteral("page will disappear"), QStringLiteral("page did disappear") }));
    EXPECT_EQ(stack.topViewController(), page);
}

TEST_F(SwipeBack, movesTheBarWithAPageThatHasASearchField)
{
    auto* search = new LifeRecorder(QStringLiteral("search"), moments);
    search->navigationItem()->setSearchController(new kit::SearchController);
    stack.pushViewController(search, Animation::None);
    stack.beginSwipeBack();
    stack.moveSwipeBack(0.25);
    EXPECT_EQ(stack.barHeight(), 44 + 52 * 0.75);
    stack.endSwipeBack(0);
    EXPECT_EQ(stack.barHeight(), 96);
}
