#include "ui/kit/navigation/TabBarController.h"

#include "tests/ui/kit/navigation/LifeRecorder.h"
#include "ui/kit/navigation/NavigationController.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

// Two tabs: the stack of "first" and the stack of "second", of which the second has a search field.
class TabBarControllerTest : public testing::Test
{
protected:
    TabBarControllerTest()
        : first(new kit::NavigationController(new LifeRecorder(QStringLiteral("first"), moments)))
        , second(new kit::NavigationController(new LifeRecorder(QStringLiteral("second"), moments)))
    {
        second->viewControllers().front()->navigationItem()->setSearchController(new kit::SearchController);
        tabs.setViewControllers({ first, second });
    }
    void show()
    {
        tabs.layOut({ 0, 0, 320, 600 });
        tabs.beginAppearance();
        tabs.endAppearance();
        moments.clear();
    }
    kit::SearchBar* searchBar() const
    {
        return second->viewControllers().front()->navigationItem()->searchController()->searchBar();
    }

    QStringList moments;
    kit::NavigationController* first;
    kit::NavigationController* second;
    kit::TabBarController tabs;
};

} // namespace

TEST_F(TabBarControllerTest, selectsItsFirstTabAndOwnsAll)
{
    EXPECT_EQ(tabs.selectedIndex(), 0);
    EXPECT_EQ(tabs.selectedViewController(), first);
    EXPECT_EQ(second->parent(), &tabs);
    EXPECT_EQ(tabs.tabModel()->rowCount(), 2);
}

TEST_F(TabBarControllerTest, loadsAScreenOnlyWhenItsTabIsSelected)
{
    tabs.layOut({ 0, 0, 320, 600 });
    tabs.beginAppearance();
    tabs.endAppearance();
    EXPECT_EQ(taken(moments),
        (QStringList{
            QStringLiteral("first loaded"), QStringLiteral("first will appear"), QStringLiteral("first did appear") }));
    EXPECT_FALSE(second->isViewLoaded());
    tabs.setSelectedIndex(1);
    EXPECT_TRUE(second->isViewLoaded());
    EXPECT_EQ(second->view()->frame(), QRectF(0, 0, 320, 551));
}

TEST_F(TabBarControllerTest, letsTheOldTabGoAndTheNewOneCome)
{
    show();
    tabs.tapTab(1);
    EXPECT_EQ(taken(moments),
        (QStringList{ QStringLiteral("second loaded"), QStringLiteral("first will disappear"),
            QStringLiteral("second will appear"), QStringLiteral("first did disappear"),
            QStringLiteral("second did appear") }));
    tabs.tapTab(0);
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("second will disappear"), QStringLiteral("first will appear"),
            QStringLiteral("second did disappear"), QStringLiteral("first did appear") }));
}

TEST_F(TabBarControllerTest, keepsEachTabsStack)
{
    show();
    first->pushViewController(
        new LifeRecorder(QStringLiteral("deeper"), moments), kit::NavigationController::Animation::None);
    tabs.tapTab(1);
    tabs.tapTab(0);
    EXPECT_EQ(first->topViewController()->objectName(), QStringLiteral("deeper"));
}

TEST_F(TabBarControllerTest, goesBackToTheRootAtASecondTap)
{
    show();
    first->pushViewController(
        new LifeRecorder(QStringLiteral("deeper"), moments), kit::NavigationController::Animation::None);
    tabs.tapTab(0);
    EXPECT_EQ(first->topViewController()->objectName(), QStringLiteral("first"));
    moments.clear();
    tabs.tapTab(0);
    EXPECT_TRUE(moments.isEmpty());
}

