#include "ui/kit/table/TableLayout.h"

#include <gtest/gtest.h>

namespace {

// Sections with headers of 25 and footers of none, every row as high as told.
kit::TableLayout layoutOf(const std::vector<int>& rowCounts, double rowHeight, double tableHeader = 0)
{
    kit::TableLayout::Heights heights;
    heights.tableHeader = tableHeader;
    heights.rowCounts = rowCounts;
    heights.sectionHeaders.assign(rowCounts.size(), 25);
    heights.sectionFooters.assign(rowCounts.size(), 0);
    heights.eachRow = rowHeight;
    return kit::TableLayout(heights);
}

// The same with every row asked for its height.
kit::TableLayout askedLayoutOf(const std::vector<int>& rowCounts, double rowHeight)
{
    kit::TableLayout::Heights heights;
    heights.rowCounts = rowCounts;
    heights.sectionHeaders.assign(rowCounts.size(), 25);
    heights.sectionFooters.assign(rowCounts.size(), 0);
    heights.row = [rowHeight](const kit::IndexPath&) { return rowHeight; };
    return kit::TableLayout(heights);
}

} // namespace

TEST(TableLayout, isEmptyWithoutSections)
{
    const kit::TableLayout layout;
    EXPECT_EQ(layout.sectionCount(), 0);
    EXPECT_EQ(layout.contentHeight(), 0);
    EXPECT_EQ(layout.rowCount(0), 0);
    EXPECT_FALSE(layout.rowAt(0));
    EXPECT_FALSE(layout.rowAfter({ 0, 0 }, 1));
}

TEST(TableLayout, putsTheTableHeaderThenEachSectionsHeaderAboveItsRows)
{
    const kit::TableLayout layout = layoutOf({ 2, 1 }, 60, 185);
    EXPECT_EQ(layout.rowCount(-1), 0);
    EXPECT_EQ(layout.rowCount(0), 2);
    EXPECT_EQ(layout.rowCount(1), 1);
    EXPECT_EQ(layout.rowCount(2), 0);
    EXPECT_EQ(layout.sectionTop(0), 185);
    EXPECT_EQ(layout.rowTop({ 0, 0 }), 210);
    EXPECT_EQ(layout.rowTop({ 0, 1 }), 270);
    EXPECT_EQ(layout.rowBottom({ 0, 1 }), 330);
    EXPECT_EQ(layout.sectionTop(1), 330);
    EXPECT_EQ(layout.rowTop({ 1, 0 }), 355);
    EXPECT_EQ(layout.contentHeight(), 415);
}

TEST(TableLayout, countsFootersBelowTheRows)
{
    kit::TableLayout::Heights heights;
    heights.rowCounts = { 1, 1 };
    heights.sectionHeaders = { 10, 10 };
    heights.sectionFooters = { 5, 7 };
    heights.row = [](const kit::IndexPath&) { return 20.0; };
    const kit::TableLayout layout(heights);
    EXPECT_EQ(layout.sectionBottom(0), 35);
    EXPECT_EQ(layout.sectionTop(1), 35);
    EXPECT_EQ(layout.contentHeight(), 72);
}

