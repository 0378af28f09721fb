#include "tests/ui/kit/window/FingerTest.h"

#include <QSignalSpy>
#include <QTest>

void FingerTest::begin(const QPoint& point)
{
    place = point;
    QTest::touchEvent(quick(), device.get()).press(0, place, quick());
}

void FingerTest::moveTo(const QPoint& point, int steps)
{
    const QPoint from = place;
    for (int step = 1; step <= steps; ++step) {
        place = from + (point - from) * step / steps;
        QTest::touchEvent(quick(), device.get()).move(0, place, quick());
        drawFrame();
    }
}

void FingerTest::drawFrame()
{
    QSignalSpy drawn(quick(), &QQuickWindow::frameSwapped);
    quick()->update();
    EXPECT_TRUE(drawn.wait());
}

void FingerTest::pointAt(const QPoint& point)
{
    QTest::mouseMove(quick(), point);
    drawFrame();
    QCoreApplication::processEvents();
}

void FingerTest::end()
{
    QTest::touchEvent(quick(), device.get()).release(0, place, quick());
}

void FingerTest::touch(const QPoint& point)
{
    begin(point);
    end();
    QCoreApplication::processEvents();
}
