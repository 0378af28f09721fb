#include "catalog/work/Workers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <latch>
#include <memory>

TEST(CatalogWorkers, areAtLeastTwoOnAnyMachine)
{
    EXPECT_GE(Workers::standardCount(), 2U);
    EXPECT_EQ(Workers().count(), Workers::standardCount());
    EXPECT_EQ(Workers(0).count(), 1U);
}

TEST(CatalogWorkers, startTheirTasksInTheOrderOfPosting)
{
    std::vector<int> order;
    std::promise<void> last;
    Workers workers(1);
    for (int number = 0; number < 100; ++number)
        workers.post([&order, number] { order.push_back(number); });
    workers.post([&last] { last.set_value(); });
    last.get_future().wait();
    ASSERT_EQ(order.size(), 100U);
    for (int number = 0; number < 100; ++number)
        EXPECT_EQ(order[static_cast<std::size_t>(number)], number);
}

// Each of the two waits for the other, which no task but one in a test may do.
TEST(CatalogWorkers, areAllAtWorkAtOnce)
{
    std::latch both(2);
    std::latch done(2);
    Workers workers(2);
    for (int number = 0; number < 2; ++number) {
        workers.post([&both, &done] {
            both.arrive_and_wait();
            done.count_down();
        });
    }
    done.wait();
}

TEST(CatalogWorkers, runNoMoreTasksAtOnceThanTheyAre)
{
    constexpr int taskCount = 200;
    std::atomic<int> running = 0;
    std::atomic<int> most = 0;
    std::latch done(taskCount);
    Workers workers(3);
    for (int number = 0; number < taskCount; ++number) {
        workers.post([&running, &most, &done] {
            const int now = ++running;
            for (int known = most; now > known && !most.compare_exchange_weak(known, now);) { }
            std::this_thread::yield();
            --running;
            done.count_down();
        });
    }
    done.wait();
    EXPECT_LE(most, 3);
}

TEST(CatalogWorkers, runATaskThatAnotherPostsAtItsEnd)
{
    std::promise<void> last;
    Workers workers(2);
    int left = 1000;
    const std::function<void()> step = [&] {
        if (--left == 0)
            last.set_value();
        else
            workers.postAtEnd(step);
    };
    workers.post(step);
    last.get_future().wait();
    EXPECT_EQ(left, 0);
}

namespace {

// What is posted then is let go of at once.
bool areGoing(Workers& workers)
{
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> weak = held;
    workers.post([held = std::move(held)] {});
    return weak.expired();
}

} // namespace

TEST(CatalogWorkers, endTheTaskThatRunsAndDropTheOthersWhenTheyGo)
{
    std::promise<void> hasBegun;
    bool hasEnded = false;
    bool hasOtherBegun = false;
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> weak = held;
    {
        Workers workers(1);
        workers.post([&] {
            hasBegun.set_value();
            while (!areGoing(workers))
                std::this_thread::yield();
            hasEnded = true;
        });
        workers.post([held = std::move(held), &hasOtherBegun] { hasOtherBegun = true; });
        hasBegun.get_future().wait();
    }
    EXPECT_TRUE(hasEnded);
    EXPECT_FALSE(hasOtherBegun);
    EXPECT_TRUE(weak.expired());
}

TEST(CatalogWorkers, mayBePostedToByWhatTheyDrop)
{
    struct Poster
    {
        explicit Poster(Workers& toPostTo)
            : workers(toPostTo)
        {
        }
        ~Poster()
        {
            workers.post([] { ADD_FAILURE(); });
        }
        Workers& workers;
    };
    Workers workers(1);
    std::promise<void> hasBegun;
    workers.post([&] {
        hasBegun.set_value();
        while (!areGoing(workers))
            std::this_thread::yield();
    });
    workers.post([poster = std::make_shared<Poster>(workers)] { ADD_FAILURE(); });
    hasBegun.get_future().wait();
}
