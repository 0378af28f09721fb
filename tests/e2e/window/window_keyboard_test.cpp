// The whole window by the keyboard alone.
#include "tests/e2e/window/WindowTest.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/navigation/SearchController.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/kit/view/Switch.h"

namespace {

class Keyboard : public WindowTest
{
protected:
    bool reaches(const QString& title)
    {
        return touch->waitUntil([&] { return touch->title() == title && !touch->stack().isTransitioning(); }, 5000);
    }
    // The name of the control that has the keyboard.
    QString focused() const
    {
        QQuickItem* item = touch->quickWindow().activeFocusItem();
        QAccessibleInterface* interface = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
        return interface ? interface->text(QAccessible::Name) : QString();
    }
    // Goes round the controls by Tab until the wanted one has the keyboard.
    bool tabTo(QQuickItem* control)
    {
        constexpr int MostControls = 40;
        for (int step = 0; step < MostControls && control; ++step) {
            if (control->hasActiveFocus())
                return true;
            touch->key(Qt::Key_Tab);
        }
        return false;
    }
    // Types a name that is not in sight, and tells which row has the keyboard then.
    QString typedTo(const QString& name)
    {
        const kit::IndexPath first = table().indexPathsForVisibleRows().front();
        table().rowFocus()->moveTo(first.section, first.row);
        touch->type(name);
        EXPECT_TRUE(touch->settle());
        return touch->rowText({ table().rowFocus()->section(), table().rowFocus()->row() });
    }
    void openQueueWith(const QStringList& names)
    {
        for (const QString& name : names)
            installer->enqueuePackage(addPackage(name), QueueActionInstall);
        open();
        touch->key(Qt::Key_5, Qt::ControlModifier);
        touch->key(Qt::Key_Down);
        touch->key(Qt::Key_Down);
        touch->key(Qt::Key_Down);
        touch->key(Qt::Key_Return);
        ASSERT_TRUE(reaches(QStringLiteral("Queue")));
    }
};

const QString Home = QStringLiteral("Welcome to Vesk");

} // namespace

TEST_F(Keyboard, opensARowByArrowsAndReturnAndComesBackByEscape)
{
    addPackages(3);
    open();
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Return);
    ASSERT_TRUE(reaches(QStringLiteral("Package 002")));
    touch->key(Qt::Key_Escape);
    EXPECT_TRUE(reaches(Home));
}

TEST_F(Keyboard, comesBackByAltLeft)
{
    addPackages(3);
    open();
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Return);
    ASSERT_TRUE(reaches(QStringLiteral("Package 001")));
    touch->key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(reaches(Home));
}

TEST_F(Keyboard, scrollsTheFocusedRowIntoViewAndToTheEnd)
{
    addPackages(60);
    open();
    touch->key(Qt::Key_2, Qt::ControlModifier);
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_End);
    ASSERT_TRUE(touch->settle());
    EXPECT_EQ(touch->rowText({ 0, 59 }), QStringLiteral("Package 060"));
    touch->key(Qt::Key_Return);
    EXPECT_TRUE(reaches(QStringLiteral("Package 060")));
    touch->key(Qt::Key_Escape);
    ASSERT_TRUE(reaches(QStringLiteral("Changes")));
    touch->key(Qt::Key_Home);
    ASSERT_TRUE(touch->settle());
    EXPECT_EQ(table().contentOffset(), 0);
}

TEST_F(Keyboard, goesToEachTabByItsNumber)
{
    addPackages(3);
    open();
    const QStringList titles{ Home, QStringLiteral("Changes"), QStringLiteral("Categories"), QStringLiteral("Search"),
        QStringLiteral("Manage") };
    for (int tab = 4; tab >= 0; --tab) {
        touch->key(static_cast<Qt::Key>(Qt::Key_1 + tab), Qt::ControlModifier);
        EXPECT_TRUE(reaches(titles[tab])) << tab;
        EXPECT_EQ(touch->tabs().selectedIndex(), tab);
    }
}

