#include "ui/screens/shared/RowRecords.h"

#include <gtest/gtest.h>

TEST(RowRecords, haveARowEachAndOneRowWhenThereAreNone)
{
    EXPECT_EQ(rowsOrEmptyRow(0), 1);
    EXPECT_EQ(rowsOrEmptyRow(1), 1);
    EXPECT_EQ(rowsOrEmptyRow(2), 2);
}

TEST(RowRecords, areThoseOfTheirRowsAndNoneBeyond)
{
    const std::vector<std::shared_ptr<int>> records{ std::make_shared<int>(7), std::make_shared<int>(8) };
    EXPECT_EQ(recordOfRow(records, 0), records[0]);
    EXPECT_EQ(recordOfRow(records, 1), records[1]);
    EXPECT_EQ(recordOfRow(records, 2), nullptr);
    EXPECT_EQ(recordOfRow(records, -1), nullptr);
    EXPECT_EQ(recordOfRow(std::vector<std::shared_ptr<int>>(), 0), nullptr);
}
