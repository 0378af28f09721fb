// Numbers under hashes beside an ordinary map of them.
#include "catalog/text/HashSlots.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>

namespace {

constexpr auto any = [](std::uint32_t /*number*/) { return true; };

// Few of their bits differ, so that many belong to the same slot, some of them with the same mark.
std::uint32_t alikeHash(std::mt19937& random)
{
    return random() & 0xe0000f03U;
}

std::map<std::uint32_t, std::uint32_t> numbersIn(const HashSlots& slots)
{
    std::map<std::uint32_t, std::uint32_t> numbers;
    slots.forEach([&](std::uint32_t hash, std::uint32_t number) { numbers[hash] = number; });
    return numbers;
}

void expectTheSameAsAMap(const std::function<std::uint32_t()>& nextHash)
{
    HashSlots slots;
    std::map<std::uint32_t, std::uint32_t> numbers;
    for (std::uint32_t number = 1; number <= 20000; ++number) {
        const std::uint32_t hash = nextHash();
        ASSERT_EQ(slots.findOrAdd(hash, any, [&] { return number; }), numbers.emplace(hash, number).first->second);
        const std::uint32_t sought = nextHash();
        const auto place = numbers.find(sought);
        ASSERT_EQ(slots.find(sought, any), place == numbers.end() ? 0 : place->second) << sought;
    }
    EXPECT_EQ(numbersIn(slots), numbers);
}

} // namespace

TEST(HashSlots, findWhatAMapFinds)
{
    std::mt19937 random(20240229);
    expectTheSameAsAMap([&] { return static_cast<std::uint32_t>(random()); });
}

TEST(HashSlots, findWhatAMapFindsOfHashesThatAreMuchAlike)
{
    std::mt19937 random(20240229);
    expectTheSameAsAMap([&] { return alikeHash(random); });
}

TEST(HashSlots, keepSeveralNumbersOfOneHashApart)
{
    HashSlots slots;
    for (std::uint32_t number = 1; number <= 1000; ++number)
        slots.findOrAdd(
            7, [&](std::uint32_t each) { return each == number; }, [&] { return number; });
    for (std::uint32_t number = 1; number <= 1000; ++number)
        EXPECT_EQ(slots.find(7, [&](std::uint32_t each) { return each == number; }), number);
    EXPECT_EQ(slots.find(7, [](std::uint32_t each) { return each > 1000; }), 0U);
}

TEST(HashSlots, haveNothingOfANumberThatWasNotMade)
{
    HashSlots slots;
    EXPECT_EQ(slots.findOrAdd(7, any, [] { return 0U; }), 0U);
    EXPECT_EQ(slots.find(7, any), 0U);
    EXPECT_TRUE(numbersIn(slots).empty());
}

TEST(HashSlots, haveNothingOnceTheyAreCleared)
{
    HashSlots slots;
    slots.findOrAdd(7, any, [] { return 1U; });
    slots.clear();
    EXPECT_EQ(slots.find(7, any), 0U);
    EXPECT_EQ(slots.findOrAdd(7, any, [] { return 2U; }), 2U);
}