TEST_F(Keyboard, searchesFromAnywhere)
{
    addPackages(12);
    open();
    touch->key(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(reaches(QStringLiteral("Search")));
    touch->type(QStringLiteral("010"));
    EXPECT_EQ(touch->headerText(0), QStringLiteral("SEARCH RESULTS"));
    EXPECT_EQ(touch->rowText({ 0, 0 }), QStringLiteral("Package 010"));
    EXPECT_EQ(table().layout().rowCount(0), 1);
    touch->key(Qt::Key_Escape);
    EXPECT_EQ(touch->headerText(0), QStringLiteral("BROWSE CATEGORIES"));
    EXPECT_FALSE(touch->screen().navigationItem()->searchController()->searchBar()->isActive());
    EXPECT_EQ(touch->title(), QStringLiteral("Search"));
}

TEST_F(Keyboard, opensAResultFromTheSearchField)
{
    addPackages(12);
    open();
    touch->key(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(reaches(QStringLiteral("Search")));
    touch->type(QStringLiteral("010"));
    ASSERT_TRUE(tabTo(touch->itemFor(&table())));
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Return);
    EXPECT_TRUE(reaches(QStringLiteral("Package 010")));
}

TEST_F(Keyboard, reloadsByF5)
{
    addPackages(3);
    network->hold();
    open();
    touch->key(Qt::Key_F5);
    EXPECT_TRUE(touch->waitUntil([&] { return network->requestedURLs().size() == 1; }, 5000));
    EXPECT_TRUE(table().refreshControl()->isRefreshing());
    EXPECT_FALSE(touch->barButton(QStringLiteral("Reload"))->isEnabled());
    touch->key(Qt::Key_F5);
    EXPECT_EQ(network->requestedURLs().size(), 1);
    network->release();
    EXPECT_TRUE(touch->waitUntil([&] { return !table().refreshControl()->isRefreshing(); }));
}

TEST_F(Keyboard, deletesTheFocusedRow)
{
    openQueueWith({ QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma") });
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Delete);
    EXPECT_EQ(installer->queue().size(), 3U) << "the first only shows the button";
    touch->key(Qt::Key_Delete);
    ASSERT_EQ(installer->queue().size(), 2U);
    EXPECT_EQ(touch->rowText({ 0, 0 }), QStringLiteral("Alpha"));
    EXPECT_EQ(touch->rowText({ 0, 1 }), QStringLiteral("Gamma"));
}

TEST_F(Keyboard, deletesNothingWhereNothingCanBeDeleted)
{
    addPackages(3);
    open();
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Delete);
    EXPECT_EQ(table().layout().rowCount(0), 3);
}

TEST_F(Keyboard, closesAnAlertByReturnAndByEscape)
{
    addPackages(3);
    open();
    for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Escape }) {
        ASSERT_TRUE(touch->pressByScreenReader(touch->barButton(QStringLiteral("About"))));
        ASSERT_NE(alert(), nullptr);
        ASSERT_TRUE(touch->settle());
        touch->key(key);
        EXPECT_TRUE(touch->waitUntil([&] { return alert() == nullptr; }, 5000));
        EXPECT_EQ(touch->title(), Home);
    }
}

TEST_F(Keyboard, addsASourceByReturnAndCancelsByEscape)
{
    open();
    touch->key(Qt::Key_5, Qt::ControlModifier);
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Return);
    ASSERT_TRUE(reaches(QStringLiteral("Sources")));
    const std::size_t before = manager->repositories().size();
    ASSERT_TRUE(tabTo(touch->barButton(QStringLiteral("Add"))));
    touch->key(Qt::Key_Return);
    ASSERT_NE(alert(), nullptr);
    touch->type(QStringLiteral("http://127.0.0.1/never"));
    touch->key(Qt::Key_Escape);
    ASSERT_TRUE(touch->waitUntil([&] { return alert() == nullptr; }, 5000));
    EXPECT_EQ(manager->repositories().size(), before);

    ASSERT_TRUE(tabTo(touch->barButton(QStringLiteral("Add"))));
    touch->key(Qt::Key_Return);
    ASSERT_NE(alert(), nullptr);
    touch->type(QStringLiteral("http://127.0.0.1/second"));
    touch->key(Qt::Key_Return);
    ASSERT_TRUE(touch->waitUntil([&] { return manager->repositories().size() == before + 1; }, 5000));
    EXPECT_EQ(manager->repositories().back()->urlString(), QStringLiteral("http://127.0.0.1/second"));
}

