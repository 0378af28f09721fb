// What keys and a screen reader do with a table and the controls around it.
#include "tests/ui/kit/window/KitWindowTest.h"

#include <QTest>

namespace {

class Keys : public KitWindowTest
{
protected:
    Keys() { grabbed(); }

    kit::TableView& table() const { return *one->tableView(); }
    // The names of the controls that Tab or Shift+Tab goes to, one after the other.
    QStringList tabbed(int times, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QStringList names;
        for (int time = 0; time < times; ++time) {
            press(modifiers ? Qt::Key_Backtab : Qt::Key_Tab, modifiers);
            names.append(focusedItemName());
        }
        return names;
    }
    bool tabTo(const QString& name)
    {
        constexpr int MostControls = 20;
        for (int step = 0; step < MostControls && focusedItemName() != name; ++step)
            press(Qt::Key_Tab);
        return focusedItemName() == name;
    }
    // As a keyboard sends it again and again.
    void hold(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        for (int repeat = 0; repeat < 4; ++repeat)
            QTest::simulateEvent(quick(), true, key, modifiers, QString(), repeat > 0);
        QTest::simulateEvent(quick(), false, key, modifiers, QString(), false);
    }
    // How many controls have a ring.
    int ringCount() const { return ringCountIn(*quick()->contentItem()); }
    static int ringCountIn(const QQuickItem& item)
    {
        if (!item.isVisible())
            return 0;
        int count = qstrncmp(item.metaObject()->className(), "FocusRing", 9) == 0 ? 1 : 0;
        for (const QQuickItem* child : item.childItems())
            count += ringCountIn(*child);
        return count;
    }
};

} // namespace

TEST_F(Keys, goRoundByTabInTheOrderInWhichTheControlsAreSeen)
{
    ASSERT_TRUE(tabTo(QStringLiteral("About")));
    const QStringList round{ QStringLiteral("Reload"), QStringLiteral("One"), QString(), QStringLiteral("Press"),
        QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("About") };
    EXPECT_EQ(tabbed(7), round) << "the bar, the list, the controls of its rows, the tabs";
    const QStringList back{ QStringLiteral("Two"), QStringLiteral("One"), QStringLiteral("Press"), QString(),
        QStringLiteral("One"), QStringLiteral("Reload"), QStringLiteral("About") };
    EXPECT_EQ(tabbed(7, Qt::ShiftModifier), back);
}

TEST_F(Keys, leaveTabToTheDesktopWithControlOrAlt)
{
    ASSERT_TRUE(tabTo(QStringLiteral("Reload")));
    for (const Qt::KeyboardModifier modifier : { Qt::AltModifier, Qt::ControlModifier }) {
        press(Qt::Key_Tab, modifier);
        EXPECT_EQ(focusedItemName(), QStringLiteral("Reload")) << modifier;
    }
}

TEST_F(Keys, goRoundInThatOrderAlsoAfterTheRowsWereUsedForOthers)
{
    press(Qt::Key_End);
    grabbed();
    press(Qt::Key_Home);
    grabbed();
    ASSERT_TRUE(tabTo(QStringLiteral("Reload")));
    EXPECT_EQ(tabbed(3), (QStringList{ QStringLiteral("One"), QString(), QStringLiteral("Press") }));
}

TEST_F(Keys, actWithSpaceOnWhatHasTheRingAlone)
{
    ASSERT_TRUE(tabTo(QStringLiteral("Press")));
    press(Qt::Key_Space);
    EXPECT_EQ(one->buttonPresses, 1);
    press(Qt::Key_Down);
    EXPECT_EQ(table().rowFocus()->row(), 0);
    EXPECT_EQ(focusedItemName(), QStringLiteral("One")) << "the button gave the keyboard up";
    press(Qt::Key_Space);
    EXPECT_EQ(one->buttonPresses, 1);
    EXPECT_EQ(stack(0)->topViewController()->title(), QStringLiteral("Row 0.0"));
}

TEST_F(Keys, showTheRowsRingOnlyWhileTheKeyboardIsInTheList)
{
    press(Qt::Key_Down);
    EXPECT_TRUE(accessible(QStringLiteral("Row 0.0"))->state().focused);
    EXPECT_FALSE(accessible(QStringLiteral("Row 0.0"))->parent()->state().focused) << "the row has it, not the list";
    ASSERT_TRUE(tabTo(QStringLiteral("Press")));
    EXPECT_FALSE(accessible(QStringLiteral("Row 0.0"))->state().focused);
}

