// Alerts and sheets in a real window, by touch and by keys.
#include "tests/ui/kit/window/KitWindowTest.h"

#include <QPointer>
#include <QQuickItem>

#include <algorithm>

namespace {

using Style = kit::AlertAction::Style;

} // namespace

TEST_F(KitWindowTest, asksForATextAndTakesItAtReturn)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    kit::AlertTextField* const field = alert->addTextField();
    QString added;
    alert->addAction(QStringLiteral("Cancel"), Style::Cancel);
    alert->addAction(QStringLiteral("Add"), Style::Default, [&added, field] { added = field->text(); });
    one->present(alert);
    grabbed();
    type(QStringLiteral("http://127.0.0.1/"));
    press(Qt::Key_Return);
    EXPECT_EQ(added, QStringLiteral("http://127.0.0.1/"));
    EXPECT_EQ(window->presentedAlert(), nullptr);
    grabbed();
    press(Qt::Key_Down);
    EXPECT_EQ(one->tableView()->rowFocus()->row(), 0) << "the table has the keyboard again";
}

TEST_F(KitWindowTest, takesEnterForReturnInAnAlert)
{
    bool isConfirmed = false;
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("OK"), Style::Default, [&] { isConfirmed = true; });
    one->present(alert);
    grabbed();
    press(Qt::Key_Enter);
    EXPECT_TRUE(isConfirmed);
}

TEST_F(KitWindowTest, keepsNoRoomInAnAlertForATextThatItLacks)
{
    const auto placeOfMessage = [this](const QString& title, const QString& message) {
        auto* alert = new kit::AlertController(title, message, kit::AlertController::Style::Alert);
        alert->addAction(QStringLiteral("OK"), Style::Default);
        one->present(alert);
        grabbed();
        const double fromTop = 14;
        double bottom = 0;
        for (const auto* item : quick()->findChildren<QQuickItem*>())
            if (item->inherits("QQuickText") && item->isVisible()
                && (item->property("text") == title || item->property("text") == message))
                bottom = std::max(bottom, item->y() + item->height());
        press(Qt::Key_Return);
        grabbed();
        return bottom + fromTop;
    };
    const double both = placeOfMessage(QStringLiteral("T"), QStringLiteral("M"));
    const double title = placeOfMessage(QStringLiteral("T"), QString());
    const double message = placeOfMessage(QString(), QStringLiteral("M"));
    EXPECT_GT(title, 14);
    EXPECT_GT(message, 14);
    EXPECT_EQ(both, title + message - 14 + 8);
}

TEST_F(KitWindowTest, holdsBackTouchesAndKeysBehindAnAlert)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("Close"), Style::Default);
    one->present(alert);
    grabbed();
    tap(middleOf({ 0, 3 }));
    press(Qt::Key_F5);
    press(Qt::Key_2, Qt::ControlModifier);
    press(Qt::Key_Down);
    EXPECT_FALSE(stack(0)->canGoBack());
    EXPECT_EQ(one->reloads, 0);
    EXPECT_EQ(tabs->selectedIndex(), 0);
    EXPECT_EQ(one->tableView()->rowFocus()->row(), -1);
    press(Qt::Key_Escape);
    EXPECT_EQ(window->presentedAlert(), nullptr);
    grabbed();
}