TEST_F(Keyboard, reachesTheTabsByTabAndOpensOneByReturn)
{
    addPackages(3);
    open();
    ASSERT_TRUE(tabTo(touch->tabButton(QStringLiteral("Categories"))));
    touch->key(Qt::Key_Return);
    EXPECT_TRUE(reaches(QStringLiteral("Categories")));
}

TEST_F(Keyboard, showsWhichControlHasTheFocus)
{
    addPackages(3);
    open();
    touch->key(Qt::Key_Down);
    ASSERT_TRUE(touch->settle());
    const QImage onARow = touch->picture();
    ASSERT_TRUE(tabTo(touch->tabButton(QStringLiteral("Categories"))));
    ASSERT_TRUE(touch->settle());
    const QImage onATab = touch->picture();
    EXPECT_NE(onATab, onARow);
    touch->key(Qt::Key_Tab);
    ASSERT_TRUE(touch->settle());
    EXPECT_NE(touch->picture(), onATab);
}

TEST_F(Keyboard, staysInTheAlertWhenTabGoesRound)
{
    addPackages(3);
    open();
    ASSERT_TRUE(touch->pressByScreenReader(touch->barButton(QStringLiteral("About"))));
    ASSERT_NE(alert(), nullptr);
    for (int control = 0; control < 8; ++control) {
        touch->key(Qt::Key_Tab);
        EXPECT_NE(focused(), QStringLiteral("Reload"));
        EXPECT_NE(focused(), QStringLiteral("Categories"));
    }
}

TEST_F(Keyboard, reachesNothingBehindAnAlertByAnyShortcut)
{
    openQueueWith({ QStringLiteral("Alpha") });
    network->hold();
    ASSERT_TRUE(touch->pressByScreenReader(touch->barButton(QStringLiteral("Install"))));
    ASSERT_TRUE(touch->waitUntil([&] { return alert() != nullptr; }));
    touch->key(Qt::Key_Delete);
    touch->key(Qt::Key_F5);
    touch->key(Qt::Key_F, Qt::ControlModifier);
    touch->key(Qt::Key_2, Qt::ControlModifier);
    touch->key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_NE(alert(), nullptr);
    EXPECT_EQ(touch->screen().title(), QStringLiteral("Queue"));
    EXPECT_EQ(installer->queue().size(), 1U);
    touch->key(Qt::Key_Return);
    ASSERT_TRUE(touch->waitUntil([&] { return alert() == nullptr; }));
    touch->key(Qt::Key_1, Qt::ControlModifier);
    ASSERT_TRUE(reaches(Home));
    ASSERT_TRUE(touch->pressByScreenReader(touch->barButton(QStringLiteral("About"))));
    touch->key(Qt::Key_F5);
    EXPECT_TRUE(network->requestedURLs().isEmpty());
}

TEST_F(Keyboard, searchesFromEachTabAndFromAPushedScreen)
{
    addPackages(12);
    open();
    for (const Qt::Key tab : { Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5 }) {
        touch->key(tab, Qt::ControlModifier);
        touch->key(Qt::Key_Down);
        touch->key(Qt::Key_Return);
        ASSERT_TRUE(touch->waitUntil([&] { return touch->stack().viewControllers().size() == 2U; }));
        touch->key(Qt::Key_F, Qt::ControlModifier);
        ASSERT_TRUE(reaches(QStringLiteral("Search")));
        touch->type(QStringLiteral("7"));
        EXPECT_EQ(touch->rowText({ 0, 0 }), QStringLiteral("Package 007")) << tab;
        touch->key(Qt::Key_Escape);
        EXPECT_EQ(touch->headerText(0), QStringLiteral("BROWSE CATEGORIES"));
    }
}

TEST_F(Keyboard, deletesAUsersSourceAndNoAvailableOne)
{
    open();
    touch->key(Qt::Key_5, Qt::ControlModifier);
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Return);
    ASSERT_TRUE(reaches(QStringLiteral("Sources")));
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Down);
    ASSERT_EQ(table().rowFocus()->section(), 1);
    touch->key(Qt::Key_Delete);
    EXPECT_EQ(manager->repositories().size(), 1U);
    touch->key(Qt::Key_Up);
    touch->key(Qt::Key_Delete);
    touch->key(Qt::Key_Delete);
    EXPECT_TRUE(manager->repositories().empty());
    EXPECT_EQ(table().layout().rowCount(0), 0);
    touch->key(Qt::Key_Delete);
    EXPECT_EQ(table().layout().rowCount(1), 4);
}

