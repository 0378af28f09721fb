#include "catalog/work/Strand.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <latch>
#include <vector>

TEST(CatalogStrand, runsItsTasksInTheOrderOfPosting)
{
    constexpr int taskCount = 2000;
    std::vector<int> order;
    std::promise<void> last;
    Workers workers(3);
    Strand strand(workers);
    for (int number = 0; number < taskCount; ++number)
        strand.post([&order, number] { order.push_back(number); });
    strand.post([&last] { last.set_value(); });
    last.get_future().wait();
    ASSERT_EQ(order.size(), std::size_t(taskCount));
    for (int number = 0; number < taskCount; ++number)
        EXPECT_EQ(order[static_cast<std::size_t>(number)], number);
}

TEST(CatalogStrand, neverRunsTwoTasksAtOnce)
{
    constexpr int posterCount = 4;
    constexpr int taskCount = 500;
    Workers workers(4);
    Strand strand(workers);
    std::atomic<int> running = 0;
    std::atomic<int> clashes = 0;
    // Not atomic: a look at races must find nothing here.
    int count = 0;
    std::latch done(posterCount * taskCount);
    std::vector<std::jthread> posters;
    for (int poster = 0; poster < posterCount; ++poster) {
        posters.emplace_back([&] {
            for (int number = 0; number < taskCount; ++number) {
                strand.post([&] {
                    clashes += running++;
                    ++count;
                    --running;
                    done.count_down();
                });
            }
        });
    }
    done.wait();
    EXPECT_EQ(clashes, 0);
    EXPECT_EQ(count, posterCount * taskCount);
}

TEST(CatalogStrand, takesTurnsWithTheOthers)
{
    Workers workers(1);
    Strand first(workers);
    Strand second(workers);
    std::string order;
    std::promise<void> mayBegin;
    std::latch done(6);
    workers.post([future = mayBegin.get_future().share()] { future.wait(); });
    const auto add = [&order, &done](char name) {
        return [&order, &done, name] {
            order += name;
            done.count_down();
        };
    };
    for (int number = 0; number < 3; ++number)
        first.post(add('a'));
    for (int number = 0; number < 3; ++number)
        second.post(add('b'));
    mayBegin.set_value();
    done.wait();
    EXPECT_EQ(order, "ababab");
}

TEST(CatalogStrand, runsWhatItsOwnTasksPost)
{
    Workers workers(2);
    Strand strand(workers);
    std::promise<void> last;
    int left = 1000;
    const std::function<void()> step = [&] {
        if (--left == 0)
            last.set_value();
        else
            strand.post(step);
    };
    strand.post(step);
    last.get_future().wait();
    EXPECT_EQ(left, 0);
}

TEST(CatalogStrand, mayGoBeforeItsTasksHaveRun)
{
    Workers workers(1);
    std::promise<void> mayBegin;
    std::latch done(2);
    workers.post([future = mayBegin.get_future().share()] { future.wait(); });
    {
        Strand strand(workers);
        strand.post([&done] { done.count_down(); });
        strand.post([&done] { done.count_down(); });
    }
    mayBegin.set_value();
    done.wait();
}

TEST(CatalogStrand, letsGoOfATaskBeforeTheNextBegins)
{
    Workers workers(2);
    Strand strand(workers);
    std::promise<bool> isGone;
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> weak = held;
    strand.post([held = std::move(held)] {});
    strand.post([&isGone, weak] { isGone.set_value(weak.expired()); });
    EXPECT_TRUE(isGone.get_future().get());
}
