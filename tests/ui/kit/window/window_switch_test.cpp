// A switch in a row: how it is touched and drawn, and how it looks meanwhile.
#include "tests/ui/kit/paint/AnimationClock.h"
#include "tests/ui/kit/paint/Moving.h"
#include "tests/ui/kit/window/FingerTest.h"
#include "ui/kit/paint/KitLook.h"

#include <QtMath>

namespace {

class SwitchTest : public FingerTest
{
protected:
    SwitchTest() { grabbed(); }

    // That of the first row.
    QQuickItem& drawn() const { return *itemDrawnBy(QLatin1String("SwitchView")); }
    bool isOn() const { return drawn().property("view").value<kit::Switch*>()->isOn(); }
    QPoint middle() const { return drawn().mapToScene({ drawn().width() / 2, drawn().height() / 2 }).toPoint(); }
    const QQuickItem& knob() const
    {
        for (const QQuickItem* part : drawn().childItems())
            if (part->inherits("kit::RoundedBox") && part->width() == part->height())
                return *part;
        ADD_FAILURE() << "no knob";
        return drawn();
    }
    // Where the knob is when the switch is on.
    double lastX() const { return drawn().width() - knob().width() - 2; }
    QPoint inKnob() const { return knob().mapToScene({ 10, 10 }).toPoint(); }
    void slip(int points)
    {
        const QPoint start = middle();
        begin(start);
        moveTo(start + QPoint(points, 0), points);
        end();
        QCoreApplication::processEvents();
    }
};

// Of a window that moves from its beginning.
class MovingSwitch : private Moving, public SwitchTest
{
};

} // namespace

// MARK: touching

TEST_F(SwitchTest, switchesTwiceByTwoQuickTouchesOrClicks)
{
    touch(middle());
    EXPECT_TRUE(isOn());
    touch(middle());
    EXPECT_FALSE(isOn());
    QTest::mouseDClick(quick(), Qt::LeftButton, Qt::NoModifier, middle());
    EXPECT_FALSE(isOn());
}

TEST_F(SwitchTest, switchesTwiceByTwoQuickTouchesThoughTheSecondSlips)
{
    touch(middle());
    EXPECT_TRUE(isOn());
    slip(9);
    EXPECT_FALSE(isOn());
}

TEST_F(SwitchTest, switchesOnceByAClickAfterADoubleClickThatSlippedOff)
{
    const QPoint edge = drawn().mapToScene({ drawn().width() + 5, drawn().height() / 2 }).toPoint();
    tap(edge);
    ASSERT_TRUE(isOn());
    for (const QEvent::Type type : { QEvent::MouseButtonPress, QEvent::MouseButtonDblClick }) {
        QMouseEvent event(type, edge, quick()->mapToGlobal(edge), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(quick(), &event);
    }
    QTest::mouseMove(quick(), edge + QPoint(3, 0));
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, edge + QPoint(3, 0));
    ASSERT_TRUE(isOn()) << "given up";
    tap(middle());
    EXPECT_FALSE(isOn());
}

TEST_F(SwitchTest, isFoundWithinSixPointsOnEverySide)
{
    const QRectF exact = drawn().mapRectToScene({ -6, -6, drawn().width() + 12, drawn().height() + 12 });
    // The points that are wholly inside.
    const QRect reach(
        QPoint(qCeil(exact.left()), qCeil(exact.top())), QPoint(qCeil(exact.right()) - 1, qCeil(exact.bottom()) - 1));
    const QPoint center = reach.center();
    bool wasOn = false;
    for (const QPoint& inside : { QPoint(center.x(), reach.top()), QPoint(center.x(), reach.bottom()),
             QPoint(reach.left(), center.y()), QPoint(reach.right(), center.y()) }) {
        touch(inside);
        EXPECT_NE(isOn(), wasOn) << inside.x() << ", " << inside.y();
        wasOn = isOn();
        EXPECT_FALSE(stack(0)->canGoBack());
    }
    for (const QPoint& outside : { QPoint(center.x(), reach.top() - 1), QPoint(center.x(), reach.bottom() + 1),
             QPoint(reach.left() - 1, center.y()), QPoint(reach.right() + 1, center.y()) }) {
        touch(outside);
        EXPECT_EQ(isOn(), wasOn) << outside.x() << ", " << outside.y();
        EXPECT_TRUE(stack(0)->canGoBack()) << "that was the row";
        stack(0)->popToRootViewController(kit::NavigationController::Animation::None);
        grabbed();
    }
}

TEST_F(SwitchTest, takesAFingerThatSlippedNinePointsForATap)
{
    slip(9);
    EXPECT_TRUE(isOn());
}

TEST_F(SwitchTest, takesAFingerThatSlippedTenPointsForADrawThatCameToNothing)
{
    slip(10);
    EXPECT_FALSE(isOn());
}

