// The drawn side of the kit: everything once in a real window, by touch and by keys, without a warning from Qt.
#include "tests/ui/kit/window/KitWindowTest.h"
#include "ui/kit/paint/Animations.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>

namespace {

using Style = kit::AlertAction::Style;

constexpr QRgb HeaderPixel = qRgb(77, 102, 128);

} // namespace

TEST_F(KitWindowTest, drawsEveryKindOfView)
{
    const QImage picture = grabbed();
    ASSERT_EQ(picture.size(), quick()->size());
    EXPECT_EQ(picture.width(), 390);
    EXPECT_EQ(picture.pixel(380, 44 + 100 + 5), HeaderPixel);
    int inked = 0;
    for (int x = 14; x < 90; ++x)
        inked += picture.pixel(x, 44 + 100 + 13) != HeaderPixel ? 1 : 0;
    EXPECT_GT(inked, 5);
}

TEST_F(KitWindowTest, keepsAsManyDrawnCellsAsRowsAreVisibleAndOneMore)
{
    grabbed();
    std::size_t mostVisible = 0;
    for (double offset = 0; offset < 1'500; offset += 13) {
        one->tableView()->setContentOffset(offset);
        grabbed();
        mostVisible = std::max(mostVisible, one->tableView()->indexPathsForVisibleRows().size());
    }
    EXPECT_LE(static_cast<std::size_t>(one->tableView()->cellModel()->rowCount()), mostVisible + 1);
}

TEST_F(KitWindowTest, pushesAtATapAndGoesBackByTheBarAndByKeys)
{
    tap(middleOf({ 0, 3 }));
    ASSERT_TRUE(stack(0)->canGoBack());
    EXPECT_EQ(stack(0)->topViewController()->title(), QStringLiteral("Row 0.3"));
    EXPECT_EQ(stack(0)->topViewController()->backTitle(), QStringLiteral("One"));
    grabbed();
    tap({ 20, 22 });
    EXPECT_FALSE(stack(0)->canGoBack());
    grabbed();
    tap(middleOf({ 0, 3 }));
    ASSERT_TRUE(stack(0)->canGoBack());
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_FALSE(stack(0)->canGoBack());
    tap(middleOf({ 0, 4 }));
    ASSERT_TRUE(stack(0)->canGoBack());
    press(Qt::Key_Escape);
    EXPECT_FALSE(stack(0)->canGoBack());
    grabbed();
}

