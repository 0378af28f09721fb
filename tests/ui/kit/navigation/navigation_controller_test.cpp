#include "ui/kit/navigation/NavigationController.h"

#include "tests/ui/kit/navigation/LifeRecorder.h"
#include "ui/kit/paint/Animations.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

namespace {

using Animation = kit::NavigationController::Animation;

// A stack of 320 by 600 points that a person sees, with the root screen "root".
class NavigationControllerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        stack.layOut({ 0, 0, 320, 600 });
        stack.beginAppearance();
        stack.endAppearance();
        moments.clear();
    }
    void TearDown() override { kit::Animations::setEnabled(false); }

    LifeRecorder* screen(const QString& name) { return new LifeRecorder(name, moments); }
    void push(const QString& name, Animation animation = Animation::None)
    {
        stack.pushViewController(screen(name), animation);
    }
    static void deleteWhatIsToGo() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QStringList moments;
    kit::NavigationController stack{ new LifeRecorder(QStringLiteral("root"), moments) };
};

} // namespace

TEST_F(NavigationControllerTest, showsItsRootScreenBelowItsBar)
{
    EXPECT_EQ(stack.topViewController()->objectName(), QStringLiteral("root"));
    EXPECT_EQ(stack.topViewController()->view()->frame(), QRectF(0, 44, 320, 556));
    EXPECT_EQ(stack.topViewController()->navigationController(), &stack);
    EXPECT_EQ(stack.topViewController()->parent(), &stack);
    EXPECT_EQ(stack.navigationController(), nullptr);
    EXPECT_FALSE(stack.canGoBack());
}

TEST_F(NavigationControllerTest, passesItsOwnAppearanceOnToTheTopScreen)
{
    stack.beginDisappearance();
    stack.endDisappearance();
    stack.beginAppearance();
    stack.endAppearance();
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("root will disappear"), QStringLiteral("root did disappear"),
            QStringLiteral("root will appear"), QStringLiteral("root did appear") }));
}

TEST_F(NavigationControllerTest, letsTheOldScreenGoAndTheNewOneComeAtAPush)
{
    push(QStringLiteral("second"));
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("root will disappear"), QStringLiteral("second loaded"),
            QStringLiteral("second will appear"), QStringLiteral("root did disappear"),
            QStringLiteral("second did appear") }));
    EXPECT_TRUE(stack.canGoBack());
    EXPECT_EQ(stack.topViewController()->view()->frame(), QRectF(0, 44, 320, 556));
    EXPECT_EQ(stack.topViewController()->navigationController(), &stack);
}

TEST_F(NavigationControllerTest, bringsTheScreenBelowBackAtAPop)
{
    push(QStringLiteral("second"));
    taken(moments);
    stack.popViewController(Animation::None);
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("second will disappear"), QStringLiteral("root will appear"),
            QStringLiteral("second did disappear"), QStringLiteral("root did appear") }));
}

TEST_F(NavigationControllerTest, deletesAScreenOnceItIsOutOfSight)
{
    const QPointer<kit::ViewController> second(screen(QStringLiteral("second")));
    stack.pushViewController(second, Animation::None);
    stack.popViewController(Animation::None);
    EXPECT_FALSE(second.isNull());
    EXPECT_EQ(second->navigationController(), nullptr);
    deleteWhatIsToGo();
    EXPECT_TRUE(second.isNull());
    EXPECT_EQ(stack.pageModel()->rowCount(), 1);
}

TEST_F(NavigationControllerTest, keepsItsRoot)
{
    stack.popViewController(Animation::None);
    stack.popToRootViewController(Animation::None);
    EXPECT_EQ(stack.viewControllers().size(), 1U);
    EXPECT_TRUE(moments.isEmpty());
}

TEST_F(NavigationControllerTest, passesOverTheScreensBetweenOnItsWayToTheRoot)
{
    push(QStringLiteral("second"));
    const QPointer<kit::ViewController> second(stack.topViewController());
    push(QStringLiteral("third"));
    const QPointer<kit::ViewController> third(stack.topViewController());
    taken(moments);
    stack.popToRootViewController(Animation::None);
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("third will disappear"), QStringLiteral("root will appear"),
            QStringLiteral("third did disappear"), QStringLiteral("root did appear") }));
    deleteWhatIsToGo();
    EXPECT_TRUE(second.isNull());
    EXPECT_TRUE(third.isNull());
}

