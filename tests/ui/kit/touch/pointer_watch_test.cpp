#include "ui/kit/touch/PointerWatch.h"

#include <QMouseEvent>
#include <QPointingDevice>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace {

QMouseEvent mouseEvent(QEvent::Type type, Qt::MouseEventSource source = Qt::MouseEventNotSynthesized)
{
    const QPointF place(10, 10);
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    return { type, place, place, place, button, button, Qt::NoModifier, source };
}

void moveMouse(QQuickWindow& window, Qt::MouseEventSource source = Qt::MouseEventNotSynthesized)
{
    QMouseEvent move = mouseEvent(QEvent::MouseMove, source);
    QCoreApplication::sendEvent(&window, &move);
}

class PointerWatchTest : public testing::Test
{
protected:
    PointerWatchTest()
    {
        watch.setParentItem(window.contentItem());
        window.show();
    }

    const std::unique_ptr<QPointingDevice> finger{ QTest::createTouchDevice() };
    QQuickWindow window;
    kit::PointerWatch watch;
    const QSignalSpy mouseMoved{ &watch, &kit::PointerWatch::mouseMoved };
    const QSignalSpy touched{ &watch, &kit::PointerWatch::touched };
};

} // namespace

TEST_F(PointerWatchTest, tellsOfAMouseThatMovesAndNotThatItClicks)
{
    moveMouse(window);
    EXPECT_EQ(mouseMoved.count(), 1);
    for (const QEvent::Type type : { QEvent::MouseButtonPress, QEvent::MouseButtonRelease }) {
        QMouseEvent event = mouseEvent(type);
        QCoreApplication::sendEvent(&window, &event);
    }
    EXPECT_EQ(mouseMoved.count(), 1);
    EXPECT_EQ(touched.count(), 0);
}

TEST_F(PointerWatchTest, tellsOnceOfATouchAndNotOfTheMouseThatQtMakesOfIt)
{
    QTest::touchEvent(&window, finger.get()).press(0, { 10, 10 }, &window);
    QTest::touchEvent(&window, finger.get()).move(0, { 20, 20 }, &window);
    QTest::touchEvent(&window, finger.get()).release(0, { 20, 20 }, &window);
    moveMouse(window, Qt::MouseEventSynthesizedByQt);
    moveMouse(window, Qt::MouseEventSynthesizedBySystem);
    EXPECT_EQ(touched.count(), 1);
    EXPECT_EQ(mouseMoved.count(), 0);
}

TEST_F(PointerWatchTest, keepsNothingFromTheWindow)
{
    for (const QEvent::Type type : { QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease }) {
        QMouseEvent event = mouseEvent(type);
        EXPECT_FALSE(watch.eventFilter(&window, &event)) << type;
    }
}

TEST_F(PointerWatchTest, goesWithItsItemIntoAnotherWindow)
{
    QQuickWindow other;
    QSignalSpy windowChanged(&watch, &QQuickItem::windowChanged);
    watch.setParentItem(other.contentItem());
    EXPECT_EQ(windowChanged.last().first().value<QQuickWindow*>(), &other);
    moveMouse(window);
    EXPECT_EQ(mouseMoved.count(), 0);
    moveMouse(other);
    EXPECT_EQ(mouseMoved.count(), 1);
    watch.setParentItem(nullptr);
    moveMouse(other);
    EXPECT_EQ(mouseMoved.count(), 1);
}
