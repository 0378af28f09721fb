// What a finger means by what it does: stopping, holding, slipping, drawing and pulling.
#include "tests/ui/kit/window/FingerTest.h"
#include "ui/kit/paint/Animations.h"

#include <QGuiApplication>
#include <QStyleHints>

#include <array>

namespace {

class Hand : public FingerTest
{
protected:
    Hand() { grabbed(); }
    void TearDown() override { kit::Animations::setEnabled(false); }

    kit::TableView& table() const { return *one->tableView(); }
    kit::Switch& switchOf(int row) const
    {
        return *qobject_cast<kit::Switch*>(table().cellForRow({ 0, row })->accessoryView());
    }
    // The middle of the control at a row's right end.
    QPoint accessoryOf(const kit::IndexPath& row) const
    {
        const QPointF inCell = table().cellForRow(row)->accessoryView()->frame().center();
        return { static_cast<int>(inCell.x()), middleOf(row).toPoint().y() };
    }
    QPoint pointOf(const kit::IndexPath& row) const { return middleOf(row).toPoint(); }
    bool isHighlighted(const kit::IndexPath& row) const { return table().cellForRow(row)->isHighlighted(); }
    bool isMoving() const { return flickable()->property("moving").toBool(); }
    QQuickItem* flickable() const
    {
        QQuickItem* const body = itemDrawnBy(QLatin1String("TableBody"));
        for (QQuickItem* child : body->childItems())
            if (child->inherits("QQuickFlickable"))
                return child;
        return nullptr;
    }
    // Leaves the list moving. Not by a finger, whose speed would depend on that of the machine.
    void flick()
    {
        constexpr qreal upwards = -3000;
        QMetaObject::invokeMethod(flickable(), "flick", Q_ARG(qreal, 0), Q_ARG(qreal, upwards));
        drawFrame();
        ASSERT_TRUE(isMoving());
    }
    void swipeLeft(int row, int points)
    {
        const QPoint from(380, pointOf({ 0, row }).y());
        begin(from);
        moveTo(from - QPoint(points, 0), 20);
        end();
        QCoreApplication::processEvents();
    }
    // How far down the finger goes until the list refreshes once more, with the list at its rest before.
    int pullUntilRefreshed()
    {
        constexpr int Furthest = 500;
        const int before = one->refreshes;
        begin({ 200, 160 });
        int distance = 0;
        while (one->refreshes == before && distance < Furthest)
            moveTo({ 200, 160 + (distance += 4) }, 1);
        EXPECT_EQ(one->refreshes, before + 1) << "before the finger is lifted";
        moveTo(place + QPoint(0, 40), 4);
        end();
        EXPECT_EQ(one->refreshes, before + 1) << "and no second time in the same stroke";
        return distance;
    }
};

class Animated
{
protected:
    Animated() { kit::Animations::setEnabled(true); }
};

// Of a window that moves from its beginning.
class MovingHand : private Animated, public Hand
{
};

} // namespace

// MARK: stopping

TEST_F(Hand, opensNothingByATouchThatStopsTheList)
{
    flick();
    touch({ 120, 400 });
    EXPECT_FALSE(stack(0)->canGoBack());
    EXPECT_TRUE(waitUntil([this] { return !isMoving(); }));
}

