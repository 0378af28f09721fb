#pragma once

#include <QAbstractAnimation>
#include <QCoreApplication>
#include <QTest>

#include <gtest/gtest.h>

// What animations take for the time, in milliseconds, as long as it lives: it goes as far as the test lets it.
class AnimationClock : public QAnimationDriver
{
public:
    AnimationClock() { install(); }
    qint64 elapsed() const override { return m_now; }
    void goTo(qint64 milliseconds)
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return isRunning(); })) << "an animation starts in a turn of the loop";
        QCoreApplication::processEvents();
        m_now = milliseconds;
        advance();
    }

private:
    qint64 m_now = 0;
};