TEST_F(NavigationControllerTest, namesTheBackButtonAfterTheScreenBelow)
{
    EXPECT_TRUE(stack.topViewController()->backTitle().isNull());
    push(QStringLiteral("second"));
    EXPECT_EQ(stack.topViewController()->backTitle(), QStringLiteral("root"));
    push(QStringLiteral("third"));
    EXPECT_EQ(stack.topViewController()->backTitle(), QStringLiteral("second"));
}

TEST_F(NavigationControllerTest, hasABackButtonAlsoOverAScreenWithoutATitle)
{
    push(QString());
    push(QStringLiteral("third"));
    EXPECT_FALSE(stack.topViewController()->backTitle().isEmpty());
}

TEST_F(NavigationControllerTest, holdsBothScreensDuringATransition)
{
    kit::Animations::setEnabled(true);
    push(QStringLiteral("second"), Animation::Animated);
    EXPECT_TRUE(stack.isTransitioning());
    EXPECT_TRUE(stack.isPushing());
    EXPECT_EQ(stack.leavingViewController()->objectName(), QStringLiteral("root"));
    EXPECT_LT(stack.progress(), 1);
    EXPECT_EQ(taken(moments),
        (QStringList{ QStringLiteral("root will disappear"), QStringLiteral("second loaded"),
            QStringLiteral("second will appear") }));
    QSignalSpy changed(&stack, &kit::NavigationController::stackChanged);
    ASSERT_TRUE(changed.wait());
    EXPECT_FALSE(stack.isTransitioning());
    EXPECT_EQ(stack.progress(), 1);
    EXPECT_EQ(moments, (QStringList{ QStringLiteral("root did disappear"), QStringLiteral("second did appear") }));
}

TEST_F(NavigationControllerTest, endsARunningTransitionBeforeTheNextPush)
{
    kit::Animations::setEnabled(true);
    push(QStringLiteral("second"), Animation::Animated);
    taken(moments);
    push(QStringLiteral("third"), Animation::Animated);
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("root did disappear"), QStringLiteral("second did appear"),
            QStringLiteral("second will disappear"), QStringLiteral("third loaded"),
            QStringLiteral("third will appear") }));
    EXPECT_EQ(stack.viewControllers().size(), 3U);
    EXPECT_EQ(stack.leavingViewController()->objectName(), QStringLiteral("second"));
}

TEST_F(NavigationControllerTest, goesBackFromAPushThatIsNotOverYet)
{
    kit::Animations::setEnabled(true);
    push(QStringLiteral("second"), Animation::Animated);
    taken(moments);
    stack.goBack();
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("root did disappear"), QStringLiteral("second did appear"),
            QStringLiteral("second will disappear"), QStringLiteral("root will appear") }));
    EXPECT_FALSE(stack.isPushing());
    EXPECT_EQ(stack.viewControllers().size(), 1U);
    stack.goBack();
    EXPECT_FALSE(stack.isTransitioning());
    EXPECT_EQ(stack.topViewController()->objectName(), QStringLiteral("root"));
}

TEST_F(NavigationControllerTest, doesNotWaitForATransitionWhenItDisappearsItself)
{
    kit::Animations::setEnabled(true);
    push(QStringLiteral("second"), Animation::Animated);
    taken(moments);
    stack.beginDisappearance();
    stack.endDisappearance();
    EXPECT_FALSE(stack.isTransitioning());
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("root did disappear"), QStringLiteral("second did appear"),
            QStringLiteral("second will disappear"), QStringLiteral("second did disappear") }));
}

TEST_F(NavigationControllerTest, tellsAScreenThatWasPushedOutOfSightWhenTheStackAppears)
{
    stack.beginDisappearance();
    stack.endDisappearance();
    taken(moments);
    push(QStringLiteral("second"), Animation::Animated);
    EXPECT_EQ(taken(moments), QStringList{ QStringLiteral("second loaded") });
    stack.beginAppearance();
    stack.endAppearance();
    EXPECT_EQ(moments, (QStringList{ QStringLiteral("second will appear"), QStringLiteral("second did appear") }));
}

TEST_F(NavigationControllerTest, canBeDeletedDuringATransition)
{
    kit::Animations::setEnabled(true);
    auto shortLived = std::make_unique<kit::NavigationController>(screen(QStringLiteral("first")));
    shortLived->layOut({ 0, 0, 320, 600 });
    shortLived->beginAppearance();
    shortLived->endAppearance();
    shortLived->pushViewController(screen(QStringLiteral("next")), Animation::Animated);
    shortLived->popViewController(Animation::Animated);
    ASSERT_TRUE(shortLived->isTransitioning());
    shortLived.reset();
    deleteWhatIsToGo();
}