TEST_F(KitWindowTest, pressesTheButtonInARowWithoutSelectingTheRow)
{
    const QRectF row = one->tableView()->rectForRow({ 0, 1 });
    tap({ 390 - 12 - 35, 44 + row.center().y() });
    EXPECT_EQ(one->buttonPresses, 1);
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(KitWindowTest, changesTabsByTouchAndByKeys)
{
    tap({ quick()->width() * 0.75, quick()->height() - 25.0 });
    EXPECT_EQ(tabs->selectedIndex(), 1);
    grabbed();
    press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(tabs->selectedIndex(), 0);
    press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(tabs->selectedIndex(), 0);
}

TEST_F(KitWindowTest, pressesABarButtonByItsShortcut)
{
    press(Qt::Key_F5);
    EXPECT_EQ(one->reloads, 1);
    one->navigationItem()->rightBarButtonItem()->setEnabled(false);
    press(Qt::Key_F5);
    tap({ 370, 22 });
    EXPECT_EQ(one->reloads, 1);
}

TEST_F(KitWindowTest, choosesARowByKeysAlone)
{
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(one->tableView()->rowFocus()->row(), 1);
    grabbed();
    press(Qt::Key_Return);
    EXPECT_EQ(stack(0)->topViewController()->title(), QStringLiteral("Row 0.1"));
}

TEST_F(KitWindowTest, reachesTheControlsByTab)
{
    QStringList names;
    for (int step = 0; step < 20; ++step) {
        press(Qt::Key_Tab);
        names.append(focusedItemName());
    }
    EXPECT_TRUE(names.contains(QStringLiteral("Reload"))) << names.join(u',').toStdString();
    EXPECT_TRUE(names.contains(QStringLiteral("About"))) << names.join(u',').toStdString();
    EXPECT_TRUE(names.contains(QStringLiteral("Press"))) << names.join(u',').toStdString();
    EXPECT_TRUE(names.contains(QStringLiteral("Two"))) << names.join(u',').toStdString();
}

TEST_F(KitWindowTest, drawsItsHeadersAnewInANewWidth)
{
    grabbed();
    quick()->resize(600, 700);
    ASSERT_TRUE(waitUntil([this] { return one->tableView()->width() == 600; }));
    const QImage picture = grabbed();
    EXPECT_EQ(picture.pixel(590, 44 + 100 + 5), HeaderPixel);
    for (int reload = 0; reload < 5; ++reload) {
        one->tableView()->reloadData();
        grabbed();
    }
}

TEST_F(KitWindowTest, letsViewsGoWhileTheyAreDrawn)
{
    grabbed();
    one->tableView()->setTableHeaderView(nullptr);
    one->tableView()->setRefreshControl(nullptr);
    one->navigationItem()->setLeftBarButtonItem(nullptr);
    one->navigationItem()->setRightBarButtonItem(
        new kit::BarButtonItem(QStringLiteral("Done"), kit::BarButtonItem::Style::Done, {}));
    kit::TableViewCell* const cell = one->tableView()->cellForRow({ 0, 1 });
    cell->setBackgroundView(nullptr);
    cell->setSelectedBackgroundView(nullptr);
    cell->setAccessoryView(nullptr);
    cell->setAccessoryType(kit::TableViewCell::AccessoryType::None);
    grabbed();
}

TEST_F(KitWindowTest, letsAButtonPutAnotherInItsPlace)
{
    auto* edit = new kit::BarButtonItem(QStringLiteral("Edit"), kit::BarButtonItem::Style::Plain, [this] {
        one->navigationItem()->setRightBarButtonItem(
            new kit::BarButtonItem(QStringLiteral("Done"), kit::BarButtonItem::Style::Done, {}));
    });
    one->navigationItem()->setRightBarButtonItem(edit);
    grabbed();
    tap({ 370, 22 });
    EXPECT_EQ(one->navigationItem()->rightBarButtonItem()->title(), QStringLiteral("Done"));
    grabbed();
}

TEST_F(KitWindowTest, makesTheEditMenuWhenItIsFirstWanted)
{
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    EXPECT_EQ(itemDrawnBy(QLatin1String("EditMenu")), nullptr);
}

TEST_F(KitWindowTest, showsWhichPartIsSeenWhileAKeyOrAWheelScrolls)
{
    kit::Animations::setEnabled(true);
    grabbed();
    QQuickItem* const indicator = itemDrawnBy(QLatin1String("ScrollIndicator"));
    ASSERT_NE(indicator, nullptr);
    EXPECT_FALSE(indicator->isVisible());
    press(Qt::Key_Down);
    EXPECT_FALSE(indicator->isVisible()) << "nothing scrolled";
    press(Qt::Key_End);
    EXPECT_TRUE(waitUntil([&] { return indicator->isVisible(); }));
    EXPECT_TRUE(waitUntil([&] { return !indicator->isVisible(); }));
    const QPointF place(200, 300);
    QWheelEvent wheel(place, quick()->mapToGlobal(place), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QGuiApplication::sendEvent(quick(), &wheel);
    EXPECT_TRUE(waitUntil([&] { return indicator->isVisible(); }));
    EXPECT_TRUE(waitUntil([&] { return !indicator->isVisible(); }));
    kit::Animations::setEnabled(false);
}

TEST_F(KitWindowTest, goesToTheEndsOfATableByKeys)
{
    press(Qt::Key_End);
    EXPECT_EQ(one->tableView()->rowFocus()->section(), 1);
    EXPECT_EQ(one->tableView()->rowFocus()->row(), 39);
    press(Qt::Key_Home);
    EXPECT_EQ(one->tableView()->rowFocus()->section(), 0);
    EXPECT_EQ(one->tableView()->rowFocus()->row(), 0);
    EXPECT_EQ(one->tableView()->contentOffset(), 0);
}

TEST_F(KitWindowTest, drawsTheTabsThatCameLater)
{
    grabbed();
    tabs->setViewControllers(
        { tabs->viewControllers()[1], new kit::NavigationController(new ListScreen(QStringLiteral("Three"))) });
    grabbed();
    EXPECT_NE(accessible(QStringLiteral("Three")), nullptr);
    EXPECT_EQ(accessible(QStringLiteral("One")), nullptr);
    tap({ quick()->width() * 0.75, quick()->height() - 25.0 });
    EXPECT_EQ(tabs->selectedIndex(), 1);
    grabbed();
}

TEST_F(KitWindowTest, showsTextsOfAnyKindAndLength)
{
    const QString hostile = QString(100'000, u'W') + QChar(0x202E) + QStringLiteral("<b>&amp;") + QChar(0xD800);
    kit::TableViewCell* const cell = one->tableView()->cellForRow({ 0, 3 });
    cell->textLabel()->setText(hostile);
    cell->detailTextLabel()->setText(QStringLiteral("\u0645\u0631\u062D\u0628\u0627 \u4F60\u597D\n\n\n"));
    cell->setNeedsLayout();
    kit::AlertController* const alert = new kit::AlertController(hostile, hostile, kit::AlertController::Style::Alert);
    alert->addAction(hostile, Style::Default);
    one->present(alert);
    grabbed();
    press(Qt::Key_Return);
    EXPECT_EQ(window->presentedAlert(), nullptr);
}

TEST_F(KitWindowTest, boundsTheTitlesOfItsBarAndTheNamesOfItsControls)
{
    const QString endless(2'000'000, u'W');
    stack(0)->pushViewController(new ListScreen(endless), kit::NavigationController::Animation::None);
    stack(0)->pushViewController(new ListScreen(QStringLiteral("Below")), kit::NavigationController::Animation::None);
    grabbed();
    ASSERT_NE(accessible(QStringLiteral("Back")), nullptr);
    EXPECT_LE(accessible(QStringLiteral("Back"))->text(QAccessible::Description).size(), 500);
    stack(0)->popViewController(kit::NavigationController::Animation::None);
    grabbed();
    EXPECT_NE(accessible(endless.left(500)), nullptr);
    kit::Switch control;
    control.setAccessibilityLabel(endless);
    EXPECT_EQ(control.accessibilityLabel(), endless.left(1'000));
}

TEST_F(KitWindowTest, takesWhatIsOnTheScreenWithIt)
{
    const QPointer<QQuickWindow> shown(quick());
    window.reset();
    EXPECT_TRUE(shown.isNull());
}

TEST_F(KitWindowTest, closesInTheMiddleOfEverything)
{
    grabbed();
    tap(middleOf({ 0, 3 }));
    one->tableView()->refreshControl()->beginRefreshing();
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("OK"), Style::Default);
    one->present(alert);
    window.reset();
}