TEST(TableLayout, placesTheMillionthRowExactly)
{
    const kit::TableLayout layout = layoutOf({ 1'000'000 }, 60, 185);
    EXPECT_EQ(layout.rowTop({ 0, 999'999 }), 185 + 25 + 999'999.0 * 60);
    EXPECT_EQ(layout.contentHeight(), 185 + 25 + 1'000'000.0 * 60);
    EXPECT_EQ(layout.rowAt(layout.rowTop({ 0, 765'432 })), (kit::IndexPath{ 0, 765'432 }));
    EXPECT_EQ(layout.rowAt(layout.rowTop({ 0, 765'432 }) - 0.25), (kit::IndexPath{ 0, 765'431 }));
}

TEST(TableLayout, placesRowsOfOneHeightLikeRowsThatAreAskedForTheirs)
{
    for (const double rowHeight : { 60.0, 0.0 }) {
        const kit::TableLayout layout = layoutOf({ 3, 0, 40 }, rowHeight);
        const kit::TableLayout asked = askedLayoutOf({ 3, 0, 40 }, rowHeight);
        EXPECT_EQ(layout.contentHeight(), asked.contentHeight());
        for (double y = -30; y < layout.contentHeight() + 30; y += 5) {
            EXPECT_EQ(layout.rowAt(y), asked.rowAt(y)) << y;
            for (int section = 0; section < 3; ++section) {
                EXPECT_EQ(layout.rowsBetween(section, y, y + 200), asked.rowsBetween(section, y, y + 200)) << y;
                EXPECT_EQ(layout.headerTop(section, y), asked.headerTop(section, y)) << y;
            }
        }
        for (int row = 0; row < 40; ++row) {
            EXPECT_EQ(layout.rowTop({ 2, row }), asked.rowTop({ 2, row }));
            EXPECT_EQ(layout.rowBottom({ 2, row }), asked.rowBottom({ 2, row }));
            EXPECT_EQ(layout.rowWithHeight(2, row), asked.rowWithHeight(2, row));
        }
    }
}

TEST(TableLayout, addsUpRowsOfMixedHeightsExactly)
{
    kit::TableLayout::Heights heights;
    heights.rowCounts = { 300'000 };
    heights.sectionHeaders = { 0 };
    heights.sectionFooters = { 0 };
    heights.row = [](const kit::IndexPath& indexPath) { return 44.0 + indexPath.row % 3 * 8; };
    const kit::TableLayout layout(heights);
    EXPECT_EQ(layout.contentHeight(), 100'000.0 * (44 + 52 + 60));
    EXPECT_EQ(layout.rowTop({ 0, 150'001 }), 50'000.0 * 156 + 44);
    EXPECT_EQ(layout.rowBottom({ 0, 150'001 }) - layout.rowTop({ 0, 150'001 }), 52);
}

TEST(TableLayout, asksForTheHeightsOfTheRowsThatThereAre)
{
    std::vector<kit::IndexPath> asked;
    kit::TableLayout::Heights heights;
    heights.rowCounts = { 2, 0, 1 };
    heights.sectionHeaders = { 0, 0, 0 };
    heights.sectionFooters = { 0, 0, 0 };
    heights.row = [&](const kit::IndexPath& indexPath) {
        asked.push_back(indexPath);
        return 60.0;
    };
    const kit::TableLayout layout(heights);
    EXPECT_EQ(asked, (std::vector<kit::IndexPath>{ { 0, 0 }, { 0, 1 }, { 2, 0 } }));
    EXPECT_EQ(layout.contentHeight(), 180);
}

TEST(TableLayout, findsNoRowInAHeaderOrOutsideTheContent)
{
    const kit::TableLayout layout = layoutOf({ 1, 1 }, 60);
    EXPECT_FALSE(layout.rowAt(-1));
    EXPECT_FALSE(layout.rowAt(24.9));
    EXPECT_EQ(layout.rowAt(25), (kit::IndexPath{ 0, 0 }));
    EXPECT_EQ(layout.rowAt(84.9), (kit::IndexPath{ 0, 0 }));
    EXPECT_FALSE(layout.rowAt(85));
    EXPECT_EQ(layout.rowAt(110), (kit::IndexPath{ 1, 0 }));
    EXPECT_FALSE(layout.rowAt(170));
}

TEST(TableLayout, keepsTheHeaderOfASectionWithoutRows)
{
    const kit::TableLayout layout = layoutOf({ 0, 2, 0 }, 60);
    EXPECT_EQ(layout.rowCount(0), 0);
    EXPECT_EQ(layout.sectionBottom(0), 25);
    EXPECT_EQ(layout.rowTop({ 1, 0 }), 50);
    EXPECT_EQ(layout.contentHeight(), 195);
    EXPECT_EQ(layout.rowsBetween(0, 0, 1000), (std::pair{ 0, 0 }));
    EXPECT_EQ(layout.rowsBetween(1, 0, 1000), (std::pair{ 0, 2 }));
    EXPECT_EQ(layout.rowsBetween(2, 0, 1000), (std::pair{ 0, 0 }));
}

TEST(TableLayout, tellsTheRowsThatAnyPartOfARangeFallsOn)
{
    const kit::TableLayout layout = layoutOf({ 10 }, 60);
    EXPECT_EQ(layout.rowsBetween(0, 0, 25), (std::pair{ 0, 0 }));
    EXPECT_EQ(layout.rowsBetween(0, 0, 25.5), (std::pair{ 0, 1 }));
    EXPECT_EQ(layout.rowsBetween(0, 84.5, 85), (std::pair{ 0, 1 }));
    EXPECT_EQ(layout.rowsBetween(0, 85, 145), (std::pair{ 1, 2 }));
    EXPECT_EQ(layout.rowsBetween(0, -500, -100), (std::pair{ 0, 0 }));
    EXPECT_EQ(layout.rowsBetween(0, 5000, 6000), (std::pair{ 10, 10 }));
}

TEST(TableLayout, pinsAHeaderToTheTopOfWhatIsSeen)
{
    const kit::TableLayout layout = layoutOf({ 10, 10 }, 60, 185);
    EXPECT_EQ(layout.headerTop(0, 0), 185);
    EXPECT_EQ(layout.headerTop(0, 185), 185);
    EXPECT_EQ(layout.headerTop(0, 300), 300);
    EXPECT_EQ(layout.headerTop(1, 300), layout.sectionTop(1));
}

TEST(TableLayout, pushesThePinnedHeaderUpByTheNext)
{
    const kit::TableLayout layout = layoutOf({ 10, 10 }, 60);
    const double next = layout.sectionTop(1);
    EXPECT_EQ(layout.headerTop(0, next - 25), next - 25);
    EXPECT_EQ(layout.headerTop(0, next - 10), next - 25);
    EXPECT_EQ(layout.headerTop(0, next + 100), next - 25);
    EXPECT_EQ(layout.headerTop(1, next + 100), next + 100);
}

TEST(TableLayout, leavesHeadersInPlaceWhileTheTableIsPulledDown)
{
    const kit::TableLayout layout = layoutOf({ 3 }, 60);
    EXPECT_EQ(layout.headerTop(0, -80), 0);
}

TEST(TableLayout, stepsOverSectionBordersAndEmptySections)
{
    const kit::TableLayout layout = layoutOf({ 2, 0, 2 }, 60);
    EXPECT_EQ(layout.rowAfter({ 0, 1 }, 1), (kit::IndexPath{ 2, 0 }));
    EXPECT_EQ(layout.rowAfter({ 2, 0 }, -1), (kit::IndexPath{ 0, 1 }));
}

TEST(TableLayout, holdsAStepWithinTheTable)
{
    const kit::TableLayout layout = layoutOf({ 2, 0, 2 }, 60);
    EXPECT_EQ(layout.rowAfter({ 0, 0 }, -1), (kit::IndexPath{ 0, 0 }));
    EXPECT_EQ(layout.rowAfter({ 0, 0 }, 0x3fffffff), (kit::IndexPath{ 2, 1 }));
    EXPECT_EQ(layout.rowAfter({ 2, 1 }, -0x3fffffff), (kit::IndexPath{ 0, 0 }));
    EXPECT_FALSE(layoutOf({ 0, 0 }, 60).rowAfter({ 0, 0 }, 1));
}

TEST(TableLayout, passesOverRowsWithoutAHeight)
{
    kit::TableLayout::Heights heights;
    heights.rowCounts = { 1'000'000 };
    heights.sectionHeaders = { 25 };
    heights.sectionFooters = { 0 };
    heights.row = [](const kit::IndexPath& row) { return row.row == 3 || row.row == 999'990 ? 60.0 : 0.0; };
    const kit::TableLayout layout(heights);
    EXPECT_EQ(layout.rowWithHeight(0, 0), 3);
    EXPECT_EQ(layout.rowWithHeight(0, 3), 3);
    EXPECT_EQ(layout.rowWithHeight(0, 4), 999'990);
    EXPECT_EQ(layout.rowWithHeight(0, 999'991), 1'000'000);
    EXPECT_EQ(layout.rowWithHeight(0, 1'000'000), 1'000'000);
}
