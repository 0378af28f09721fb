#include "catalog/query/ByteSearch.h"

#include "catalog/text/LowerCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

// Of few letters, so that patterns are often there in part.
std::string randomText(std::mt19937& random, std::size_t size, std::string_view letters)
{
    std::string text(size, ' ');
    for (char& c : text)
        c = letters[random() % letters.size()];
    return text;
}

// All places of the pattern, each at least so far behind the one before.
std::vector<std::size_t> placesOf(std::string_view text, std::string_view pattern, std::size_t distance = 1)
{
    std::vector<std::size_t> places;
    findEach(text, BytePattern(pattern), [&](std::size_t at) {
        places.push_back(at);
        return at + distance;
    });
    return places;
}

std::vector<std::size_t> plainPlacesOf(std::string_view text, std::string_view pattern, std::size_t distance)
{
    std::string small(text);
    std::transform(small.begin(), small.end(), small.begin(), lowerAscii);
    text = small;
    std::vector<std::size_t> places;
    for (std::size_t at = text.find(pattern); at != std::string_view::npos; at = text.find(pattern, at + distance))
        places.push_back(at);
    return places;
}

} // namespace

TEST(ByteSearch, findsAPatternAtEveryPlace)
{
    for (const std::size_t patternSize : { 1U, 2U, 3U, 16U, 17U, 70U }) {
        const std::string pattern = std::string(patternSize - 1, 'x') + 'y';
        for (std::size_t place = 0; place < 200; ++place) {
            const std::string text = std::string(place, '-') + pattern + std::string(100, '-');
            EXPECT_EQ(placesOf(text, pattern), std::vector{ place });
            EXPECT_EQ(placesOf(text.substr(0, place + patternSize), pattern), std::vector{ place });
            // The last byte stands right behind.
            EXPECT_TRUE(placesOf(std::string_view(text).substr(0, place + patternSize - 1), pattern).empty());
        }
    }
}

TEST(ByteSearch, findsWhatThePlainSearchFinds)
{
    std::mt19937 random{ 20240229 };
    for (int round = 0; round < 20000; ++round) {
        const std::string text = randomText(random, random() % 700, "aAbB@`\xff\x80");
        const std::string pattern = randomText(random, 1 + random() % 9, "ab@`\xff\x80");
        const std::size_t distance = 1 + random() % 150;
        ASSERT_EQ(placesOf(text, pattern, distance), plainPlacesOf(text, pattern, distance)) << round;
    }
}

TEST(ByteSearch, findsPatternsOfFrequentAndOfRareBytes)
{
    const std::string capitals = "THE Quick bROWN FOX JUMPS OVER THE LAZY DOG, [\\]^_`{|}~@";
    const std::string text = "the quick brown fox jumps over the lazy dog 0123456789 \xc3\xa9\xff-+ "
                             "eiatronsl -cdmpubgyfhvkwx2310j465789qz";
    for (std::size_t begin = 0; begin < text.size(); ++begin) {
        for (std::size_t size = 1; size <= text.size() - begin; ++size) {
            const std::string pattern = text.substr(begin, size);
            ASSERT_EQ(placesOf(text + capitals + text, pattern), plainPlacesOf(text + capitals + text, pattern, 1))
                << pattern;
        }
    }
}
