// The whole window as a screen reader meets it, and by its actions alone.
#include "tests/e2e/window/WindowTest.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/kit/view/Switch.h"

namespace {

class ScreenReader : public WindowTest
{
protected:
    bool reaches(const QString& title)
    {
        return touch->waitUntil([&] { return touch->title() == title && !touch->stack().isTransitioning(); }, 5000);
    }
    QStringList names(QAccessible::Role role) const
    {
        QStringList names;
        for (QQuickItem* item : touch->accessibleItems(role))
            names.append(QAccessible::queryAccessibleInterface(item)->text(QAccessible::Name));
        return names;
    }
    bool press(QAccessible::Role role, const QString& name)
    {
        return TouchDriver::pressByScreenReader(touch->find(role, name));
    }
    static bool act(QQuickItem* item, const QString& action)
    {
        QAccessibleInterface* interface = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
        QAccessibleActionInterface* actions = interface ? interface->actionInterface() : nullptr;
        if (!actions || !actions->actionNames().contains(action))
            return false;
        actions->doAction(action);
        turnLoop();
        return true;
    }
    // Puts a text into the field of that name, as a screen reader or a braille display does.
    bool write(const QString& field, const QString& text)
    {
        QQuickItem* item = touch->find(QAccessible::EditableText, field);
        QAccessibleInterface* interface = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
        if (!interface)
            return false;
        interface->setText(QAccessible::Value, text);
        turnLoop();
        return interface->text(QAccessible::Value) == text;
    }
    QAccessible::State state(QAccessible::Role role, const QString& name) const
    {
        QQuickItem* item = touch->find(role, name);
        return item ? QAccessible::queryAccessibleInterface(item)->state() : QAccessible::State();
    }
    QString description(QAccessible::Role role, const QString& name) const
    {
        QQuickItem* item = touch->find(role, name);
        return item ? QAccessible::queryAccessibleInterface(item)->text(QAccessible::Description) : QString();
    }
};

} // namespace

TEST_F(ScreenReader, meetsTheTabsTheTitleTheButtonsTheHeadersAndTheRows)
{
    addPackages(2);
    open();
    EXPECT_EQ(names(QAccessible::PageTab),
        (QStringList{ QStringLiteral("Vesk"), QStringLiteral("Changes"), QStringLiteral("Categories"),
            QStringLiteral("Search"), QStringLiteral("Manage") }));
    EXPECT_TRUE(names(QAccessible::Heading).contains(QStringLiteral("Welcome to Vesk")));
    EXPECT_TRUE(names(QAccessible::Heading).contains(QStringLiteral("HOT APPS & UTILITIES")));
    EXPECT_TRUE(names(QAccessible::Heading).contains(QStringLiteral("CATEGORIES")));
    EXPECT_TRUE(names(QAccessible::Button).contains(QStringLiteral("About")));
    EXPECT_TRUE(names(QAccessible::Button).contains(QStringLiteral("Reload")));
    EXPECT_EQ(names(QAccessible::ListItem),
        (QStringList{ QStringLiteral("Package 001"), QStringLiteral("Package 002"), QStringLiteral("Section 2"),
            QStringLiteral("Section 3") }));
}

TEST_F(ScreenReader, hearsTheDetailAndThePlaceOfARowAsItsDescription)
{
    addPackages(2);
    open();
    EXPECT_EQ(
        description(QAccessible::ListItem, QStringLiteral("Package 001")), QStringLiteral("First  •  1.0, 1 of 2"));
    EXPECT_EQ(description(QAccessible::ListItem, QStringLiteral("Section 2")), QStringLiteral("1, 1 of 2"));
}

TEST_F(ScreenReader, opensARowAndComesBack)
{
    addPackages(2);
    open();
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Package 002")));
    ASSERT_TRUE(reaches(QStringLiteral("Package 002")));
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("Back")));
    EXPECT_TRUE(reaches(QStringLiteral("Welcome to Vesk")));
}

TEST_F(ScreenReader, goesFromTabToTabAndHearsWhichIsSelected)
{
    addPackages(2);
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Manage")));
    EXPECT_TRUE(reaches(QStringLiteral("Manage")));
    EXPECT_TRUE(state(QAccessible::PageTab, QStringLiteral("Manage")).selected);
    EXPECT_FALSE(state(QAccessible::PageTab, QStringLiteral("Vesk")).selected);
}

TEST_F(ScreenReader, queuesAPackageAndClosesTheAlert)
{
    addPackages(1);
    open();
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Package 001")));
    ASSERT_TRUE(reaches(QStringLiteral("Package 001")));
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Install")));
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(
        description(QAccessible::Dialog, QStringLiteral("Vesk")), QStringLiteral("Package 001 added to the queue."));
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("OK")));
    EXPECT_TRUE(touch->waitUntil([&] { return alert() == nullptr; }, 5000));
    EXPECT_EQ(installer->queue().size(), 1U);
}

