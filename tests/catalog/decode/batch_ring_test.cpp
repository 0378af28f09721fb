#include "catalog/decode/BatchRing.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<TextBatch*> takeAll(BatchRing& ring)
{
    std::vector<TextBatch*> batches;
    while (TextBatch* const batch = ring.take())
        batches.push_back(batch);
    return batches;
}

} // namespace

TEST(ABatchRing, turnsAwayWhoFillsWhenAllBatchesAreUnderWay)
{
    BatchRing ring;
    const std::size_t count = takeAll(ring).size();
    EXPECT_GE(count, 2U);
    EXPECT_EQ(ring.take(), nullptr);
    ring.giveBack();
    EXPECT_NE(ring.take(), nullptr);
    EXPECT_EQ(ring.take(), nullptr);
}

TEST(ABatchRing, tellsOnceWhenWhoFillsMayComeAgain)
{
    BatchRing ring;
    const std::size_t count = takeAll(ring).size();
    int told = 0;
    for (std::size_t number = 0; number < count; ++number)
        told += ring.giveBack() ? 1 : 0;
    EXPECT_EQ(told, 1);
    EXPECT_EQ(takeAll(ring).size(), count);
}

TEST(ABatchRing, tellsNobodyWhoHasNotBeenTurnedAway)
{
    BatchRing ring;
    for (int round = 0; round < 10; ++round) {
        ASSERT_NE(ring.take(), nullptr);
        EXPECT_FALSE(ring.giveBack());
    }
}

TEST(ABatchRing, givesEachBatchAnewInOrderAndEmpty)
{
    BatchRing ring;
    const std::vector<TextBatch*> batches = takeAll(ring);
    batches.front()->append("text");
    ring.giveBack();
    TextBatch* const again = ring.take();
    EXPECT_EQ(again, batches.front());
    EXPECT_TRUE(again->text().empty());
}
