#include "catalog/text/TextPool.h"

#include <gtest/gtest.h>

#include <map>
#include <sys/mman.h>

TEST(TextPool, givesBackTextsOfEveryLength)
{
    TextPool pool;
    std::map<std::size_t, TextPool::Handle> handles;
    for (const std::size_t length : { 1U, 31U, 32U, 1023U, 1024U, 32767U, 32768U, 3000000U, 40000000U })
        handles[length] = pool.add(std::string(length, 'x'));
    for (const auto& [length, handle] : handles)
        EXPECT_EQ(pool.text(handle), std::string(length, 'x'));
}

TEST(TextPool, hasNothingBetweenItsTextsThatACharacterCouldBeginWith)
{
    TextPool pool;
    std::string texts;
    for (std::size_t length = 0; length < 3000; ++length) {
        pool.append(std::string(length, 'x'));
        texts += std::string(length, 'x');
    }
    std::string rest(pool.bytes());
    std::erase_if(
        rest, [](char c) { return static_cast<unsigned char>(c) >= 0x80 && static_cast<unsigned char>(c) < 0xc0; });
    EXPECT_EQ(rest, texts);
}

TEST(TextPool, tellsNullFromEmpty)
{
    TextPool pool;
    EXPECT_EQ(pool.text(pool.add({})).data(), nullptr);
    const std::string_view empty = pool.text(pool.add(""));
    EXPECT_NE(empty.data(), nullptr);
    EXPECT_TRUE(empty.empty());
}

// The text stands where nothing can be read: what does not fit is refused by its size alone.
TEST(TextPool, answersNullForATextThatDoesNotFitIntoAGibibyte)
{
    constexpr std::size_t gibibyte = std::size_t(1) << 30;
    void* const unreadable = mmap(nullptr, gibibyte, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(unreadable, MAP_FAILED);
    TextPool pool;
    const std::string_view tooLong(static_cast<const char*>(unreadable), gibibyte - TextPool::largestSizeOf({}) - 2);
    EXPECT_EQ(pool.add(tooLong), TextPool::null);
    EXPECT_EQ(pool.text(pool.add("short")), "short");
    munmap(unreadable, gibibyte);
}
