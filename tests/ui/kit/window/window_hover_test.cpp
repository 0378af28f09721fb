// What the pointer of a mouse above something changes, and that it leaves nothing behind.
#include "tests/ui/kit/window/FingerTest.h"
#include "ui/kit/paint/Animations.h"

namespace {

class Hover : public FingerTest
{
protected:
    Hover() { grabbed(); }

    // What the window shows differs from what it showed without a pointer.
    bool showsSomething() { return grabbed() != m_before; }

    const QImage m_before = grabbed();
};

} // namespace

TEST_F(Hover, showsWhatAPressWouldPressAndNothingAfterLeaving)
{
    const QPoint row = middleOf({ 1, 3 }).toPoint();
    const QPoint button(390 - 50, middleOf({ 0, 1 }).toPoint().y());
    const QPoint barButton(370, 22);
    const QPoint tab(100, quick()->height() - 25);
    for (const QPoint point : { row, button, barButton, tab }) {
        pointAt(point);
        EXPECT_TRUE(showsSomething()) << point.x() << "," << point.y();
        pointAt({ 195, 22 });
        EXPECT_FALSE(showsSomething()) << point.x() << "," << point.y();
    }
}

TEST_F(Hover, marksTheRowLessThanAPressDoes)
{
    const QPoint row = middleOf({ 1, 3 }).toPoint();
    pointAt(row);
    const QImage hovered = grabbed();
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, row);
    const QImage pressed = grabbed();
    EXPECT_NE(hovered, pressed);
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, row);
}

TEST_F(Hover, endsWhenThePointerLeavesTheWindow)
{
    pointAt(middleOf({ 1, 2 }).toPoint());
    ASSERT_TRUE(showsSomething());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(quick(), &leave);
    EXPECT_FALSE(showsSomething());
}

TEST_F(Hover, isNothingThatAFingerLeavesBehind)
{
    const QPoint point = middleOf({ 0, 1 }).toPoint();
    begin(point);
    drawFrame();
    moveTo(point + QPoint(0, -60));
    moveTo(point);
    end();
    drawFrame();
    EXPECT_TRUE(waitUntil([this] { return !itemDrawnBy(QLatin1String("TableBody"))->property("moving").toBool(); }));
    EXPECT_TRUE(waitUntil([this] { return !showsSomething() || stack(0)->canGoBack(); }));
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(Hover, widensTheScrollIndicatorUnderThePointer)
{
    kit::Animations::setEnabled(true);
    window->drawAnew();
    grabbed();
    QQuickItem* const indicator = itemDrawnBy(QLatin1String("ScrollIndicator"));
    press(Qt::Key_End);
    ASSERT_TRUE(waitUntil([&] { return indicator->isVisible(); }));
    const double before = indicator->width();
    pointAt(indicator->mapToScene({ 2, 10 }).toPoint());
    EXPECT_TRUE(waitUntil([&] { return indicator->width() > before * 2; }));
    pointAt({ 195, 22 });
    EXPECT_TRUE(waitUntil([&] { return indicator->width() == before; }));
    kit::Animations::setEnabled(false);
}

TEST_F(Hover, endsWhenAFingerTouchesTheWindow)
{
    pointAt(middleOf({ 1, 2 }).toPoint());
    ASSERT_TRUE(showsSomething());
    touch({ 195, 22 });
    EXPECT_FALSE(showsSomething());
}

TEST_F(Hover, followsTheRowsThatScrollUnderThePointer)
{
    const QPoint spot(120, 400);
    pointAt(spot);
    one->tableView()->setContentOffset(30);
    drawFrame();
    QCoreApplication::processEvents();
    const QImage scrolled = grabbed();
    pointAt({ 195, 22 });
    one->tableView()->setContentOffset(30);
    EXPECT_NE(grabbed(), scrolled);
}

TEST_F(Hover, showsNothingUnderThePointerWhoseButtonHasClosedAnOpenRow)
{
    const QPoint row = middleOf({ 1, 3 }).toPoint();
    one->tableView()->openRow()->open(0, 3);
    grabbed();
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, { 195, 22 });
    ASSERT_FALSE(one->tableView()->openRow()->isOpen());
    pointAt(row);
    EXPECT_FALSE(showsSomething());
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, row);
    pointAt(row + QPoint(3, 0));
    EXPECT_TRUE(showsSomething());
}
