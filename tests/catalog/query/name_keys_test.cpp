// Random names beside the plain way to order them: compare their keys.
#include "catalog/query/NameKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace {

const NameOrder& order()
{
    static const NameOrder order(QStringLiteral("en"));
    return order;
}

// Many are equal but for the case of their letters, and many have a long beginning in common.
std::vector<std::string> randomNames(std::mt19937& random, std::size_t count)
{
    static const std::vector<std::string> words{ "lib", "LIB", "python3-", "a", "é", "-", "documentation", "" };
    std::vector<std::string> names(count);
    for (std::string& name : names) {
        for (int left = 0; left < 3; ++left)
            name += words[random() % words.size()];
    }
    return names;
}

PackageSelection::Places plainlySorted(const std::vector<std::string>& names)
{
    PackageSelection::Places places(names.size());
    std::iota(places.begin(), places.end(), 0U);
    std::stable_sort(places.begin(), places.end(),
        [&](std::uint32_t a, std::uint32_t b) { return order().keyOf(names[a]) < order().keyOf(names[b]); });
    return places;
}

enum class Sorting { AtTheEnd, EachTime, NowAndThen };

PackageSelection::Places sortedByKeys(const std::vector<std::string>& names, Sorting sorting, std::mt19937& random)
{
    NameKeys keys;
    for (const std::string& name : names) {
        keys.add(name, order());
        if (sorting == Sorting::EachTime || (sorting == Sorting::NowAndThen && random() % 20 == 0))
            keys.sortAdded();
    }
    keys.sort();
    return keys.sortedPlaces();
}

} // namespace

TEST(NameKeys, haveOneOrderHoweverOftenTheyAreSortedMeanwhile)
{
    std::mt19937 random(20240229);
    for (const std::size_t count : { 0U, 1U, 2U, 3U, 10U, 100U, 1000U }) {
        const std::vector<std::string> names = randomNames(random, count);
        const PackageSelection::Places plain = plainlySorted(names);
        for (const Sorting sorting : { Sorting::AtTheEnd, Sorting::EachTime, Sorting::NowAndThen })
            EXPECT_EQ(sortedByKeys(names, sorting, random), plain) << count << ' ' << static_cast<int>(sorting);
    }
}

TEST(NameKeys, areInOrderWhereNamesComeInOrderOrBackwards)
{
    std::mt19937 random(20240229);
    std::vector<std::string> names = randomNames(random, 500);
    std::stable_sort(names.begin(), names.end());
    EXPECT_EQ(sortedByKeys(names, Sorting::NowAndThen, random), plainlySorted(names));
    std::reverse(names.begin(), names.end());
    EXPECT_EQ(sortedByKeys(names, Sorting::NowAndThen, random), plainlySorted(names));
}