TEST_F(NavigationControllerTest, raisesItsBarForASearchField)
{
    LifeRecorder* search = screen(QStringLiteral("search"));
    search->navigationItem()->setSearchController(new kit::SearchController);
    stack.pushViewController(search, Animation::None);
    EXPECT_EQ(stack.barHeight(), 96);
    EXPECT_EQ(search->view()->frame(), QRectF(0, 96, 320, 504));
    stack.popViewController(Animation::None);
    EXPECT_EQ(stack.barHeight(), 44);
}

TEST_F(NavigationControllerTest, laysItsScreensOutInItsNewSize)
{
    push(QStringLiteral("second"));
    stack.layOut({ 0, 0, 600, 320 });
    EXPECT_EQ(stack.topViewController()->view()->frame(), QRectF(0, 44, 600, 276));
    stack.popViewController(Animation::None);
    EXPECT_EQ(stack.topViewController()->view()->frame(), QRectF(0, 44, 600, 276));
    stack.layOut({ 0, 0, 600, 20 });
    EXPECT_EQ(stack.topViewController()->view()->height(), 0);
}

TEST_F(NavigationControllerTest, standsForItsRootScreenInATabBar)
{
    stack.topViewController()->tabBarItem()->setTitle(QStringLiteral("Tab"));
    push(QStringLiteral("second"));
    EXPECT_EQ(stack.tabBarItem()->title(), QStringLiteral("Tab"));
}

TEST_F(NavigationControllerTest, pushesAfterThePushInWhichAScreenAskedForIt)
{
    LifeRecorder* const second = screen(QStringLiteral("second"));
    second->atWillAppear = [this] { push(QStringLiteral("third")); };
    stack.pushViewController(second, Animation::None);
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("root will disappear"), QStringLiteral("second loaded"),
            QStringLiteral("second will appear"), QStringLiteral("root did disappear"),
            QStringLiteral("second did appear"), QStringLiteral("second will disappear"),
            QStringLiteral("third loaded"), QStringLiteral("third will appear"), QStringLiteral("second did disappear"),
            QStringLiteral("third did appear") }));
    EXPECT_EQ(stack.viewControllers().size(), 3U);
    EXPECT_EQ(stack.topViewController()->backTitle(), QStringLiteral("second"));
    EXPECT_FALSE(stack.isTransitioning());
}

TEST_F(NavigationControllerTest, goesBackAfterThePushInWhichAScreenAskedForIt)
{
    LifeRecorder* const second = screen(QStringLiteral("second"));
    second->atWillAppear = [this] { stack.popViewController(Animation::None); };
    stack.pushViewController(second, Animation::None);
    EXPECT_EQ(stack.viewControllers().size(), 1U);
    EXPECT_EQ(moments.mid(moments.size() - 4),
        (QStringList{ QStringLiteral("second will disappear"), QStringLiteral("root will appear"),
            QStringLiteral("second did disappear"), QStringLiteral("root did appear") }));
    EXPECT_EQ(stack.pageModel()->rowCount(), 1);
    EXPECT_EQ(stack.progress(), 1) << "the root stands where it belongs";
}

TEST_F(NavigationControllerTest, deletesAScreenThatPushesAnotherAsItGoes)
{
    LifeRecorder* const second = screen(QStringLiteral("second"));
    const QPointer<kit::ViewController> watched(second);
    second->atDidDisappear = [this] { push(QStringLiteral("third")); };
    stack.pushViewController(second, Animation::None);
    stack.popViewController(Animation::None);
    EXPECT_EQ(stack.topViewController()->objectName(), QStringLiteral("third"));
    EXPECT_EQ(stack.topViewController()->backTitle(), QStringLiteral("root"));
    deleteWhatIsToGo();
    EXPECT_TRUE(watched.isNull());
    EXPECT_EQ(stack.pageModel()->rowCount(), 2);
}

TEST_F(NavigationControllerTest, doesNotTellTheNextScreenThatItAppearedBeforeItDid)
{
    kit::Animations::setEnabled(true);
    LifeRecorder* const second = screen(QStringLiteral("second"));
    second->atWillAppear = [this] { push(QStringLiteral("third"), Animation::Animated); };
    stack.pushViewController(second, Animation::Animated);
    EXPECT_EQ(stack.topViewController()->objectName(), QStringLiteral("third"));
    EXPECT_TRUE(stack.isTransitioning());
    EXPECT_FALSE(moments.contains(QStringLiteral("third did appear")));
    EXPECT_TRUE(moments.contains(QStringLiteral("second did appear")));
}

