// The drawn side of the kit: everything once in a real window, by touch and by keys, without a warning from Qt.
#include "tests/ui/kit/window/KitWindowTest.h"
#include "ui/kit/paint/Animations.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <utility>
#include <vector>

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

TEST_F(KitWindowTest, opensARowByASwipeAndDeletesIt)
{
    grabbed();
    const QPoint start = middleOf({ 0, 3 }).toPoint() + QPoint(100, 0);
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, start);
    for (int x = 0; x <= 120; x += 10)
        QTest::mouseMove(quick(), start - QPoint(x, 0));
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, start - QPoint(120, 0));
    ASSERT_EQ(one->tableView()->openRow()->row(), 3);
    const QPointF deleteButton(390 - 20, middleOf({ 0, 3 }).y());
    ASSERT_TRUE(waitUntil([&] {
        if (one->firstSectionRows == 5)
            tap(deleteButton);
        return one->firstSectionRows == 4 || one->tableView()->openRow()->row() < 0;
    }));
    EXPECT_EQ(one->firstSectionRows, 4);
    grabbed();
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(KitWindowTest, closesAnOpenRowByEscapeBeforeItGoesBack)
{
    tap(middleOf({ 0, 3 }));
    grabbed();
    kit::TableView& table = *static_cast<ListScreen*>(stack(0)->topViewController())->tableView();
    table.openRow()->open(0, 1);
    press(Qt::Key_Escape);
    EXPECT_EQ(table.openRow()->row(), -1);
    ASSERT_TRUE(stack(0)->canGoBack());
    press(Qt::Key_Escape);
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(KitWindowTest, leavesNoRowOpenBehindAnotherScreen)
{
    grabbed();
    one->tableView()->openRow()->open(0, 1);
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(one->tableView()->openRow()->row(), -1);
}

TEST_F(KitWindowTest, closesAnOpenRowWhenATrackpadScrolls)
{
    grabbed();
    one->tableView()->openRow()->open(0, 1);
    for (const int step : { -30, -50 })
        turnWheel({ 200, 300 }, step);
    EXPECT_TRUE(waitUntil([this] { return one->tableView()->contentOffset() > 0; }));
    EXPECT_EQ(one->tableView()->openRow()->row(), -1);
}

TEST_F(KitWindowTest, makesRoomForTheSpinnerWhileItRefreshes)
{
    grabbed();
    one->tableView()->refreshControl()->beginRefreshing();
    EXPECT_TRUE(waitUntil([this] { return one->tableView()->contentOffset() == -60; }));
    grabbed();
    one->tableView()->refreshControl()->endRefreshing();
    EXPECT_TRUE(waitUntil([this] { return one->tableView()->contentOffset() == 0; }));
    EXPECT_EQ(one->refreshes, 0);
}

TEST_F(KitWindowTest, showsThatItRefreshesWhereverTheListStands)
{
    grabbed();
    const QRect below(quick()->position() + QPoint(0, 44), quick()->size() - QSize(0, 44 + 49));
    one->tableView()->refreshControl()->beginRefreshing();
    for (const double offset : { -60.0, -42.0, -30.0, 0.0, 200.0, 1'500.0 }) {
        one->tableView()->setContentOffset(offset);
        grabbed();
        QAccessibleInterface* const spinner = accessible(QStringLiteral("Refreshing"));
        ASSERT_NE(spinner, nullptr) << offset;
        EXPECT_TRUE(below.contains(spinner->rect())) << offset;
    }
    one->tableView()->refreshControl()->endRefreshing();
    grabbed();
    EXPECT_EQ(accessible(QStringLiteral("Refreshing")), nullptr);
}

TEST_F(KitWindowTest, refreshesByAPull)
{
    grabbed();
    const QPoint start(200, 200);
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, start);
    for (int y = 0; y <= 400; y += 20)
        QTest::mouseMove(quick(), start + QPoint(0, y));
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, start + QPoint(0, 400));
    EXPECT_TRUE(waitUntil([this] { return one->refreshes == 1; }));
    EXPECT_TRUE(one->tableView()->refreshControl()->isRefreshing());
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(KitWindowTest, typesIntoTheSearchFieldAndCancels)
{
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(tabs->selectedIndex(), 1);
    kit::SearchBar* const bar = two->navigationItem()->searchController()->searchBar();
    ASSERT_TRUE(bar->isActive());
    grabbed();
    type(QStringLiteral("vesk"));
    EXPECT_EQ(bar->text(), QStringLiteral("vesk"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(bar->text().isEmpty());
    EXPECT_FALSE(bar->isActive());
    grabbed();
}

TEST_F(KitWindowTest, makesTheSearchFieldOnceAScreenHasOne)
{
    grabbed();
    EXPECT_EQ(itemDrawnBy(QLatin1String("SearchField")), nullptr);
    tabs->setSelectedIndex(1);
    grabbed();
    EXPECT_NE(itemDrawnBy(QLatin1String("SearchField")), nullptr);
}

TEST_F(KitWindowTest, makesTheEditMenuWhenItIsFirstWanted)
{
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    EXPECT_EQ(itemDrawnBy(QLatin1String("EditMenu")), nullptr);
}

TEST_F(KitWindowTest, takesTheKeyboardOffTheSearchFieldThatAScreenCancels)
{
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    kit::SearchBar* const bar = two->navigationItem()->searchController()->searchBar();
    type(QStringLiteral("v"));
    bar->cancel();
    type(QStringLiteral("esk"));
    EXPECT_TRUE(bar->text().isEmpty()) << bar->text().toStdString();
    EXPECT_FALSE(bar->isActive());
}

TEST_F(KitWindowTest, leavesTheKeyboardWhereItIsWhenAScreenCancelsASearchElsewhere)
{
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    press(Qt::Key_1, Qt::ControlModifier);
    press(Qt::Key_Down);
    ASSERT_EQ(one->tableView()->rowFocus()->row(), 0);
    two->navigationItem()->searchController()->searchBar()->cancel();
    press(Qt::Key_Down);
    EXPECT_EQ(one->tableView()->rowFocus()->row(), 1);
}

TEST_F(KitWindowTest, tintsTheCursorAndTheEdgeOfTheSearchFieldInUse)
{
    const QColor tint(48, 88, 145);
    two->navigationItem()->searchController()->searchBar()->setTintColor(
        kit::Color{ 48 / 255.0, 88 / 255.0, 145 / 255.0, 1, {} });
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    const QQuickItem* const cursor = itemDrawnBy(QLatin1String("TextCursor"));
    ASSERT_NE(cursor, nullptr);
    EXPECT_TRUE(cursor->isVisible());
    EXPECT_EQ(cursor->property("color").value<QColor>(), tint);
    const auto* const input = qobject_cast<QQuickItem*>(cursor->property("field").value<QObject*>());
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->property("selectionColor").value<QColor>(), tint);
    EXPECT_EQ(input->parentItem()->property("edge").value<QColor>(), tint);
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

TEST_F(KitWindowTest, comesBackIntoAnActiveSearchField)
{
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_F, Qt::ControlModifier);
    type(QStringLiteral("again"));
    EXPECT_EQ(two->navigationItem()->searchController()->searchBar()->text(), QStringLiteral("again"));
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

TEST_F(KitWindowTest, tellsAScreenReaderWhatEachThingIs)
{
    grabbed();
    const std::vector<std::pair<QString, QAccessible::Role>> expected{
        { QStringLiteral("Row 0.3"), QAccessible::ListItem },
        { QStringLiteral("Section 0"), QAccessible::Heading },
        { QStringLiteral("Reload"), QAccessible::Button },
        { QStringLiteral("About"), QAccessible::Button },
        { QStringLiteral("Press"), QAccessible::Button },
        { QStringLiteral("Two"), QAccessible::PageTab },
    };
    for (const auto& [name, role] : expected) {
        const QAccessibleInterface* const found = accessible(name);
        ASSERT_NE(found, nullptr) << name.toStdString();
        EXPECT_EQ(found->role(), role) << name.toStdString();
    }
    EXPECT_EQ(accessible(QStringLiteral("Row 0.3"))->text(QAccessible::Description), QStringLiteral("Detail, 4 of 5"));
}

TEST_F(KitWindowTest, tellsAScreenReaderWhichButtonsAreDisabled)
{
    grabbed();
    const auto isDisabled = [this](const QString& name) {
        const QAccessibleInterface* const found = accessible(name);
        return found && found->state().disabled;
    };
    EXPECT_FALSE(isDisabled(QStringLiteral("Reload")));
    EXPECT_FALSE(isDisabled(QStringLiteral("Press")));
    one->navigationItem()->rightBarButtonItem()->setEnabled(false);
    static_cast<kit::Button*>(one->tableView()->cellForRow({ 0, 1 })->accessoryView())->setEnabled(false);
    EXPECT_TRUE(isDisabled(QStringLiteral("Reload")));
    EXPECT_TRUE(isDisabled(QStringLiteral("Press")));
    EXPECT_FALSE(isDisabled(QStringLiteral("About")));
    one->navigationItem()->rightBarButtonItem()->setEnabled(true);
    EXPECT_FALSE(isDisabled(QStringLiteral("Reload")));
}

TEST_F(KitWindowTest, doesAtAScreenReadersPressWhatATapDoes)
{
    grabbed();
    const auto pressed = [this](const QString& name) {
        QAccessibleInterface* const found = accessible(name);
        ASSERT_NE(found, nullptr) << name.toStdString();
        ASSERT_NE(found->actionInterface(), nullptr);
        found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    pressed(QStringLiteral("Press"));
    EXPECT_EQ(one->buttonPresses, 1);
    pressed(QStringLiteral("Reload"));
    EXPECT_EQ(one->reloads, 1);
    pressed(QStringLiteral("Row 0.3"));
    EXPECT_EQ(stack(0)->topViewController()->title(), QStringLiteral("Row 0.3"));
    grabbed();
    pressed(QStringLiteral("Back"));
    EXPECT_FALSE(stack(0)->canGoBack());
    pressed(QStringLiteral("Two"));
    EXPECT_EQ(tabs->selectedIndex(), 1);
}

TEST_F(KitWindowTest, tellsAScreenReaderNoMoreOfATextThanIsShown)
{
    kit::TableViewCell* const cell = one->tableView()->cellForRow({ 0, 3 });
    cell->textLabel()->setText(QString(2'000'000, u'W'));
    cell->detailTextLabel()->setText(QString(2'000'000, u'M'));
    grabbed();
    const QAccessibleInterface* const row = accessible(cell->textLabel()->shownText());
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->text(QAccessible::Description), cell->detailTextLabel()->shownText() + QStringLiteral(", 4 of 5"));
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