TEST_F(ScreenReader, meetsOnlyTheAlertWhileItShows)
{
    addPackages(2);
    open();
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("About")));
    ASSERT_NE(alert(), nullptr);
    press(QAccessible::ListItem, QStringLiteral("Package 001"));
    press(QAccessible::PageTab, QStringLiteral("Manage"));
    EXPECT_EQ(touch->stack().viewControllers().size(), 1U);
    EXPECT_EQ(touch->tabs().selectedIndex(), 0);
    EXPECT_NE(alert(), nullptr);
}

TEST_F(ScreenReader, switchesASourceOffAndHearsIt)
{
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Manage")));
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Manage Sources")));
    ASSERT_TRUE(reaches(QStringLiteral("Sources")));
    const auto switches = touch->accessibleItems(QAccessible::CheckBox);
    ASSERT_EQ(switches.size(), 1U);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(switches.front());
    EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty()) << "a switch says what it switches";
    EXPECT_TRUE(interface->state().checked);
    ASSERT_TRUE(TouchDriver::pressByScreenReader(switches.front()));
    EXPECT_FALSE(interface->state().checked);
    EXPECT_FALSE(manager->repositories().front()->enabled());
}

TEST_F(ScreenReader, meetsTheSearchFieldByItsPlaceholder)
{
    addPackages(2);
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Search")));
    ASSERT_TRUE(reaches(QStringLiteral("Search")));
    QQuickItem* field = touch->find(QAccessible::EditableText, QStringLiteral("Search Vesk packages"));
    ASSERT_NE(field, nullptr);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(field);
    EXPECT_TRUE(interface->state().editable);
    EXPECT_TRUE(interface->state().focusable);
}

TEST_F(ScreenReader, pressesADisabledButtonInVain)
{
    addPackages(2);
    network->hold();
    open();
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("Reload")));
    ASSERT_EQ(network->requestedURLs().size(), 1);
    press(QAccessible::Button, QStringLiteral("Reload"));
    EXPECT_EQ(network->requestedURLs().size(), 1);
}

TEST_F(ScreenReader, meetsNoRowThatIsNotThere)
{
    addPackages(2);
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Changes")));
    ASSERT_TRUE(reaches(QStringLiteral("Changes")));
    manager->packages().clear();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Categories")));
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Changes")));
    ASSERT_TRUE(reaches(QStringLiteral("Changes")));
    EXPECT_EQ(names(QAccessible::ListItem), QStringList{ QStringLiteral("No changes available. Tap Reload.") });
}

TEST_F(ScreenReader, typesIntoTheSearchFieldAndClearsAndCancelsIt)
{
    addPackages(12);
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Search")));
    ASSERT_TRUE(reaches(QStringLiteral("Search")));
    ASSERT_TRUE(write(QStringLiteral("Search Vesk packages"), QStringLiteral("010")));
    EXPECT_EQ(names(QAccessible::ListItem), QStringList{ QStringLiteral("Package 010") });
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("Clear text")));
    EXPECT_EQ(touch->headerText(0), QStringLiteral("BROWSE CATEGORIES"));
    ASSERT_TRUE(write(QStringLiteral("Search Vesk packages"), QStringLiteral("011")));
    EXPECT_EQ(names(QAccessible::ListItem), QStringList{ QStringLiteral("Package 011") });
}

TEST_F(ScreenReader, addsASource)
{
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Manage")));
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Manage Sources")));
    ASSERT_TRUE(reaches(QStringLiteral("Sources")));
    ASSERT_TRUE(TouchDriver::pressByScreenReader(touch->barButton(QStringLiteral("Add"))));
    ASSERT_NE(alert(), nullptr);
    ASSERT_TRUE(write(QStringLiteral("https://repo.example.org"), QStringLiteral("http://127.0.0.1/second")));
    ASSERT_TRUE(TouchDriver::pressByScreenReader(touch->alertButton(QStringLiteral("Add"))));
    ASSERT_TRUE(touch->waitUntil([&] { return manager->repositories().size() == 2; }, 5000));
    EXPECT_EQ(manager->repositories().back()->urlString(), QStringLiteral("http://127.0.0.1/second"));
}

