#include "ui/screens/shared/ScreenRows.h"

#include <gtest/gtest.h>

TEST(CategoryRow, writesItsCountWithoutAnyGrouping)
{
    kit::TableView table;
    const auto textOf = [&](quint64 count) {
        const std::unique_ptr<kit::TableViewCell> cell(
            ScreenRows::categoryRow(table, *VeskCategory::categoryWithName(QStringLiteral("Tweaks"), count), 0));
        return cell->detailTextLabel()->text();
    };
    EXPECT_EQ(textOf(0), QStringLiteral("0"));
    EXPECT_EQ(textOf(63440), QStringLiteral("63440"));
    EXPECT_EQ(textOf(18446744073709551615ULL), QStringLiteral("18446744073709551615"));
}