TEST_F(NavigationControllerTest, laysTheScreenThatLeavesOutInItsNewSizeToo)
{
    kit::Animations::setEnabled(true);
    push(QStringLiteral("second"), Animation::Animated);
    stack.layOut({ 0, 0, 600, 320 });
    ASSERT_TRUE(stack.isTransitioning());
    EXPECT_EQ(stack.leavingViewController()->view()->frame(), QRectF(0, 44, 600, 276));
    EXPECT_EQ(stack.topViewController()->view()->frame(), QRectF(0, 44, 600, 276));
}

TEST_F(NavigationControllerTest, tellsOfTheScreenThatComesAsItsMovementBegins)
{
    kit::Animations::setEnabled(true);
    const QSignalSpy changed(&stack, &kit::NavigationController::stackChanged);
    push(QStringLiteral("second"), Animation::Animated);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_TRUE(stack.isTransitioning());
}

TEST_F(NavigationControllerTest, staysAtItsEndOnceItWasBroughtThereBeforeItsTime)
{
    kit::Animations::setEnabled(true);
    push(QStringLiteral("second"), Animation::Animated);
    stack.popViewController(Animation::None);
    const QSignalSpy moved(&stack, &kit::NavigationController::progressChanged);
    kit::NavigationController other(new kit::ViewController);
    other.beginAppearance();
    other.endAppearance();
    other.pushViewController(new kit::ViewController, Animation::Animated);
    QSignalSpy changed(&other, &kit::NavigationController::stackChanged);
    ASSERT_TRUE(changed.wait()) << "a movement that began later is over";
    EXPECT_EQ(stack.progress(), 1);
    EXPECT_EQ(moved.count(), 0);
}

TEST_F(NavigationControllerTest, keepsItsRootAndTheScreenThatLeavesOnTheWayToTheRoot)
{
    kit::Animations::setEnabled(true);
    push(QStringLiteral("second"));
    push(QStringLiteral("third"));
    const QPointer<kit::ViewController> root(stack.viewControllers()[0]);
    const QPointer<kit::ViewController> second(stack.viewControllers()[1]);
    const QPointer<kit::ViewController> third(stack.viewControllers()[2]);
    stack.popToRootViewController(Animation::Animated);
    deleteWhatIsToGo();
    EXPECT_TRUE(second.isNull());
    ASSERT_FALSE(third.isNull()) << "it is still seen as it leaves";
    EXPECT_TRUE(stack.pageModel()->objects().contains(third));
    ASSERT_FALSE(root.isNull());
    EXPECT_TRUE(stack.pageModel()->objects().contains(root));
    EXPECT_EQ(root->navigationController(), &stack);
}

TEST_F(NavigationControllerTest, endsARunningTransitionOnTheWayToTheRoot)
{
    kit::Animations::setEnabled(true);
    push(QStringLiteral("second"));
    push(QStringLiteral("third"), Animation::Animated);
    taken(moments);
    stack.popToRootViewController(Animation::None);
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("second did disappear"), QStringLiteral("third did appear"),
            QStringLiteral("third will disappear"), QStringLiteral("root will appear"),
            QStringLiteral("third did disappear"), QStringLiteral("root did appear") }));
}

namespace {

// A screen that makes its search field as it is loaded, as they all do.
class SearchingScreen : public kit::ViewController
{
public:
    void viewDidLoad() override { navigationItem()->setSearchController(new kit::SearchController); }
};

} // namespace

TEST(HiddenNavigationController, laysAScreenOutBelowTheSearchFieldThatItMakesWhenItIsLoaded)
{
    kit::NavigationController stack(new SearchingScreen);
    stack.layOut({ 0, 0, 320, 600 });
    EXPECT_EQ(stack.barHeight(), 96);
    EXPECT_EQ(stack.topViewController()->view()->frame(), QRectF(0, 96, 320, 504));
}

TEST(TheNavigationBar, tellsWhenItLooksAnotherWay)
{
    kit::NavigationBar bar;
    const QSignalSpy changed(&bar, &kit::NavigationBar::barChanged);
    bar.setTintColor(kit::Color::black());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(bar.tint(), QColor(Qt::black));
    kit::BarAppearance appearance;
    appearance.shadowColor = kit::Color::white();
    bar.setStandardAppearance(appearance);
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(bar.shadowColor(), QColor(Qt::white));
}