TEST_F(Keys, pressOnceHoweverLongTheyAreHeld)
{
    ASSERT_TRUE(tabTo(QStringLiteral("Press")));
    for (int repeat = 0; repeat < 5; ++repeat) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), repeat > 0);
        QCoreApplication::sendEvent(quick(), &event);
    }
    EXPECT_EQ(one->buttonPresses, 1);
}

TEST_F(Keys, goBackByOneScreenAndReloadOnceHoweverLongTheyAreHeld)
{
    hold(Qt::Key_F5);
    EXPECT_EQ(one->reloads, 1);
    for (const auto& [key, modifiers] : { std::pair<Qt::Key, Qt::KeyboardModifiers>(Qt::Key_Left, Qt::AltModifier),
             std::pair<Qt::Key, Qt::KeyboardModifiers>(Qt::Key_Escape, Qt::NoModifier) }) {
        for (const QString& title : { QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Third") })
            stack(0)->pushViewController(new ListScreen(title), kit::NavigationController::Animation::None);
        grabbed();
        hold(key, modifiers);
        EXPECT_EQ(stack(0)->topViewController()->title(), QStringLiteral("Second")) << key;
        stack(0)->popToRootViewController(kit::NavigationController::Animation::None);
        grabbed();
    }
}

TEST_F(Keys, goToATabOnceHoweverLongTheyAreHeld)
{
    auto* const pushed = new ListScreen(QStringLiteral("Pushed"));
    stack(1)->pushViewController(pushed, kit::NavigationController::Animation::None);
    hold(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(tabs->selectedIndex(), 1);
    EXPECT_EQ(stack(1)->topViewController(), pushed) << "as it would not be after a second time";
}

TEST_F(Keys, pressABarButtonByAShortcutOfOneLetter)
{
    auto* const reload = new kit::BarButtonItem(
        QStringLiteral("Reload"), kit::BarButtonItem::Style::Plain, [this] { ++one->reloads; });
    reload->setShortcut(QStringLiteral("R"));
    one->navigationItem()->setRightBarButtonItem(reload);
    grabbed();
    press(Qt::Key_R);
    EXPECT_EQ(one->reloads, 1);
}

TEST_F(Keys, showTheDeleteButtonByTheFirstDeleteAndPressItByTheSecond)
{
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    EXPECT_EQ(table().openRow()->row(), 1);
    EXPECT_EQ(one->firstSectionRows, 5);
    press(Qt::Key_Delete);
    EXPECT_EQ(one->firstSectionRows, 4);
    EXPECT_EQ(table().openRow()->row(), -1);
}

TEST_F(Keys, reloadByF5AndByControlR)
{
    press(Qt::Key_F5);
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(one->reloads, 2);
}

TEST_F(Keys, reloadOnlyThePageThatShows)
{
    press(Qt::Key_2, Qt::ControlModifier);
    grabbed();
    press(Qt::Key_F5);
    EXPECT_EQ(one->reloads, 0);
    EXPECT_EQ(two->reloads, 1);
    press(Qt::Key_1, Qt::ControlModifier);
    grabbed();
    press(Qt::Key_F5);
    EXPECT_EQ(one->reloads, 1);
    EXPECT_EQ(two->reloads, 1);
}

TEST_F(Keys, goToTheFirstRowWhoseNameBeginsWithTheLettersTyped)
{
    type(QStringLiteral("row 0.3"));
    EXPECT_EQ(table().rowFocus()->row(), 3);
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(Keys, pressTheRowWithSpaceOnceTheyMovedOnFromTyping)
{
    type(QStringLiteral("row 0.2"));
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_EQ(stack(0)->topViewController()->title(), QStringLiteral("Row 0.3"));
}

TEST_F(Keys, showAScreenReaderTheRowTheyMoveTo)
{
    const auto isFocused = [this](const QString& row) { return accessible(row)->state().focused; };
    for (const QString& row : { QStringLiteral("Row 0.0"), QStringLiteral("Row 0.1") }) {
        EXPECT_FALSE(isFocused(row));
        press(Qt::Key_Down);
        EXPECT_TRUE(isFocused(row));
    }
    EXPECT_FALSE(isFocused(QStringLiteral("Row 0.0")));
}

TEST_F(Keys, bringAControlIntoViewInItsOwnListAlone)
{
    press(Qt::Key_2, Qt::ControlModifier);
    press(Qt::Key_End);
    grabbed();
    const double offset = two->tableView()->contentOffset();
    ASSERT_GT(offset, 0);
    press(Qt::Key_1, Qt::ControlModifier);
    ASSERT_TRUE(tabTo(QStringLiteral("Press")));
    EXPECT_EQ(two->tableView()->contentOffset(), offset);
}

TEST_F(Keys, bringAControlOfAHalfHiddenRowIntoView)
{
    constexpr double Header = 25;
    ASSERT_TRUE(tabTo(QStringLiteral("Reload")));
    table().setContentOffset(table().rectForRow({ 0, 1 }).center().y());
    grabbed();
    ASSERT_TRUE(tabTo(QStringLiteral("Press")));
    EXPECT_LE(table().contentOffset(), table().rectForRow({ 0, 1 }).top() - Header);
}

TEST_F(Keys, findTheListUnderTheNameOfItsScreen)
{
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(itemDrawnBy(QLatin1String("TableBody")));
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("One"));
    one->setTitle(QStringLiteral("Renamed"));
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Renamed"));
}

TEST_F(Keys, showNoRingAfterATouch)
{
    // What is under the pointer would show it in some pictures and in others not yet.
    const auto picture = [this] {
        QTest::mouseMove(quick(), QPoint(1, 1));
        grabbed();
        return grabbed();
    };
    tap(middleOf({ 0, 2 }));
    grabbed();
    press(Qt::Key_Escape);
    const QImage untouched = picture();
    press(Qt::Key_Down);
    EXPECT_NE(picture(), untouched) << "now there is one";
    tap(middleOf({ 0, 2 }));
    grabbed();
    press(Qt::Key_Escape);
    EXPECT_EQ(picture(), untouched);
}

TEST_F(Keys, showTheRingOfAControlOnlyOnceAKeyMovedThem)
{
    accessible(QStringLiteral("Press"))->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    grabbed();
    EXPECT_EQ(focusedItemName(), QStringLiteral("Press"));
    EXPECT_EQ(ringCount(), 0);
    press(Qt::Key_Tab, Qt::ShiftModifier);
    press(Qt::Key_Tab);
    grabbed();
    EXPECT_EQ(focusedItemName(), QStringLiteral("Press"));
    EXPECT_EQ(ringCount(), 1);
    tap(middleOf({ 0, 2 }));
    grabbed();
    EXPECT_EQ(ringCount(), 0);
}

TEST_F(Keys, showNoRingWhereTheyDoNothing)
{
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[]
        = { { Qt::Key_Shift, Qt::ShiftModifier }, { Qt::Key_Left, Qt::NoModifier }, { Qt::Key_F9, Qt::NoModifier },
              { Qt::Key_Backspace, Qt::NoModifier }, { Qt::Key_K, Qt::ControlModifier } };
    for (const auto& [key, modifiers] : keys) {
        press(key, modifiers);
        EXPECT_EQ(ringCount(), 0) << key;
        EXPECT_EQ(table().rowFocus()->row(), -1) << key;
    }
}

TEST_F(Keys, showTheRingOfTheWholeListInsideIt)
{
    ASSERT_TRUE(tabTo(QStringLiteral("Reload")));
    ASSERT_EQ(tabbed(1), QStringList(QStringLiteral("One")));
    const QQuickItem& list = *itemDrawnBy(QLatin1String("TableBody"));
    const QQuickItem* ring = nullptr;
    for (const QQuickItem* part : list.childItems())
        if (part->isVisible() && QLatin1String(part->metaObject()->className()).startsWith(QLatin1String("FocusRing")))
            ring = part;
    ASSERT_NE(ring, nullptr);
    EXPECT_EQ(
        QRectF(ring->x(), ring->y(), ring->width(), ring->height()), QRectF(2, 2, list.width() - 4, list.height() - 4));
    EXPECT_TRUE(accessible(QStringLiteral("Row 0.0"))->parent()->state().focused) << "as a screen reader says too";
    press(Qt::Key_Down);
    EXPECT_FALSE(ring->isVisible()) << "the row has one";
}

TEST_F(Keys, leaveTheSearchFieldForWhatItFoundByEitherReturn)
{
    for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Enter }) {
        press(Qt::Key_F, Qt::ControlModifier);
        grabbed();
        ASSERT_EQ(focusedItemName(), QStringLiteral("Find"));
        press(key);
        EXPECT_EQ(focusedItemName(), QStringLiteral("Two")) << key;
        EXPECT_EQ(two->tableView()->rowFocus()->row(), 0) << key;
    }
}

TEST_F(Keys, doNothingInAListWithAModifierThatMakesThemAnothersShortcut)
{
    press(Qt::Key_Down);
    for (const Qt::KeyboardModifier modifier : { Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier }) {
        press(Qt::Key_Return, modifier);
        press(Qt::Key_Space, modifier);
        EXPECT_FALSE(stack(0)->canGoBack()) << modifier;
        press(Qt::Key_Delete, modifier);
        EXPECT_EQ(table().openRow()->row(), -1) << modifier;
    }
}

TEST_F(Keys, giveWayToTheMousesBackButton)
{
    tap(middleOf({ 0, 2 }));
    ASSERT_TRUE(stack(0)->canGoBack());
    grabbed();
    QTest::mouseClick(quick(), Qt::BackButton, Qt::NoModifier, { 200, 400 });
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(Keys, goToTheListWhoseRowIsTouchedOrGivenTheKeyboard)
{
    ASSERT_TRUE(tabTo(QStringLiteral("Reload")));
    accessible(QStringLiteral("Row 0.3"))->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(focusedItemName(), QStringLiteral("One"));
    ASSERT_TRUE(tabTo(QStringLiteral("Reload")));
    tap(middleOf({ 0, 3 }));
    press(Qt::Key_Escape);
    grabbed();
    EXPECT_EQ(focusedItemName(), QStringLiteral("One"));
}

TEST_F(Keys, goToTheListThatIsDragged)
{
    ASSERT_TRUE(tabTo(QStringLiteral("Press")));
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, { 200, 500 });
    for (int y = 500; y >= 400; y -= 10)
        QTest::mouseMove(quick(), { 200, y });
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, { 200, 400 });
    EXPECT_EQ(focusedItemName(), QStringLiteral("One"));
}