TEST_F(SwitchTest, hasADarkerKnobUnderThePointerAndAStillDarkerOneWhileItIsPressed)
{
    const kit::KitLook look;
    const auto expectDarker = [&](int percent) {
        EXPECT_EQ(knob().property("upper").value<QColor>().rgba(),
            look.property("knobBottom").value<QColor>().darker(percent).rgba());
        EXPECT_EQ(knob().property("lower").value<QColor>().rgba(),
            look.property("knobTop").value<QColor>().darker(percent).rgba());
    };
    pointAt({ 195, 22 });
    expectDarker(100);
    pointAt(middle());
    expectDarker(105);
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, middle());
    expectDarker(110);
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, middle());
}

// MARK: drawing

TEST_F(SwitchTest, isDrawnToEitherSide)
{
    const QPoint start = middle();
    for (const int way : { 27, -27, 57, -57 }) {
        begin(start);
        moveTo(start + QPoint(way, 0), 9);
        end();
        EXPECT_EQ(isOn(), way > 0) << way;
        EXPECT_EQ(one->tableView()->openRow()->row(), -1) << "the row stays shut";
        grabbed();
    }
}

TEST_F(SwitchTest, keepsTheFingerThatDrawsItWhereverThatGoes)
{
    const QPoint start = middle();
    begin(start);
    moveTo(start + QPoint(30, 0));
    moveTo(start + QPoint(30, 150));
    end();
    EXPECT_TRUE(isOn());
    EXPECT_EQ(one->tableView()->contentOffset(), 0);
}

TEST_F(SwitchTest, staysAsItIsWhenItIsDrawnThereAgain)
{
    const QPoint start = middle();
    begin(start);
    moveTo(start + QPoint(30, 0));
    moveTo(start - QPoint(20, 0));
    end();
    EXPECT_FALSE(isOn());
}

TEST_F(SwitchTest, leavesAFingerThatGoesUpToTheList)
{
    const QPoint start = middle();
    begin(start);
    moveTo(start - QPoint(0, 100));
    end();
    EXPECT_GT(one->tableView()->contentOffset(), 50);
    EXPECT_FALSE(isOn());
}

TEST_F(MovingSwitch, keepsItsKnobUnderTheFinger)
{
    const QPoint start = inKnob();
    begin(start);
    moveTo(start + QPoint(14, 0), 14);
    const double before = knob().x();
    moveTo(start + QPoint(19, 0), 1);
    EXPECT_EQ(knob().x(), before + 5);
    moveTo(start + QPoint(300, 0), 1);
    EXPECT_EQ(knob().x(), lastX()) << "and no further";
    moveTo(start - QPoint(200, 0), 1);
    EXPECT_EQ(knob().x(), 2) << "nor there";
    end();
}

TEST_F(MovingSwitch, isDrawnFromWhereItsKnobIs)
{
    const QPoint start = inKnob();
    touch(start);
    ASSERT_TRUE(waitUntil([this] { return knob().x() == lastX(); }));
    begin(start);
    moveTo(start - QPoint(12, 0), 12);
    EXPECT_LT(knob().x(), lastX());
    EXPECT_GE(knob().x(), lastX() - 12);
    end();
}

TEST_F(MovingSwitch, isDrawnOnceTheFingerIsFartherAwayThanSixPoints)
{
    const QPoint start = inKnob();
    begin(start);
    moveTo(start + QPoint(6, 0), 6);
    EXPECT_EQ(knob().x(), 2);
    moveTo(start + QPoint(7, 0), 1);
    EXPECT_EQ(knob().x(), 2 + 7);
    end();
}

TEST_F(MovingSwitch, changesWhenItsKnobIsLetGoBeyondTheMiddle)
{
    const int half = qRound((lastX() - 2) / 2);
    for (const int distance : { half, half + 1 }) {
        const QPoint start = inKnob();
        begin(start);
        moveTo(start + QPoint(distance, 0), distance);
        end();
        EXPECT_EQ(isOn(), distance > half) << distance;
        ASSERT_TRUE(isOn() || waitUntil([this] { return knob().x() == 2; }));
    }
}

TEST_F(MovingSwitch, isDrawnFromSixPointsBesideItAndLeavesTheRestToTheRow)
{
    const QPoint left = drawn().mapToScene({ 0, 10 }).toPoint();
    for (const int distance : { 7, 6 }) {
        begin(left - QPoint(distance, 0));
        moveTo(left + QPoint(50, 0), 20);
        end();
        EXPECT_EQ(isOn(), distance == 6) << distance;
    }
}

TEST_F(MovingSwitch, changesItsColourWhileItsKnobMoves)
{
    constexpr int Flip = 150;
    AnimationClock clock;
    const QColor on = kit::KitLook().property("switchOn").value<QColor>();
    touch(inKnob());
    clock.goTo(Flip * 3 / 4);
    EXPECT_NE(knob().x(), lastX());
    EXPECT_NE(drawn().property("fill").value<QColor>(), on);
    clock.goTo(Flip);
    EXPECT_EQ(knob().x(), lastX());
    EXPECT_EQ(drawn().property("fill").value<QColor>(), on);
}
