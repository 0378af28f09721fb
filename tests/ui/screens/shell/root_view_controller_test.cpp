#include "ui/screens/shell/RootViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/CategoriesViewController.h"
#include "ui/screens/browse/SearchViewController.h"
#include "ui/screens/browse/VeskHomeViewController.h"
#include "ui/screens/browse/WhatsNewViewController.h"
#include "ui/screens/manage/ManageViewController.h"

namespace {

class RootScreen : public ScreenTest
{
protected:
    RootScreen()
    {
        addPackage(QStringLiteral("Alpha"));
        root.layOut({ 0, 0, 390, 844 });
    }

    kit::NavigationController* tab(size_t index) const
    {
        return qobject_cast<kit::NavigationController*>(root.viewControllers()[index]);
    }
    void expectTab(size_t index, const QString& title, const QString& symbol) const
    {
        const kit::TabBarItem* item = tab(index)->tabBarItem();
        EXPECT_EQ(item->title(), title);
        EXPECT_EQ(item->image(), kit::Image::systemNamed(symbol));
        EXPECT_FALSE(item->image().isNull());
        EXPECT_EQ(tab(index)->topViewController()->tabBarItem(), item);
    }
    template <typename Screen> bool hosts(size_t index) const
    {
        return tab(index)->viewControllers().size() == 1 && qobject_cast<Screen*>(tab(index)->topViewController());
    }

    RootViewController root{ *manager, *installer };
};

} // namespace

TEST_F(RootScreen, hasFiveTabsInTheirOrder)
{
    ASSERT_EQ(root.viewControllers().size(), 5U);
    expectTab(0, QStringLiteral("Vesk"), QStringLiteral("house.fill"));
    expectTab(1, QStringLiteral("Changes"), QStringLiteral("arrow.up.arrow.down"));
    expectTab(2, QStringLiteral("Categories"), QStringLiteral("square.grid.2x2"));
    expectTab(3, QStringLiteral("Search"), QStringLiteral("magnifyingglass"));
    expectTab(4, QStringLiteral("Manage"), QStringLiteral("gearshape"));
}

TEST_F(RootScreen, hostsEachScreenInAStackOfItsOwn)
{
    EXPECT_TRUE(hosts<VeskHomeViewController>(0));
    EXPECT_TRUE(hosts<WhatsNewViewController>(1));
    EXPECT_TRUE(hosts<CategoriesViewController>(2));
    EXPECT_TRUE(hosts<SearchViewController>(3));
    EXPECT_TRUE(hosts<ManageViewController>(4));
}

TEST_F(RootScreen, startsAtTheFirstTab)
{
    EXPECT_EQ(root.selectedIndex(), 0);
}

TEST_F(RootScreen, keepsTheTitleOfATabApartFromThatOfItsScreen)
{
    EXPECT_EQ(tab(0)->topViewController()->title(), QStringLiteral("Welcome to Vesk"));
    EXPECT_EQ(tab(0)->tabBarItem()->title(), QStringLiteral("Vesk"));
}

TEST_F(RootScreen, stylesEveryTabsNavigationBarAndTheTabBar)
{
    for (size_t index = 0; index < 5; ++index) {
        EXPECT_EQ(tab(index)->navigationBar()->barStyle(), kit::BarStyle::Black);
        EXPECT_EQ(tab(index)->navigationBar()->standardAppearance().backgroundColor,
            ClassicUI::colorWithRed(100, 123, 151, 1));
    }
    EXPECT_EQ(root.tabBar()->tintColor(), ClassicUI::veskOrangeColor());
    EXPECT_EQ(root.tabBar()->standardAppearance().backgroundColor, ClassicUI::colorWithRed(77, 91, 109, 1));
}

TEST_F(RootScreen, keepsTheStyleOfATabsBarForThePushedScreens)
{
    auto* const pushed = new kit::ViewController;
    tab(1)->pushViewController(pushed, kit::NavigationController::Animation::None);
    ASSERT_EQ(pushed->navigationController(), tab(1));
    const kit::BarAppearance& appearance = pushed->navigationController()->navigationBar()->standardAppearance();
    EXPECT_EQ(appearance.backgroundColor, ClassicUI::colorWithRed(100, 123, 151, 1));
    EXPECT_EQ(appearance.backgroundImage, ClassicUI::stretchableAsset(QStringLiteral("topfade"), { 0, 8, 0, 8 }));
}

TEST_F(RootScreen, wantsLightStatusBarTexts)
{
    EXPECT_EQ(root.preferredStatusBarStyle(), StatusBarStyle::LightContent);
}

TEST_F(RootScreen, makesItsTabsOnce)
{
    const auto tabs = root.viewControllers();
    root.layOut({ 0, 0, 844, 390 });
    root.beginAppearance();
    root.endAppearance();
    EXPECT_EQ(root.viewControllers(), tabs);
}

TEST_F(RootScreen, startsNoRefreshByItself)
{
    EXPECT_TRUE(network->requestedURLs().isEmpty());
    EXPECT_FALSE(manager->isLoading());
}
