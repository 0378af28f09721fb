#include "http/Pace.h"

#include "Ways.h"

#include <gtest/gtest.h>

using http::Failure;
using http::Limits;
using http::Pace;
using namespace std::chrono_literals;

namespace {

const Pace::Clock::time_point start = Pace::Clock::time_point() + 100h;

Limits someLimits()
{
    Limits limits;
    limits.inactivity = 20s;
    limits.patience = 10min;
    limits.slowestRate = 1000;
    return limits;
}

// One that was heard of a moment ago.
Failure verdictAfter(Pace::Clock::duration time, std::int64_t received, const Limits& limits = someLimits())
{
    Pace pace(limits, start);
    pace.heard(start + time);
    return pace.verdict(start + time, received);
}

} // namespace

TEST(PaceTest, shouldBeSilentAfterTheTimeAllowedSinceTheLastSignOfLife)
{
    Pace pace(someLimits(), start);
    EXPECT_EQ(pace.verdict(start + 20s - 1ms, 0), Failure::None);
    EXPECT_EQ(pace.verdict(start + 20s, 0), Failure::Silent);
    pace.heard(start + 15s);
    EXPECT_EQ(pace.verdict(start + 35s - 1ms, 0), Failure::None);
    EXPECT_EQ(pace.verdict(start + 35s, 0), Failure::Silent);
}

TEST(PaceTest, shouldNotForgetALaterSignOfLifeForAnEarlierOne)
{
    Pace pace(someLimits(), start);
    pace.heard(start + 15s);
    pace.heard(start + 1s);
    EXPECT_EQ(pace.verdict(start + 30s, 0), Failure::None);
}

TEST(PaceTest, shouldBePatientHoweverLittleCame)
{
    EXPECT_EQ(verdictAfter(10min - 1ms, 0), Failure::None);
    EXPECT_EQ(verdictAfter(10min, 0), Failure::TooSlow);
    EXPECT_EQ(verdictAfter(10min, 600'000), Failure::TooSlow);
}

TEST(PaceTest, shouldGoOnBeyondItsPatienceWhileTheRateIsKept)
{
    EXPECT_EQ(verdictAfter(10min, 600'001), Failure::None);
    EXPECT_EQ(verdictAfter(20min - 1ms, 1'200'000), Failure::None);
    EXPECT_EQ(verdictAfter(20min, 1'200'000), Failure::TooSlow);
}

TEST(PaceTest, shouldEndAtTheDeadlineHoweverFastItComes)
{
    Limits limits = someLimits();
    limits.deadline = 1min;
    EXPECT_EQ(verdictAfter(1min - 1ms, 1'000'000'000, limits), Failure::None);
    EXPECT_EQ(verdictAfter(1min, 1'000'000'000, limits), Failure::TooSlow);
}

TEST(PaceTest, shouldBeDueAtTheFirstOfItsLimits)
{
    Pace pace(someLimits(), start);
    EXPECT_EQ(pace.due(0), start + 20s);
    pace.heard(start + 595s);
    EXPECT_EQ(pace.due(0), start + 600s);
    EXPECT_EQ(pace.due(10'000'000), start + 615s);
}

TEST(PaceTest, shouldAllowWhatItSaysByDefault)
{
    const Limits limits;
    EXPECT_EQ(limits.inactivity, 30s);
    EXPECT_EQ(limits.timeAllowed(0), 10min);
    EXPECT_EQ(limits.timeAllowed(std::int64_t(16) * 1024 * 3600), 1h);
    EXPECT_EQ(limits.timeAllowed(std::int64_t(4) * 1024 * 1024 * 1024), 262144s);
}

TEST(PaceTest, shouldTakeARateOfNothingForTheSlowestThereIs)
{
    Limits limits = someLimits();
    limits.slowestRate = 0;
    EXPECT_EQ(limits.timeAllowed(3600), 1h);
}
