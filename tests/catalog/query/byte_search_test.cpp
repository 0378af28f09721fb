#include "catalog/query/ByteSearch.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

// Of few letters, so that patterns are often there in part.
std::string randomText(std::mt19937& random, std::size_t size)
{
    std::string text(size, ' ');
    for (char& c : text)
        c = "ab\xff\x80"[random() % 4];
    return text;
}

} // namespace

TEST(ByteSearch, findsAPatternAtEveryPlace)
{
    for (const std::size_t patternSize : { 1U, 2U, 3U, 16U, 17U, 70U }) {
        const std::string pattern = std::string(patternSize - 1, 'x') + 'y';
        for (std::size_t place = 0; place < 200; ++place) {
            const std::string text = std::string(place, '-') + pattern + std::string(100, '-');
            EXPECT_EQ(findBytes(text, pattern, 0), place);
            EXPECT_EQ(findBytes(text, pattern, place), place);
            EXPECT_EQ(findBytes(text, pattern, place + 1), std::string_view::npos);
            EXPECT_EQ(findBytes(text.substr(0, place + patternSize), pattern, 0), place);
            EXPECT_EQ(findBytes(text.substr(0, place + patternSize - 1), pattern, 0), std::string_view::npos);
        }
    }
}

TEST(ByteSearch, findsTheFirstOfMany)
{
    std::mt19937 random{ 20240229 };
    for (int round = 0; round < 20000; ++round) {
        const std::string text = randomText(random, random() % 300);
        const std::string pattern = randomText(random, 1 + random() % 9);
        const std::size_t from = random() % 310;
        ASSERT_EQ(findBytes(text, pattern, from), text.find(pattern, from)) << round;
    }
}
