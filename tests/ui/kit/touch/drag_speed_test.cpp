#include "ui/kit/touch/DragSpeed.h"

#include <gtest/gtest.h>

TEST(DragSpeed, isThatOfTheLastTenthOfASecond)
{
    kit::DragSpeed speed;
    speed.moveAt(0, 1'000);
    speed.moveAt(5, 1'200);
    speed.moveAt(15, 1'250);
    speed.moveAt(45, 1'300);
    EXPECT_EQ(speed.speedAt(1'300), 400);
}

TEST(DragSpeed, isNegativeOnTheWayBack)
{
    kit::DragSpeed speed;
    speed.moveAt(100, 1'000);
    speed.moveAt(80, 1'050);
    EXPECT_EQ(speed.speedAt(1'050), -400);
}

TEST(DragSpeed, isNothingOnceTheFingerRests)
{
    kit::DragSpeed speed;
    speed.moveAt(0, 1'000);
    speed.moveAt(50, 1'010);
    EXPECT_EQ(speed.speedAt(1'200), 0);
}

TEST(DragSpeed, isNothingBeforeTheSecondPlace)
{
    kit::DragSpeed speed;
    EXPECT_EQ(speed.speedAt(0), 0);
    speed.moveAt(50, 10);
    EXPECT_EQ(speed.speedAt(10), 0);
    speed.moveAt(60, 20);
    speed.begin();
    EXPECT_EQ(speed.speedAt(20), 0);
}

TEST(DragSpeed, isFiniteWhenTwoPlacesComeAtOnce)
{
    kit::DragSpeed speed;
    speed.moveAt(0, 10);
    speed.moveAt(7, 10);
    EXPECT_EQ(speed.speedAt(10), 7'000);
}
