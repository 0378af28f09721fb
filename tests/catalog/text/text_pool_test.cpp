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
