#pragma once

#include "tests/ui/kit/window/KitWindowTest.h"

#include <QPointingDevice>
#include <QTest>

#include <memory>

// The window with one finger that touches it, or the pointer of a mouse.
class FingerTest : public KitWindowTest
{
protected:
    void begin(const QPoint& point);
    // In small steps, each of which is drawn: a finger's moves are told with the next frame.
    void moveTo(const QPoint& point, int steps = 8);
    void end();
    // Pressed and let go.
    void touch(const QPoint& point);
    // With a mouse.
    void pointAt(const QPoint& point);
    void drawFrame();

    const std::unique_ptr<QPointingDevice> device{ QTest::createTouchDevice() };
    QPoint place;
};