TEST_F(KitWindowTest, boundsTheTextsOfAnAlert)
{
    auto* alert
        = new kit::AlertController(QString(3'000, u'T'), QString(3'000, u'M'), kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("OK"), Style::Default);
    one->present(alert);
    grabbed();
    const QAccessibleInterface* const dialog
        = QAccessible::queryAccessibleInterface(itemDrawnBy(QLatin1String("AlertPanel")));
    EXPECT_EQ(dialog->role(), QAccessible::Dialog);
    EXPECT_EQ(dialog->text(QAccessible::Name), QString(500, u'T'));
    EXPECT_EQ(dialog->text(QAccessible::Description), QString(2'000, u'M'));
}

TEST_F(KitWindowTest, leavesTheTextOfAnAlertsFieldTenPointsAtEitherSide)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addTextField();
    alert->addAction(QStringLiteral("OK"), Style::Default);
    one->present(alert);
    grabbed();
    const QQuickItem& input = *quick()->activeFocusItem();
    EXPECT_EQ(input.x(), 10);
    EXPECT_EQ(input.parentItem()->width() - input.x() - input.width(), 10);
}

TEST_F(KitWindowTest, sharesALowWindowBetweenALongMessageAndManyChoices)
{
    quick()->resize(320, 320);
    ASSERT_TRUE(waitUntil([this] { return one->tableView()->width() == 320; }));
    auto* alert = new kit::AlertController(QStringLiteral("Title"),
        QStringLiteral("words that go on and on ").repeated(50), kit::AlertController::Style::Alert);
    for (int choice = 0; choice < 9; ++choice)
        alert->addAction(QStringLiteral("Choice %1").arg(choice), Style::Default);
    one->present(alert);
    grabbed();
    std::vector<double> heights;
    for (const auto* item : itemDrawnBy(QLatin1String("AlertPanel"))->findChildren<QQuickItem*>())
        if (item->inherits("QQuickFlickable"))
            heights.push_back(item->height());
    EXPECT_EQ(heights, (std::vector<double>{ 134, 134 }));
}

TEST_F(KitWindowTest, showsAlertsOneAfterTheOther)
{
    const QPointer<kit::AlertController> first(addAlert(kit::AlertController::Style::Alert));
    first->addAction(QStringLiteral("OK"), Style::Default);
    kit::AlertController* const second = addAlert(kit::AlertController::Style::Alert);
    second->addAction(QStringLiteral("OK"), Style::Default);
    one->present(first);
    two->present(second);
    EXPECT_EQ(window->presentedAlert(), first);
    grabbed();
    press(Qt::Key_Return);
    EXPECT_EQ(window->presentedAlert(), second);
    grabbed();
    EXPECT_TRUE(first.isNull());
    press(Qt::Key_Return);
    EXPECT_EQ(window->presentedAlert(), nullptr);
}

TEST_F(KitWindowTest, leavesTheAlertThatShowsWhenOneThatWaitsIsDismissed)
{
    kit::AlertController* const first = addAlert(kit::AlertController::Style::Alert);
    first->addTextField();
    first->addAction(QStringLiteral("OK"), Style::Default);
    kit::AlertController* const second = addAlert(kit::AlertController::Style::Alert);
    second->addAction(QStringLiteral("Cancel"), Style::Cancel);
    one->present(first);
    one->present(second);
    grabbed();
    const QQuickItem* const field = quick()->activeFocusItem();
    second->cancel();
    grabbed();
    EXPECT_EQ(window->presentedAlert(), first);
    EXPECT_EQ(quick()->activeFocusItem(), field) << "it is not drawn anew";
}

TEST_F(KitWindowTest, choosesFromASheetByKeysAlone)
{
    bool uninstalled = false;
    kit::AlertController* const sheet = addAlert(kit::AlertController::Style::ActionSheet);
    sheet->addAction(QStringLiteral("Uninstall"), Style::Destructive, [&] { uninstalled = true; });
    sheet->addAction(QStringLiteral("Cancel"), Style::Cancel);
    one->present(sheet);
    grabbed();
    press(Qt::Key_Return);
    EXPECT_FALSE(uninstalled);
    press(Qt::Key_Tab);
    EXPECT_EQ(focusedItemName(), QStringLiteral("Uninstall"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focusedItemName(), QStringLiteral("Cancel"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focusedItemName(), QStringLiteral("Uninstall"));
    press(Qt::Key_Return);
    EXPECT_TRUE(uninstalled);
}

TEST_F(KitWindowTest, showsTheFocusFromTheFirstTabAfterATouch)
{
    tap({ quick()->width() * 0.25, quick()->height() - 25.0 });
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addTextField();
    alert->addAction(QStringLiteral("Cancel"), Style::Cancel);
    alert->addAction(QStringLiteral("Add"), Style::Default);
    one->present(alert);
    grabbed();
    press(Qt::Key_Tab);
    EXPECT_EQ(focusedItemName(), QStringLiteral("Cancel"));
    const auto items = quick()->activeFocusItem()->childItems();
    EXPECT_TRUE(std::any_of(items.begin(), items.end(), [](const QQuickItem* item) {
        return QLatin1String(item->metaObject()->className()).startsWith(QLatin1String("FocusRing"))
            && item->isVisible();
    }));
}

TEST_F(KitWindowTest, closesASheetByATouchOutsideIt)
{
    kit::AlertController* const sheet = addAlert(kit::AlertController::Style::ActionSheet);
    sheet->addAction(QStringLiteral("Uninstall"), Style::Destructive, [] { FAIL(); });
    sheet->addAction(QStringLiteral("Cancel"), Style::Cancel);
    one->present(sheet);
    grabbed();
    tap({ 195, 300 });
    EXPECT_EQ(window->presentedAlert(), nullptr);
}

TEST_F(KitWindowTest, keepsAnAlertsButtonsInsideASmallWindow)
{
    quick()->resize(320, 320);
    ASSERT_TRUE(waitUntil([this] { return one->tableView()->width() == 320; }));
    auto* alert = new kit::AlertController(QString(300, u'W'), QStringLiteral("words that go on and on ").repeated(50),
        kit::AlertController::Style::Alert);
    alert->addTextField();
    alert->addAction(QStringLiteral("Refuse"), Style::Cancel);
    alert->addAction(QStringLiteral("Agree"), Style::Default);
    one->present(alert);
    grabbed();
    const QRect windowRect(quick()->geometry());
    for (const QString& name : { QStringLiteral("Refuse"), QStringLiteral("Agree") }) {
        const QAccessibleInterface* const button = accessible(name);
        ASSERT_NE(button, nullptr);
        EXPECT_TRUE(windowRect.contains(button->rect())) << button->rect().bottom() << ' ' << windowRect.bottom();
    }
}

TEST_F(KitWindowTest, scrollsToEveryButtonOfASheetThatIsTallerThanTheWindow)
{
    quick()->resize(320, 320);
    ASSERT_TRUE(waitUntil([this] { return one->tableView()->width() == 320; }));
    kit::AlertController* const sheet = addAlert(kit::AlertController::Style::ActionSheet);
    int chosen = -1;
    for (int action = 0; action < 9; ++action)
        sheet->addAction(
            QStringLiteral("Choice %1").arg(action), Style::Default, [&chosen, action] { chosen = action; });
    one->present(sheet);
    grabbed();
    const QRect windowRect(quick()->geometry());
    for (int action = 0; action < 9; ++action) {
        press(Qt::Key_Tab);
        const QString name = QStringLiteral("Choice %1").arg(action);
        EXPECT_EQ(focusedItemName(), name);
        EXPECT_TRUE(windowRect.contains(accessible(name)->rect())) << action;
    }
    press(Qt::Key_Return);
    EXPECT_EQ(chosen, 8);
}

TEST_F(KitWindowTest, scrollsALongMessageByTheArrows)
{
    quick()->resize(320, 320);
    ASSERT_TRUE(waitUntil([this] { return one->tableView()->width() == 320; }));
    auto* alert = new kit::AlertController(QStringLiteral("Title"),
        QStringLiteral("words that go on and on ").repeated(50), kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("OK"), Style::Default);
    one->present(alert);
    grabbed();
    const auto items = quick()->findChildren<QQuickItem*>();
    const auto texts = std::find_if(items.begin(), items.end(), [](const QQuickItem* item) {
        return item->inherits("QQuickFlickable") && item->width() < 300
            && item->property("contentHeight").toDouble() > 400;
    });
    ASSERT_NE(texts, items.end());
    const auto scrolled = [&] { return (*texts)->property("contentY").toDouble(); };
    press(Qt::Key_Up);
    EXPECT_EQ(scrolled(), 0);
    press(Qt::Key_Down);
    EXPECT_GT(scrolled(), 0);
    for (int step = 0; step < 100; ++step)
        press(Qt::Key_Down);
    const double end = (*texts)->property("contentHeight").toDouble() - (*texts)->height();
    EXPECT_EQ(scrolled(), end);
    press(Qt::Key_Up);
    EXPECT_LT(scrolled(), end);
}
