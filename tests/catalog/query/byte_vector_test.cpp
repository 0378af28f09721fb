#include "catalog/query/ByteVector.h"

#include <gtest/gtest.h>

#include <random>

TEST(ByteVector, tellsForEachByteWhetherItIsSet)
{
    for (std::size_t place = 0; place < sizeof(ByteVector); ++place) {
        ByteVector bytes{};
        bytes[place] = -1;
        EXPECT_EQ(bitsOf(bytes), std::uint64_t(1) << place);
        EXPECT_EQ(bitsOnAnyProcessor(bytes), std::uint64_t(1) << place);
    }
}

TEST(ByteVector, tellsTheSameByOneInstructionAsOnAnyProcessor)
{
    std::mt19937 random{ 20240229 };
    for (int round = 0; round < 10000; ++round) {
        ByteVector bytes;
        for (std::size_t place = 0; place < sizeof(ByteVector); ++place)
            bytes[place] = random() % 2 == 0 ? 0 : -1;
        ASSERT_EQ(bitsOf(bytes), bitsOnAnyProcessor(bytes)) << round;
    }
}
