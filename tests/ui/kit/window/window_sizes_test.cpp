// What the window does with the room it has: wide, low, or with a keyboard in front of it.
#include "tests/ui/kit/window/KitWindowTest.h"

namespace {

class Room : public KitWindowTest
{
protected:
    void resize(const QSize& size)
    {
        quick()->resize(size);
        ASSERT_TRUE(waitUntil([&] { return quick()->contentItem()->size() == size; }));
        grabbed();
    }
    // As an input method tells of it.
    void showKeyboard(const QRectF& place)
    {
        quick()->setProperty("keyboard", place);
        grabbed();
    }
    void openSearch()
    {
        press(Qt::Key_F, Qt::ControlModifier);
        ASSERT_TRUE(two->navigationItem()->searchController()->searchBar()->isActive());
        grabbed();
    }
    // In the window.
    QRectF placeOf(const QString& spokenName) const
    {
        QAccessibleInterface* const found = accessible(spokenName);
        return found ? QRectF(found->rect().translated(-quick()->position())) : QRectF();
    }
    QRectF placeOfFocus() const
    {
        const QQuickItem& item = *quick()->activeFocusItem();
        return item.mapRectToScene({ 0, 0, item.width(), item.height() });
    }
    // Of the symbol and of the title of the first tab.
    QRectF partOfTab(const char* kind) const
    {
        for (const QQuickItem* part : itemDrawnBy(QLatin1String("TabButton"))->childItems())
            if (part->inherits(kind))
                return part->mapRectToScene({ 0, 0, part->width(), part->height() });
        return {};
    }
    QRectF symbol() const { return partOfTab("kit::ImageItem"); }
    QRectF title() const { return partOfTab("QQuickText"); }
};

} // namespace

TEST_F(Room, isFilledByTheRootScreen)
{
    resize({ 500, 600 });
    EXPECT_EQ(tabs->view()->frame(), QRectF(0, 0, 500, 600));
}

TEST_F(Room, isNeverLessThanThatOfASmallPhone)
{
    EXPECT_EQ(quick()->minimumSize(), QSize(320, 320));
}

TEST_F(Room, showsTheTitleOfATabBelowItsSymbolInANarrowWindow)
{
    grabbed();
    EXPECT_GE(title().top(), symbol().bottom());
    EXPECT_NEAR(title().center().x(), symbol().center().x(), 1);
}

TEST_F(Room, showsTheTitleOfATabBesideItsSymbolInAWideWindow)
{
    for (const QSize size : { QSize(1'024, 768), QSize(844, 390) }) {
        resize(size);
        EXPECT_GT(title().left(), symbol().right()) << size.height();
        EXPECT_NEAR(title().center().y(), symbol().center().y(), 1) << size.height();
        EXPECT_EQ(symbol().topLeft(), QPointF(symbol().topLeft().toPoint())) << "a symbol between pixels is not crisp";
    }
}

TEST_F(Room, isSharedByTheTabsUpToSixHundredPoints)
{
    const auto widthOfTab = [this] { return itemDrawnBy(QLatin1String("TabButton"))->width(); };
    grabbed();
    EXPECT_EQ(widthOfTab(), 195);
    resize({ 700, 800 });
    EXPECT_EQ(widthOfTab(), 300);
    tabs->setViewControllers({ tabs->viewControllers()[0] });
    grabbed();
    EXPECT_EQ(widthOfTab(), 600);
}

TEST_F(Room, showsTitlesOfASingleLetter)
{
    one->setTitle(QStringLiteral("A"));
    auto* const next = new ListScreen(QStringLiteral("Next"));
    next->view();
    next->navigationItem()->setRightBarButtonItem(
        new kit::BarButtonItem(QStringLiteral("X"), kit::BarButtonItem::Style::Plain, {}));
    stack(0)->pushViewController(next, kit::NavigationController::Animation::None);
    grabbed();
    EXPECT_NE(accessible(QStringLiteral("Back")), nullptr);
    EXPECT_GT(placeOf(QStringLiteral("X")).width(), 24 + 5) << "there is a letter in it";
}

TEST_F(Room, keepsALongButtonOfTheBarFromTheTitle)
{
    const QString endless(200, u'W');
    one->navigationItem()->setRightBarButtonItem(new kit::BarButtonItem(endless, kit::BarButtonItem::Style::Plain, {}));
    grabbed();
    EXPECT_NEAR(placeOf(endless).width(), 140 + 24, 1);
    EXPECT_NEAR(placeOf(endless).right(), 390, 1);
    EXPECT_LE(placeOf(QStringLiteral("One")).right(), placeOf(endless).left());
}

TEST_F(Room, endsTheListAboveAnOnScreenKeyboard)
{
    openSearch();
    showKeyboard({ 0, 500, 390, 344 });
    EXPECT_EQ(two->tableView()->frame().height(), 500 - stack(1)->barHeight());
    EXPECT_LE(placeOfFocus().bottom(), 500);
    EXPECT_GE(symbol().top(), 500) << "the tabs make room for the list";
    press(Qt::Key_End);
    press(Qt::Key_Down);
    showKeyboard({});
    EXPECT_EQ(two->tableView()->frame().height(), quick()->height() - 49 - stack(1)->barHeight());
}

TEST_F(Room, keepsAnAlertAndItsFieldAboveAnOnScreenKeyboard)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addTextField();
    alert->addAction(QStringLiteral("Cancel"), kit::AlertAction::Style::Cancel);
    alert->addAction(QStringLiteral("Add"), kit::AlertAction::Style::Default);
    one->present(alert);
    resize({ 390, 500 });
    showKeyboard({ 0, 280, 390, 220 });
    EXPECT_LE(placeOf(QStringLiteral("Add")).bottom(), 280);
    EXPECT_LE(placeOfFocus().bottom(), 280);
    EXPECT_GE(placeOfFocus().top(), 0);
}

TEST_F(Room, leavesTheListAsItIsUnderAKeyboardThatFloats)
{
    openSearch();
    const double before = two->tableView()->frame().height();
    showKeyboard({ 40, 300, 310, 200 });
    EXPECT_EQ(two->tableView()->frame().height(), before);
}

TEST_F(Room, leavesTheListAsItIsOverAKeyboardBelowTheWindow)
{
    grabbed();
    const double before = one->tableView()->frame().height();
    showKeyboard({ 0, quick()->height() + 100.0, 390, 300 });
    EXPECT_EQ(one->tableView()->frame().height(), before);
}

TEST_F(Room, leavesAnAlertInTheMiddleOverAKeyboardBelowTheWindow)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("OK"), kit::AlertAction::Style::Default);
    one->present(alert);
    grabbed();
    const QRectF before = placeOf(QStringLiteral("OK"));
    showKeyboard({ 0, quick()->height() + 100.0, 390, 300 });
    EXPECT_EQ(placeOf(QStringLiteral("OK")), before);
}