TEST_F(Keys, pressAPanelsButtonWithSpaceToo)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    int pressed = 0;
    alert->addAction(QStringLiteral("First"), kit::AlertAction::Style::Default, [&] { pressed = 1; });
    alert->addAction(QStringLiteral("Second"), kit::AlertAction::Style::Default, [&] { pressed = 2; });
    one->present(alert);
    grabbed();
    ASSERT_TRUE(tabTo(QStringLiteral("Second")));
    press(Qt::Key_Space);
    EXPECT_EQ(pressed, 2);
    EXPECT_EQ(window->presentedAlert(), nullptr);
}

TEST_F(Keys, goRoundInAnAlertByWayOfItsFields)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addTextField()->setPlaceholder(QStringLiteral("Address"));
    alert->addTextField()->setPlaceholder(QStringLiteral("Name"));
    alert->addAction(QStringLiteral("Cancel"), kit::AlertAction::Style::Cancel);
    one->present(alert);
    grabbed();
    EXPECT_EQ(focusedItemName(), QStringLiteral("Address"));
    EXPECT_EQ(tabbed(3), (QStringList{ QStringLiteral("Name"), QStringLiteral("Cancel"), QStringLiteral("Address") }));
    press(Qt::Key_Escape);
}

TEST_F(Keys, cancelTheSearchWithEnterToo)
{
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    ASSERT_TRUE(tabTo(QStringLiteral("Cancel")));
    press(Qt::Key_Enter);
    EXPECT_FALSE(two->navigationItem()->searchController()->searchBar()->isActive());
}

TEST_F(Keys, findTheSearchFieldAsOneForSearching)
{
    press(Qt::Key_2, Qt::ControlModifier);
    grabbed();
    ASSERT_NE(accessible(QStringLiteral("Find")), nullptr);
    EXPECT_TRUE(accessible(QStringLiteral("Find"))->state().searchEdit);
}