TEST_F(TabBarControllerTest, ignoresTabsThatAreNotThere)
{
    show();
    QSignalSpy changed(&tabs, &kit::TabBarController::selectedIndexChanged);
    tabs.setSelectedIndex(2);
    tabs.tapTab(7);
    tabs.setSelectedIndex(-1);
    EXPECT_EQ(tabs.selectedIndex(), 0);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(TabBarControllerTest, givesATabTheSizeThatChangedInItsAbsence)
{
    show();
    tabs.tapTab(1);
    tabs.layOut({ 0, 0, 700, 400 });
    EXPECT_EQ(second->view()->frame(), QRectF(0, 0, 700, 351));
    tabs.tapTab(0);
    EXPECT_EQ(first->view()->frame(), QRectF(0, 0, 700, 351));
}

TEST_F(TabBarControllerTest, goesIntoTheSearchFieldFromAnotherTab)
{
    show();
    tabs.activateSearch();
    EXPECT_EQ(tabs.selectedIndex(), 1);
    EXPECT_TRUE(searchBar()->isActive());
}

TEST_F(TabBarControllerTest, goesIntoTheFirstSearchFieldOfItsTabs)
{
    auto* const own = new kit::SearchController;
    first->viewControllers().front()->navigationItem()->setSearchController(own);
    show();
    tabs.tapTab(1);
    tabs.activateSearch();
    EXPECT_EQ(tabs.selectedIndex(), 0);
    EXPECT_TRUE(own->searchBar()->isActive());
    EXPECT_FALSE(searchBar()->isActive());
}

TEST_F(TabBarControllerTest, goesIntoTheSearchFieldFromAScreenAboveIt)
{
    show();
    tabs.tapTab(1);
    second->pushViewController(
        new LifeRecorder(QStringLiteral("result"), moments), kit::NavigationController::Animation::None);
    tabs.activateSearch();
    EXPECT_EQ(second->topViewController()->objectName(), QStringLiteral("second"));
    EXPECT_TRUE(searchBar()->isActive());
}

TEST_F(TabBarControllerTest, asksForTheFocusAgainWhenSearchIsActiveAlready)
{
    show();
    tabs.activateSearch();
    QSignalSpy asked(searchBar(), &kit::SearchBar::activeChanged);
    tabs.activateSearch();
    EXPECT_TRUE(searchBar()->isActive());
    EXPECT_GE(asked.count(), 1);
}

TEST_F(TabBarControllerTest, staysWhereItIsWithoutASearchField)
{
    second->viewControllers().front()->navigationItem()->setSearchController(nullptr);
    show();
    tabs.activateSearch();
    EXPECT_EQ(tabs.selectedIndex(), 0);
}

TEST_F(TabBarControllerTest, passesItsOwnDisappearanceOnToTheSelectedTab)
{
    show();
    tabs.beginDisappearance();
    tabs.endDisappearance();
    EXPECT_EQ(
        taken(moments), (QStringList{ QStringLiteral("first will disappear"), QStringLiteral("first did disappear") }));
    tabs.tapTab(1);
    EXPECT_EQ(taken(moments), QStringList{ QStringLiteral("second loaded") });
    tabs.beginAppearance();
    tabs.endAppearance();
    EXPECT_EQ(moments, (QStringList{ QStringLiteral("second will appear"), QStringLiteral("second did appear") }));
}

TEST_F(TabBarControllerTest, putsOtherTabsInTheirPlaceAndKeepsThoseThatStay)
{
    show();
    const QPointer<kit::ViewController> gone(first);
    auto* const third = new kit::NavigationController(new LifeRecorder(QStringLiteral("third"), moments));
    tabs.setViewControllers({ second, third });
    EXPECT_EQ(taken(moments),
        (QStringList{ QStringLiteral("first will disappear"), QStringLiteral("first did disappear"),
            QStringLiteral("second loaded"), QStringLiteral("second will appear"),
            QStringLiteral("second did appear") }));
    EXPECT_EQ(tabs.tabModel()->objects(), (QList<QObject*>{ second, third }));
    EXPECT_EQ(tabs.selectedViewController(), second);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
    EXPECT_EQ(second->parent(), &tabs);
}

TEST_F(TabBarControllerTest, canBeLeftWithoutTabs)
{
    show();
    tabs.setViewControllers({});
    EXPECT_EQ(tabs.selectedIndex(), -1);
    EXPECT_EQ(tabs.selectedViewController(), nullptr);
    EXPECT_EQ(tabs.tabModel()->rowCount(), 0);
    tabs.layOut({ 0, 0, 500, 500 });
    tabs.beginDisappearance();
    tabs.endDisappearance();
}

TEST_F(TabBarControllerTest, showsTabsThatCameAfterItHadNone)
{
    show();
    tabs.setViewControllers({});
    taken(moments);
    tabs.setViewControllers({ new kit::NavigationController(new LifeRecorder(QStringLiteral("third"), moments)) });
    EXPECT_EQ(tabs.selectedIndex(), 0);
    EXPECT_EQ(moments,
        (QStringList{
            QStringLiteral("third loaded"), QStringLiteral("third will appear"), QStringLiteral("third did appear") }));
}

TEST_F(TabBarControllerTest, loadsNothingByASelectionBeforeItIsShown)
{
    tabs.setSelectedIndex(1);
    EXPECT_FALSE(tabs.isViewLoaded());
    EXPECT_FALSE(second->isViewLoaded());
    EXPECT_TRUE(moments.isEmpty());
}

TEST_F(TabBarControllerTest, leavesATabNoHeightInAWindowThatIsLowerThanItsBar)
{
    tabs.layOut({ 0, 0, 320, 20 });
    EXPECT_EQ(first->view()->height(), 0);
}

namespace {

class SearchingScreen : public kit::ViewController
{
public:
    void viewDidLoad() override { navigationItem()->setSearchController(new kit::SearchController); }
};

} // namespace

TEST_F(TabBarControllerTest, staysAsItIsWhenItsTabIsSelectedAgain)
{
    show();
    const QSignalSpy changed(&tabs, &kit::TabBarController::selectedIndexChanged);
    tabs.setSelectedIndex(0);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_TRUE(moments.isEmpty());
}

TEST_F(TabBarControllerTest, holdsScreensThatAreInNoStackToo)
{
    auto* const searching = new SearchingScreen;
    tabs.setViewControllers({ new LifeRecorder(QStringLiteral("alone"), moments), searching });
    show();
    tabs.tapTab(0);
    EXPECT_EQ(tabs.selectedIndex(), 0);
    EXPECT_TRUE(moments.isEmpty());
    tabs.activateSearch();
    EXPECT_EQ(tabs.selectedIndex(), 1);
    EXPECT_TRUE(searching->navigationItem()->searchController()->searchBar()->isActive());
}

TEST_F(TabBarControllerTest, findsTheSearchFieldOfAScreenThatWasNeverShown)
{
    auto* const searching = new SearchingScreen;
    tabs.setViewControllers({ first, new kit::NavigationController(searching) });
    show();
    tabs.activateSearch();
    EXPECT_EQ(tabs.selectedIndex(), 1);
    ASSERT_NE(searching->navigationItem()->searchController(), nullptr);
    EXPECT_TRUE(searching->navigationItem()->searchController()->searchBar()->isActive());
}

TEST_F(TabBarControllerTest, tellsThatNoTabIsSelectedAnyMore)
{
    const QSignalSpy changed(&tabs, &kit::TabBarController::selectedIndexChanged);
    tabs.setViewControllers({});
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(TabBarControllerTest, tellsHowMuchOfItIsCoveredBelow)
{
    show();
    const QSignalSpy changed(&tabs, &kit::TabBarController::heightBelowChanged);
    tabs.setCoveredBelow(200);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(first->view()->frame(), QRectF(0, 0, 320, 400));
}

TEST(EmptyTabBarController, hasNothingSelected)
{
    kit::TabBarController tabs;
    tabs.setViewControllers({});
    tabs.layOut({ 0, 0, 320, 600 });
    tabs.beginAppearance();
    tabs.endAppearance();
    EXPECT_EQ(tabs.selectedViewController(), nullptr);
    tabs.activateSearch();
    tabs.tapTab(0);
    EXPECT_EQ(tabs.selectedIndex(), -1);
}

namespace {

using Layout = kit::TabBar::Layout;

Layout layoutIn(const QSizeF& window)
{
    kit::TabBar bar;
    bar.fitInto(window);
    return bar.layout();
}

kit::TabItemAppearance itemsOfColor(const kit::Color& color)
{
    return { { color, { color, kit::Font::boldSystemFont(10) } }, { color, { color, kit::Font::boldSystemFont(10) } } };
}

} // namespace

TEST(TheTabBar, hasTitlesBesideItsSymbolsInAWideWindow)
{
    EXPECT_EQ(layoutIn({ 390, 844 }), Layout::Stacked);
    EXPECT_EQ(layoutIn({ 768, 1024 }), Layout::Inline);
    EXPECT_EQ(layoutIn({ 1280, 720 }), Layout::Inline);
    EXPECT_EQ(layoutIn({ 600, 480 }), Layout::Inline);
    EXPECT_EQ(layoutIn({ 599, 480 }), Layout::Stacked);
}

TEST(TheTabBar, isCompactOnAPhoneOnItsSide)
{
    EXPECT_EQ(layoutIn({ 568, 320 }), Layout::CompactInline);
    EXPECT_EQ(layoutIn({ 844, 390 }), Layout::CompactInline);
    EXPECT_EQ(layoutIn({ 480, 479 }), Layout::CompactInline);
    EXPECT_EQ(layoutIn({ 600, 479 }), Layout::CompactInline);
    EXPECT_EQ(layoutIn({ 479, 479 }), Layout::Stacked);
    EXPECT_EQ(layoutIn({ 390, 290 }), Layout::Stacked) << "where titles have no room beside the symbols";
}

TEST(TheTabBar, looksAsItsAppearanceTellsForEachLayout)
{
    kit::TabBarAppearance appearance;
    appearance.stackedLayoutAppearance = itemsOfColor(kit::Color::white());
    appearance.inlineLayoutAppearance = itemsOfColor(kit::Color::black());
    appearance.compactInlineLayoutAppearance = itemsOfColor(kit::Color::black(0.5));
    kit::TabBar bar;
    const QSignalSpy changes(&bar, &kit::TabBar::barChanged);
    bar.setStandardAppearance(appearance);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(bar.iconColor(), QColor(Qt::white));
    bar.fitInto({ 1280, 720 });
    EXPECT_EQ(bar.iconColor(), QColor(Qt::black));
    bar.fitInto({ 844, 390 });
    EXPECT_EQ(bar.selectedTitleColor(), kit::Color::black(0.5).toQColor());
}

TEST_F(TabBarControllerTest, laysItsTabsOutAnewWhenTheWindowTurns)
{
    tabs.layOut({ 0, 0, 390, 844 });
    const QSignalSpy changes(tabs.tabBar(), &kit::TabBar::barChanged);
    tabs.layOut({ 0, 0, 844, 390 });
    EXPECT_EQ(tabs.tabBar()->layout(), Layout::CompactInline);
    EXPECT_EQ(changes.count(), 1);
}