TEST_F(Keyboard, goesOnToTheListWhenTheSearchIsCancelled)
{
    addPackages(12);
    open();
    touch->key(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(reaches(QStringLiteral("Search")));
    touch->key(Qt::Key_Escape);
    EXPECT_EQ(table().rowFocus()->row(), -1);
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Return);
    EXPECT_TRUE(reaches(QStringLiteral("Section 1")));
}

TEST_F(Keyboard, marksTheFirstResultByReturnInTheSearchField)
{
    addPackages(12);
    open();
    touch->key(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(reaches(QStringLiteral("Search")));
    touch->type(QStringLiteral("Package"));
    touch->key(Qt::Key_Return);
    EXPECT_EQ(table().rowFocus()->row(), 0);
    touch->key(Qt::Key_Return);
    EXPECT_TRUE(reaches(QStringLiteral("Package 001")));
}

TEST_F(Keyboard, goesBackToTheRootByTheNumberOfTheTabThatShows)
{
    addPackages(3);
    open();
    touch->key(Qt::Key_Down);
    touch->key(Qt::Key_Return);
    ASSERT_TRUE(reaches(QStringLiteral("Package 001")));
    touch->key(Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(reaches(Home));
}

TEST_F(Keyboard, showsThatTheListHasTheFocusBeforeAnyOfItsRowsHas)
{
    addPackages(3);
    open();
    ASSERT_TRUE(touch->settle());
    const QImage unmarked = touch->picture();
    touch->key(Qt::Key_Tab);
    ASSERT_TRUE(tabTo(touch->itemFor(&table())));
    ASSERT_TRUE(touch->settle());
    EXPECT_EQ(table().rowFocus()->row(), -1);
    EXPECT_NE(touch->picture(), unmarked);
    const QPoint edge(195, touch->quickWindow().height() - 49 - 3);
    EXPECT_NE(touch->picture().pixelColor(edge), unmarked.pixelColor(edge));
}

TEST_F(Keyboard, findsByItsFirstLettersWhatIsNotInSight)
{
    addPackages(60);
    for (int number = 1; number <= 30; ++number)
        addInstalledPackage(QStringLiteral("Installed %1").arg(number), QStringLiteral("1.0"), QStringLiteral("1.0"));
    open();
    touch->key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(typedTo(QStringLiteral("package 055")), QStringLiteral("Package 055"));
    touch->key(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(typedTo(QStringLiteral("installed 28")), QStringLiteral("Installed 28"));
    EXPECT_EQ(typedTo(QStringLiteral("installed a")), QStringLiteral("Installed Apps")) << "scrolled out of sight";
    touch->key(Qt::Key_Return);
    ASSERT_TRUE(reaches(QStringLiteral("Installed Apps")));
    EXPECT_EQ(typedTo(QStringLiteral("installed 29")), QStringLiteral("Installed 29"));
}

TEST_F(Keyboard, findsWhatIsNotInSightAmongCategoriesAndResultsToo)
{
    for (int number = 1; number <= 40; ++number)
        addPackage(QStringLiteral("Package %1").arg(number), QStringLiteral("Section %1").arg(number));
    open();
    EXPECT_EQ(typedTo(QStringLiteral("section 33")), QStringLiteral("Section 33")) << "on the home screen";
    touch->key(Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(typedTo(QStringLiteral("section 34")), QStringLiteral("Section 34"));
    touch->key(Qt::Key_4, Qt::ControlModifier);
    touch->key(Qt::Key_Down);
    EXPECT_EQ(typedTo(QStringLiteral("section 35")), QStringLiteral("Section 35"));
    touch->key(Qt::Key_F, Qt::ControlModifier);
    touch->type(QStringLiteral("package"));
    touch->key(Qt::Key_Down);
    EXPECT_EQ(typedTo(QStringLiteral("package 36")), QStringLiteral("Package 36"));
}

TEST_F(Keyboard, findsWhatIsNotInSightInTheQueue)
{
    QStringList names;
    for (int number = 1; number <= 30; ++number)
        names.append(QStringLiteral("Package %1").arg(number));
    openQueueWith(names);
    EXPECT_EQ(typedTo(QStringLiteral("package 27")), QStringLiteral("Package 27"));
}