TEST_F(MovingHand, pressesNoButtonInARowThatMoves)
{
    table().refreshControl()->beginRefreshing();
    ASSERT_GT(table().contentOffset(), -60) << "it is on its way there";
    touch(accessoryOf({ 0, 1 }));
    EXPECT_EQ(one->buttonPresses, 0);
    table().refreshControl()->endRefreshing();
    table().refreshControl()->beginRefreshing();
    touch(pointOf({ 0, 2 }));
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(Hand, opensARowOnceTheListRestsAgain)
{
    flick();
    touch({ 120, 400 });
    ASSERT_TRUE(waitUntil([this] { return !isMoving(); }));
    touch({ 120, 400 });
    EXPECT_TRUE(stack(0)->canGoBack());
}

// MARK: the open row

TEST_F(Hand, onlyClosesTheOpenRowByATouchAnywhereElse)
{
    const QPoint header(100, 44 + 100 + 12);
    const std::array elsewhere{ QPoint(370, 22), QPoint(300, quick()->height() - 25), QPoint(200, 60), header,
        pointOf({ 0, 2 }), accessoryOf({ 0, 0 }), accessoryOf({ 0, 1 }) };
    for (const QPoint& point : elsewhere) {
        table().openRow()->open(0, 3);
        grabbed();
        touch(point);
        EXPECT_EQ(table().openRow()->row(), -1) << point.x() << ", " << point.y();
    }
    EXPECT_EQ(one->reloads, 0);
    EXPECT_EQ(tabs->selectedIndex(), 0);
    EXPECT_FALSE(stack(0)->canGoBack());
    EXPECT_FALSE(switchOf(0).isOn());
    EXPECT_EQ(one->buttonPresses, 0);
    touch({ 370, 22 });
    EXPECT_EQ(one->reloads, 1) << "the next touch does what it always does";
}

TEST_F(Hand, onlyClosesTheOpenRowByAClickOfTheMouseElsewhere)
{
    table().openRow()->open(0, 3);
    grabbed();
    tap({ 370, 22 });
    EXPECT_EQ(table().openRow()->row(), -1);
    EXPECT_EQ(one->reloads, 0);
    tap({ 370, 22 });
    EXPECT_EQ(one->reloads, 1);
}

TEST_F(Hand, onlyClosesTheOpenRowByATouchOnItself)
{
    for (const QPoint& point : { QPoint(40, pointOf({ 0, 0 }).y()), accessoryOf({ 0, 0 }) - QPoint(88, 0) }) {
        table().openRow()->open(0, 0);
        grabbed();
        touch(point);
        EXPECT_EQ(table().openRow()->row(), -1);
    }
    EXPECT_FALSE(switchOf(0).isOn());
    EXPECT_FALSE(stack(0)->canGoBack());
    EXPECT_EQ(one->firstSectionRows, 5);
}

TEST_F(Hand, deletesByTheButtonOfTheOpenRow)
{
    table().openRow()->open(0, 3);
    grabbed();
    touch({ 370, pointOf({ 0, 3 }).y() });
    EXPECT_EQ(one->firstSectionRows, 4);
}

TEST_F(Hand, opensARowByHalfTheWidthOfItsButtonAndNotByLess)
{
    swipeLeft(3, 44);
    EXPECT_EQ(table().openRow()->row(), -1);
    swipeLeft(3, 45);
    EXPECT_EQ(table().openRow()->row(), 3);
}

TEST_F(Hand, drawsAnOpenRowOnFromWhereItStands)
{
    table().openRow()->open(0, 3);
    grabbed();
    const QPoint content(200, pointOf({ 0, 3 }).y());
    begin(content);
    moveTo(content - QPoint(30, 0), 15);
    end();
    EXPECT_EQ(table().openRow()->row(), 3);
    begin(content);
    moveTo(content + QPoint(43, 0), 20);
    end();
    EXPECT_EQ(table().openRow()->row(), 3);
    begin(content);
    moveTo(content + QPoint(44, 0), 20);
    end();
    EXPECT_EQ(table().openRow()->row(), -1);
}

TEST_F(Hand, showsAScreenReaderTheDeleteButtonOnlyOnceTheRowStandsOpen)
{
    const QPoint content(300, pointOf({ 0, 3 }).y());
    begin(content);
    moveTo(content - QPoint(60, 0), 20);
    EXPECT_EQ(accessible(QStringLiteral("Delete")), nullptr) << "it could still go back";
    end();
    grabbed();
    EXPECT_NE(accessible(QStringLiteral("Delete")), nullptr);
}

TEST_F(Hand, deletesARowByAWholeSwipe)
{
    const int whole = static_cast<int>(table().width() * 0.6);
    swipeLeft(3, whole);
    EXPECT_EQ(one->firstSectionRows, 5);
    EXPECT_EQ(table().openRow()->row(), 3);
    table().openRow()->close();
    grabbed();
    swipeLeft(3, whole + 1);
    EXPECT_EQ(one->firstSectionRows, 4);
    EXPECT_EQ(table().openRow()->row(), -1);
}

// MARK: one press, one screen

TEST_F(Hand, goesBackByOneScreenHoweverQuicklyBackIsTouchedTwice)
{
    for (const bool animated : { false, true }) {
        kit::Animations::setEnabled(animated);
        stack(0)->pushViewController(
            new ListScreen(QStringLiteral("First")), kit::NavigationController::Animation::None);
        stack(0)->pushViewController(
            new ListScreen(QStringLiteral("Second")), kit::NavigationController::Animation::None);
        grabbed();
        touch({ 30, 22 });
        drawFrame();
        touch({ 30, 22 });
        ASSERT_TRUE(waitUntil([this] { return !stack(0)->isTransitioning(); }));
        EXPECT_EQ(stack(0)->viewControllers().size(), 2U);
        stack(0)->popToRootViewController(kit::NavigationController::Animation::None);
        grabbed();
    }
}

TEST_F(MovingHand, staysOnTheScreenThatATouchOpened)
{
    touch(pointOf({ 0, 2 }));
    ASSERT_TRUE(waitUntil([this] { return !stack(0)->isTransitioning(); }));
    EXPECT_EQ(stack(0)->viewControllers().size(), 2U);
}

TEST_F(Hand, touchesNothingWhileOneScreenGivesWayToAnother)
{
    kit::Animations::setEnabled(true);
    touch(pointOf({ 0, 2 }));
    ASSERT_TRUE(stack(0)->isTransitioning());
    drawFrame();
    touch(pointOf({ 0, 3 }));
    touch({ 30, 22 });
    ASSERT_TRUE(waitUntil([this] { return !stack(0)->isTransitioning(); }));
    EXPECT_EQ(stack(0)->viewControllers().size(), 2U);
}

// MARK: holding and slipping

TEST_F(Hand, opensARowThatWasHeldForLong)
{
    const int usual = QGuiApplication::styleHints()->mousePressAndHoldInterval();
    constexpr int Short = 40;
    QGuiApplication::styleHints()->setMousePressAndHoldInterval(Short);
    begin(pointOf({ 0, 2 }));
    EXPECT_TRUE(isHighlighted({ 0, 2 }));
    QTest::qWait(5 * Short);
    EXPECT_TRUE(isHighlighted({ 0, 2 }));
    end();
    EXPECT_TRUE(stack(0)->canGoBack());
    QGuiApplication::styleHints()->setMousePressAndHoldInterval(usual);
}

TEST_F(Hand, keepsARowPressedWhileTheFingerSlipsAlongIt)
{
    begin(pointOf({ 1, 2 }));
    moveTo(pointOf({ 1, 2 }) + QPoint(60, 0));
    EXPECT_TRUE(isHighlighted({ 1, 2 })) << "this row cannot be swiped";
    end();
    EXPECT_TRUE(stack(0)->canGoBack());
}

TEST_F(Hand, showsThatAButtonIsPressedOnlyWhileTheFingerIsOnIt)
{
    const auto down = [this] { return itemDrawnBy(QLatin1String("ButtonView"))->property("down").toBool(); };
    // At its left edge, so that it is left before the row takes the finger for a swipe.
    const QRectF frame = table().cellForRow({ 0, 1 })->accessoryView()->frame();
    const QPoint inside = accessoryOf({ 0, 1 }) - QPoint(static_cast<int>(frame.width() / 2) - 3, 0);
    const QPoint outside = inside - QPoint(7, 0);
    begin(inside);
    EXPECT_TRUE(down());
    moveTo(outside, 1);
    EXPECT_FALSE(down());
    moveTo(inside, 1);
    EXPECT_TRUE(down());
    moveTo(outside, 1);
    end();
    EXPECT_EQ(one->buttonPresses, 0);
}

TEST_F(Hand, showsThatATabIsPressedAndGivesItUpWhenTheFingerLeaves)
{
    const QPoint tab(290, quick()->height() - 25);
    const QImage before = grabbed();
    begin(tab);
    EXPECT_NE(grabbed(), before);
    moveTo(tab - QPoint(0, 200), 2);
    EXPECT_EQ(grabbed(), before);
    end();
    EXPECT_EQ(tabs->selectedIndex(), 0);
}

TEST_F(Hand, findsAButtonWithinFortyFourPointsOfHeight)
{
    const QPoint button = accessoryOf({ 0, 1 });
    for (const int beside : { -23, 22 }) {
        touch(button + QPoint(0, beside));
        EXPECT_EQ(one->buttonPresses, 0) << beside;
        stack(0)->popToRootViewController(kit::NavigationController::Animation::None);
        grabbed();
    }
    for (const int within : { -22, 21 })
        touch(button + QPoint(0, within));
    EXPECT_EQ(one->buttonPresses, 2);
}

// MARK: pulling

TEST_F(Hand, pullsAsFarForASecondRefreshAsForTheFirst)
{
    const int first = pullUntilRefreshed();
    ASSERT_TRUE(waitUntil([this] { return table().contentOffset() == -60 && !isMoving(); }));
    const int second = pullUntilRefreshed();
    EXPECT_NEAR(second, first, 8);
    EXPECT_GT(first, 84);
}

TEST_F(Hand, refreshesOnceTheListStandsFurtherDownThanEightyFourPoints)
{
    const int way = 400;
    double before = 0;
    begin({ 200, 160 });
    for (int distance = 1; one->refreshes == 0 && distance < way; ++distance) {
        before = table().contentOffset();
        moveTo({ 200, 160 + distance }, 1);
    }
    EXPECT_GE(before, -84);
    EXPECT_LT(table().contentOffset(), -84);
    EXPECT_EQ(one->refreshes, 1);
    end();
}

TEST_F(Hand, leavesNoRoomForTheSpinnerAfterARefresh)
{
    const auto room = [this] { return flickable()->property("topMargin").toDouble(); };
    table().refreshControl()->beginRefreshing();
    EXPECT_TRUE(waitUntil([&] { return table().contentOffset() == -60; }));
    EXPECT_EQ(room(), 60);
    table().refreshControl()->endRefreshing();
    EXPECT_TRUE(waitUntil([&] { return room() == 0; }));
    EXPECT_EQ(table().contentOffset(), 0);
}

TEST_F(Hand, doesNotRefreshByAShorterPull)
{
    const int enough = pullUntilRefreshed();
    table().refreshControl()->endRefreshing();
    ASSERT_TRUE(waitUntil([this] { return table().contentOffset() == 0 && !isMoving(); }));
    begin({ 200, 160 });
    moveTo({ 200, 160 + enough - 6 }, enough / 4);
    end();
    EXPECT_EQ(one->refreshes, 1);
}

TEST_F(Hand, stopsTheListByTakingHoldOfTheScrollIndicator)
{
    flick();
    begin(itemDrawnBy(QLatin1String("ScrollIndicator"))->mapToScene({ 2, 10 }).toPoint());
    const double offset = table().contentOffset();
    drawFrame();
    drawFrame();
    EXPECT_FALSE(isMoving());
    EXPECT_EQ(table().contentOffset(), offset);
    end();
}

TEST_F(Hand, takesHoldOfTheScrollIndicator)
{
    flick();
    QQuickItem* const indicator = itemDrawnBy(QLatin1String("ScrollIndicator"));
    ASSERT_NE(indicator, nullptr);
    ASSERT_TRUE(indicator->isVisible());
    begin(indicator->mapToScene({ 2, 10 }).toPoint());
    moveTo(place + QPoint(0, 700), 20);
    end();
    EXPECT_NEAR(table().contentOffset(), table().contentHeight() - table().height(), 1);
    EXPECT_FALSE(stack(0)->canGoBack());
}
