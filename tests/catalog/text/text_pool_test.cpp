#include "catalog/text/TextInterner.h"
#include "catalog/text/TextPool.h"

#include <gtest/gtest.h>

#include <map>

TEST(TextPool, givesBackTextsOfEveryLength)
{
    TextPool pool;
    std::map<std::size_t, TextPool::Handle> handles;
    for (const std::size_t length : { 1U, 127U, 128U, 16383U, 16384U, 3000000U })
        handles[length] = pool.add(std::string(length, 'x'));
    for (const auto& [length, handle] : handles)
        EXPECT_EQ(pool.text(handle), std::string(length, 'x'));
}

TEST(TextPool, tellsNullFromEmpty)
{
    TextPool pool;
    EXPECT_EQ(pool.text(pool.add({})).data(), nullptr);
    const std::string_view empty = pool.text(pool.add(""));
    EXPECT_NE(empty.data(), nullptr);
    EXPECT_TRUE(empty.empty());
}

TEST(TextInterner, keepsEqualTextsOnceHoweverManyThereAre)
{
    TextPool pool;
    TextInterner interner(pool);
    std::vector<TextPool::Handle> handles;
    handles.reserve(5000);
    for (int number = 0; number < 5000; ++number)
        handles.push_back(interner.add(std::to_string(number)));
    const std::size_t size = pool.size();
    for (int number = 0; number < 5000; ++number) {
        EXPECT_EQ(interner.add(std::to_string(number)), handles[static_cast<std::size_t>(number)]);
        EXPECT_EQ(pool.text(handles[static_cast<std::size_t>(number)]), std::to_string(number));
    }
    EXPECT_EQ(pool.size(), size);
}

TEST(TextInterner, tellsNullFromEmpty)
{
    TextPool pool;
    TextInterner interner(pool);
    EXPECT_EQ(interner.add({}), TextPool::null);
    EXPECT_EQ(interner.add(""), TextPool::empty);
}