TEST_F(ScreenReader, queuesARemovalFromTheSheetAndClearsTheQueue)
{
    addInstalledPackage(QStringLiteral("Alpha"), QStringLiteral("2.0"), QStringLiteral("1.0"));
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Manage")));
    ASSERT_TRUE(reaches(QStringLiteral("Manage")));
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Alpha")));
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(description(QAccessible::Dialog, QStringLiteral("Alpha")), QStringLiteral("Alpha 2.0 is installed."));
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("Uninstall")));
    ASSERT_EQ(installer->queue().size(), 1U);
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Queued Changes")));
    ASSERT_TRUE(reaches(QStringLiteral("Queue")));
    EXPECT_EQ(
        description(QAccessible::ListItem, QStringLiteral("Alpha")), QStringLiteral("Uninstall  \u2022  In Queue"));
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("Clear")));
    EXPECT_TRUE(installer->queue().empty());
    EXPECT_EQ(names(QAccessible::ListItem), QStringList{ QStringLiteral("Nothing queued") });
}

TEST_F(ScreenReader, opensTheInstalledPackagesAndTheAnswersOfTheSettings)
{
    addInstalledPackage(QStringLiteral("Alpha"), QStringLiteral("2.0"), QStringLiteral("2.0"));
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Manage")));
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Settings")));
    ASSERT_NE(touch->find(QAccessible::Dialog, QStringLiteral("Vesk Settings")), nullptr);
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("Close")));
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Installed Apps")));
    ASSERT_TRUE(reaches(QStringLiteral("Installed Apps")));
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Alpha")));
    ASSERT_TRUE(reaches(QStringLiteral("Alpha")));
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("Uninstall")));
    EXPECT_EQ(installer->queue().size(), 1U);
}

TEST_F(ScreenReader, deletesAQueuedEntryAsASwipeDoes)
{
    installer->enqueuePackage(addPackage(QStringLiteral("Alpha")), QueueActionInstall);
    installer->enqueuePackage(addPackage(QStringLiteral("Beta")), QueueActionInstall);
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Manage")));
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Queued Changes")));
    ASSERT_TRUE(reaches(QStringLiteral("Queue")));
    QQuickItem* row = touch->find(QAccessible::ListItem, QStringLiteral("Alpha"));
    ASSERT_TRUE(act(row, QAccessibleActionInterface::scrollLeftAction()));
    ASSERT_TRUE(act(row, QAccessibleActionInterface::scrollRightAction()));
    EXPECT_EQ(touch->find(QAccessible::Button, QStringLiteral("Delete")), nullptr);
    ASSERT_TRUE(act(row, QAccessibleActionInterface::scrollLeftAction()));
    ASSERT_TRUE(touch->settle());
    ASSERT_TRUE(press(QAccessible::Button, QStringLiteral("Delete")));
    EXPECT_EQ(names(QAccessible::ListItem), QStringList{ QStringLiteral("Beta") });
}

TEST_F(ScreenReader, scrollsToTheRowsThatAreNotSeen)
{
    addPackages(60);
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Changes")));
    ASSERT_TRUE(reaches(QStringLiteral("Changes")));
    QQuickItem* const list = touch->itemFor(&table());
    const int last = table().indexPathsForVisibleRows().back().row;
    ASSERT_TRUE(act(list, QAccessibleActionInterface::scrollDownAction()));
    EXPECT_LE(table().indexPathsForVisibleRows().front().row, last + 1) << "no row is left out";
    EXPECT_GT(table().indexPathsForVisibleRows().back().row, last);
    for (int page = 0; page < 8; ++page)
        ASSERT_TRUE(act(list, QAccessibleActionInterface::scrollDownAction()));
    EXPECT_NE(touch->find(QAccessible::ListItem, QStringLiteral("Package 060")), nullptr);
    EXPECT_EQ(table().contentOffset(), table().contentHeight() - table().height());
    for (int page = 0; page < 9; ++page)
        ASSERT_TRUE(act(list, QAccessibleActionInterface::scrollUpAction()));
    EXPECT_NE(touch->find(QAccessible::ListItem, QStringLiteral("Package 001")), nullptr);
    EXPECT_EQ(table().contentOffset(), 0);
}

TEST_F(ScreenReader, togglesAndClearsNothingBehindAnAlert)
{
    open();
    ASSERT_TRUE(press(QAccessible::PageTab, QStringLiteral("Manage")));
    ASSERT_TRUE(press(QAccessible::ListItem, QStringLiteral("Manage Sources")));
    ASSERT_TRUE(reaches(QStringLiteral("Sources")));
    QQuickItem* const control = touch->accessibleItems(QAccessible::CheckBox).front();
    ASSERT_TRUE(TouchDriver::pressByScreenReader(touch->barButton(QStringLiteral("Add"))));
    ASSERT_NE(alert(), nullptr);
    act(control, QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(manager->repositories().front()->enabled());
}
