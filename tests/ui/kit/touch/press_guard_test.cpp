#include "ui/kit/touch/PressGuard.h"

#include <QPointingDevice>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace {

// A window that writes down which presses, turns of the wheel and keys came to it.
class RecordingWindow : public QQuickWindow
{
public:
    // Since it was asked last.
    std::string received() { return std::exchange(m_received, {}); }

protected:
    bool event(QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::TouchBegin:
            return note("press", event);
        case QEvent::MouseMove:
        case QEvent::TouchUpdate:
            return note("move", event);
        case QEvent::MouseButtonRelease:
        case QEvent::TouchEnd:
            return note("release", event);
        case QEvent::MouseButtonDblClick:
            return note("double click", event);
        case QEvent::Wheel:
            return note("wheel", event);
        case QEvent::KeyPress:
            return note("key", event);
        default:
            return QQuickWindow::event(event);
        }
    }

private:
    bool note(const char* what, QEvent* event)
    {
        m_received += m_received.empty() ? "" : " ";
        m_received += what;
        event->accept();
        return true;
    }

    std::string m_received;
};

// A window of 100 by 100 points and a guard that spares its lower right corner.
class PressGuardTest : public testing::Test
{
protected:
    PressGuardTest()
    {
        window.resize(100, 100);
        corner.setParentItem(window.contentItem());
        corner.setPosition({ 60, 60 });
        corner.setSize({ 40, 40 });
        guard.setParentItem(window.contentItem());
        spare(&corner);
        window.show();
        window.requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void activate(bool active) { guard.setProperty("active", active); }
    void spare(QQuickItem* item) { guard.setProperty("spared", QVariant::fromValue(item)); }

    void press(const QPoint& place)
    {
        QTest::mouseMove(&window, place);
        window.received();
        QTest::mousePress(&window, Qt::LeftButton, {}, place);
    }
    void move(const QPoint& place) { QTest::mouseMove(&window, place); }
    void release(const QPoint& place) { QTest::mouseRelease(&window, Qt::LeftButton, {}, place); }
    void click(const QPoint& place)
    {
        press(place);
        move(place + QPoint(5, 5));
        move(place + QPoint(6, 6));
        release(place + QPoint(6, 6));
    }
    bool takesMoves()
    {
        window.received();
        move(Inside);
        move(Outside);
        return window.received() != "";
    }
    void touch(const QPoint& place)
    {
        QTest::touchEvent(&window, finger.get()).press(0, place, &window);
        QTest::touchEvent(&window, finger.get()).move(0, place + QPoint(5, 5), &window);
        QTest::touchEvent(&window, finger.get()).move(0, place + QPoint(6, 6), &window);
        QTest::touchEvent(&window, finger.get()).release(0, place + QPoint(6, 6), &window);
    }

    const std::unique_ptr<QPointingDevice> finger{ QTest::createTouchDevice() };
    RecordingWindow window;
    QQuickItem corner;
    kit::PressGuard guard;
    const QSignalSpy elsewhere{ &guard, &kit::PressGuard::pressedElsewhere };

    const QPoint Outside{ 10, 10 };
    const QPoint Inside{ 70, 70 };
    const std::string Whole = "press move move release";
};

} // namespace

TEST_F(PressGuardTest, keepsAPressOfTheMouseFromTheWindowUntilItsRelease)
{
    activate(true);
    click(Outside);
    EXPECT_EQ(window.received(), "");
    EXPECT_EQ(elsewhere.count(), 1);
    EXPECT_TRUE(takesMoves());
}

TEST_F(PressGuardTest, keepsATouchFromTheWindowUntilItsRelease)
{
    activate(true);
    touch(Outside);
    EXPECT_EQ(window.received(), "");
    EXPECT_EQ(elsewhere.count(), 1);
    EXPECT_TRUE(takesMoves());
}

// Of a touch that nobody accepts, a press of the mouse is made.
TEST_F(PressGuardTest, acceptsTheTouchThatItKeeps)
{
    activate(true);
    QTouchEvent touch(QEvent::TouchBegin, finger.get(), {}, { QEventPoint(0, QEventPoint::Pressed, Outside, Outside) });
    touch.setAccepted(false);
    QCoreApplication::sendEvent(&window, &touch);
    EXPECT_TRUE(touch.isAccepted());
}

TEST_F(PressGuardTest, keepsTheSecondOfTwoQuickClicksToo)
{
    takesMoves();
    activate(true);
    QTest::mouseDClick(&window, Qt::LeftButton, {}, Outside);
    EXPECT_EQ(window.received(), "");
}

TEST_F(PressGuardTest, leavesAPressOnWhatItSpares)
{
    activate(true);
    click(Inside);
    EXPECT_EQ(window.received(), Whole);
    touch(Inside);
    EXPECT_EQ(window.received(), Whole);
    EXPECT_EQ(elsewhere.count(), 0);
}

TEST_F(PressGuardTest, leavesAllPressesWhileItIsNotActive)
{
    click(Outside);
    EXPECT_EQ(window.received(), Whole);
    touch(Outside);
    EXPECT_EQ(window.received(), Whole);
    EXPECT_EQ(elsewhere.count(), 0);
}

TEST_F(PressGuardTest, leavesATouchAcceptedThatItDoesNotKeep)
{
    QTouchEvent touch(QEvent::TouchBegin, finger.get(), {}, { QEventPoint(0, QEventPoint::Pressed, Outside, Outside) });
    touch.setAccepted(true);
    EXPECT_FALSE(guard.eventFilter(&window, &touch));
    EXPECT_TRUE(touch.isAccepted());
}

TEST_F(PressGuardTest, keepsEveryPressWhereItSparesNothing)
{
    spare(nullptr);
    activate(true);
    click(Inside);
    touch(Inside);
    EXPECT_EQ(window.received(), "");
    EXPECT_EQ(elsewhere.count(), 2);
}

TEST_F(PressGuardTest, keepsTheRestOfAPressAfterWhichItIsNotActiveAnyMore)
{
    activate(true);
    press(Outside);
    activate(false);
    move(Inside);
    release(Inside);
    EXPECT_EQ(window.received(), "");
    click(Outside);
    EXPECT_EQ(window.received(), Whole);
}

TEST_F(PressGuardTest, leavesTheRestOfAPressThatBeganBeforeItWasActive)
{
    press(Outside);
    activate(true);
    move(Outside + QPoint(5, 5));
    move(Outside + QPoint(6, 6));
    release(Outside + QPoint(6, 6));
    EXPECT_EQ(window.received(), Whole);
    EXPECT_EQ(elsewhere.count(), 0);
}

TEST_F(PressGuardTest, leavesWheelAndKeysDuringAPressThatItKeeps)
{
    activate(true);
    press(Outside);
    QTest::keyPress(&window, Qt::Key_A);
    QWheelEvent turn(
        Outside, window.mapToGlobal(Outside), {}, { 0, 120 }, Qt::LeftButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &turn);
    EXPECT_EQ(window.received(), "key wheel");
    move(Inside);
    release(Inside);
    EXPECT_EQ(window.received(), "");
}

TEST_F(PressGuardTest, leavesTheMouseAfterATouchThatWasCancelled)
{
    activate(true);
    QTest::touchEvent(&window, finger.get()).press(0, Outside, &window);
    QTouchEvent cancelled(QEvent::TouchCancel, finger.get());
    QCoreApplication::sendEvent(&window, &cancelled);
    EXPECT_TRUE(takesMoves());
}
