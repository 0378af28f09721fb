#include "catalog/query/SectionCounts.h"

#include <QString>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

namespace {

std::vector<std::string> linesOf(const SectionCounts& sections)
{
    std::vector<std::string> lines;
    for (const std::uint32_t place : sections.sortedPlaces())
        lines.push_back(std::string(sections.name(place)) + ' ' + std::to_string(sections.count(place)));
    return lines;
}

std::uint64_t mixed(std::uint64_t value)
{
    return value ^ (value >> 47);
}

// Texts to which the standard library's hash, which has no seed, gives one and the same number: the second half of each
// undoes what the first does.
class CollidingTexts
{
public:
    std::string next()
    {
        const std::uint64_t first = m_number++;
        const std::uint64_t state = (m_begin ^ scrambled(first)) * factor;
        return bytesOf(first) + bytesOf(unscrambled(state));
    }

private:
    static constexpr std::uint64_t factor = 0xc6a4a7935bd1e995;
    // Its inverse among the numbers of 64 bits.
    static constexpr std::uint64_t inverse = 0x5f7a0ea7e59b19bd;

    static std::uint64_t scrambled(std::uint64_t value) { return mixed(value * factor) * factor; }
    static std::uint64_t unscrambled(std::uint64_t value) { return mixed(value * inverse) * inverse; }

    static std::string bytesOf(std::uint64_t value)
    {
        std::string bytes(sizeof value, ' ');
        std::memcpy(bytes.data(), &value, sizeof value);
        return bytes;
    }

    std::uint64_t m_begin = 0xc70f6907UL ^ (16 * factor);
    std::uint64_t m_number = 1;
};

} // namespace

TEST(SectionCounts, countsEachSectionAndPutsThemInOrder)
{
    SectionCounts sections;
    for (const char* section : { "zebra", "Apple", "zebra",
             "\xc3\xa9"
             "clair",
             "", "zebra" })
        sections.add(section);
    sections.sort(NameOrder(QStringLiteral("en")));
    EXPECT_EQ(linesOf(sections),
        std::vector<std::string>({ " 1", "Apple 1",
            "\xc3\xa9"
            "clair 1",
            "zebra 3" }));
}

TEST(SectionCounts, putsNamesThatCompareEqualInTheOrderOfTheirBytesHoweverTheyArrive)
{
    for (const auto& arrival : { std::vector<const char*>{ "tools", "Tools", "TOOLS" },
             std::vector<const char*>{ "TOOLS", "Tools", "tools" } }) {
        SectionCounts sections;
        for (const char* section : arrival)
            sections.add(section);
        sections.sort(NameOrder(QStringLiteral("en")));
        EXPECT_EQ(linesOf(sections), std::vector<std::string>({ "TOOLS 1", "Tools 1", "tools 1" }));
    }
}

TEST(SectionCounts, countNoPackageThatWasDropped)
{
    SectionCounts sections;
    for (const char* section : { "a", "b", "a" })
        sections.add(section);
    sections.sort(NameOrder(QStringLiteral("en")));
    sections.drop("a");
    sections.drop("b");
    sections.drop("b");
    sections.drop("unknown");
    EXPECT_EQ(linesOf(sections), std::vector<std::string>({ "a 1", "b 0" }));
}

TEST(SectionCounts, stayLinearForTextsMadeToCollide)
{
    // In a table without a seed this takes the better part of an hour.
    constexpr int count = 400000;
    CollidingTexts texts;
    SectionCounts sections;
    const std::string first = texts.next();
    sections.add(first);
    for (int number = 1; number < count; ++number) {
        const std::string text = texts.next();
        ASSERT_EQ(std::hash<std::string>()(text), std::hash<std::string>()(first));
        sections.add(text);
    }
    EXPECT_EQ(sections.size(), static_cast<std::size_t>(count));
}

TEST(SectionCounts, countTheirBytes)
{
    SectionCounts sections;
    for (int number = 0; number < 1000; ++number)
        sections.add(std::string(100, 'x') + std::to_string(number));
    const std::size_t unsorted = sections.byteSize();
    EXPECT_GT(unsorted, 100U * 1000U);
    sections.sort(NameOrder(QStringLiteral("en")));
    EXPECT_GT(sections.byteSize(), unsorted + 64U * 1000U);
}
