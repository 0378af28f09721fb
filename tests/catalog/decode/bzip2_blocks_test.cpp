#include "catalog/decode/Bzip2Blocks.h"
#include "catalog/text/TextDecoding.h"
#include "tests/catalog/decode/PackedStream.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Apart
{
    std::vector<Bzip2Blocks::Block> blocks;
    std::vector<QByteArray> texts;
    bool isComplete = false;
};

Apart takenApart(const QByteArray& body)
{
    Apart apart;
    Bzip2Blocks blocks(viewOf(body));
    while (const auto block = blocks.next()) {
        apart.blocks.push_back(*block);
        apart.texts.push_back(blocks.decode(*block));
    }
    apart.isComplete = blocks.isComplete();
    return apart;
}

QByteArray joined(const std::vector<QByteArray>& texts)
{
    QByteArray text;
    for (const QByteArray& each : texts)
        text += each;
    return text;
}

} // namespace

TEST(Bzip2Blocks, decodeEachByItself)
{
    const QByteArray text = noise(350000);
    const Apart apart = takenApart(packedInSmallBlocks(text));
    ASSERT_EQ(apart.blocks.size(), 4U);
    EXPECT_EQ(joined(apart.texts), text);
    EXPECT_TRUE(apart.isComplete);
    for (std::size_t index = 0; index < 4; ++index)
        EXPECT_EQ(apart.blocks[index].isLast, index == 3);
}

TEST(Bzip2Blocks, areThoseOfTheFirstStreamOnly)
{
    const QByteArray packed = packedInSmallBlocks(noise(1000));
    const Apart apart = takenApart(packed + packed + "more");
    EXPECT_EQ(apart.texts, std::vector<QByteArray>{ noise(1000) });
    EXPECT_TRUE(apart.isComplete);
}

TEST(Bzip2Blocks, areNoneInAnythingElse)
{
    const QByteArray packed = packedInSmallBlocks("text");
    for (const QByteArray& body : { QByteArray(), QByteArray("BZh"), QByteArray("BZh9"), QByteArray("Package: a\n\n"),
             "BZh0" + packed.mid(4), "BZx9" + packed.mid(4), packed.mid(1), packedInSmallBlocks({}) }) {
        const Apart apart = takenApart(body);
        EXPECT_TRUE(apart.blocks.empty());
        EXPECT_FALSE(apart.isComplete);
    }
}

TEST(Bzip2Blocks, areNotCompleteWhenTheStreamBreaksOff)
{
    const QByteArray packed = packedInSmallBlocks(noise(150000));
    for (qsizetype length = packed.size() - 200; length < packed.size(); ++length) {
        const QByteArray part = packed.left(length);
        Bzip2Blocks blocks(viewOf(part));
        while (blocks.next()) { }
        EXPECT_FALSE(blocks.isComplete()) << length;
    }
    EXPECT_TRUE(takenApart(packed).isComplete);
}

TEST(Bzip2Blocks, areNotCompleteWhenTheirChecksumIsNotThatOfTheStream)
{
    QByteArray packed = packedInSmallBlocks(noise(150000));
    packed[packed.size() - 3] = static_cast<char>(packed[packed.size() - 3] ^ 1);
    const Apart apart = takenApart(packed);
    EXPECT_EQ(joined(apart.texts), noise(150000));
    EXPECT_FALSE(apart.isComplete);
}

TEST(Bzip2Blocks, haveNoTextWhenTheyAreNotSound)
{
    QByteArray packed = packedInSmallBlocks(noise(150000));
    packed[packed.size() / 3] = static_cast<char>(packed[packed.size() / 3] ^ 1);
    const Apart apart = takenApart(packed);
    ASSERT_EQ(apart.texts.size(), 2U);
    EXPECT_TRUE(apart.texts[0].isEmpty());
    EXPECT_FALSE(apart.texts[1].isEmpty());
}

TEST(Bzip2Blocks, haveNoTextWhenTheyAreCutByAFalseMark)
{
    const QByteArray body = bodyOf(withFalseMark(bitsOf(packedInSmallBlocks(noise(1000)))));
    EXPECT_EQ(unpackedByLibrary(body), noise(1000));
    const Apart apart = takenApart(body);
    EXPECT_EQ(apart.blocks.size(), 2U);
    EXPECT_TRUE(joined(apart.texts).isEmpty());
}

TEST(Bzip2Blocks, areLeftWhenTheirTextIsUnusuallyLongOrShort)
{
    const Apart endless = takenApart(packedInSmallBlocks(QByteArray(3'000'000, 'x') + noise(1000)));
    EXPECT_TRUE(endless.texts.front().isEmpty());
    const Apart flushed = takenApart(packedInSmallBlocks(noise(3000), 1000));
    ASSERT_EQ(flushed.texts.size(), 3U);
    EXPECT_TRUE(flushed.texts[1].isEmpty());
    EXPECT_EQ(flushed.texts[2].size(), 1000);
}

// Noise without a mark is not searched to its end for each block.
TEST(Bzip2Blocks, areNoLongerThanBlocksCanBe)
{
    const QByteArray packed = packedInSmallBlocks(noise(1000));
    const Apart apart = takenApart(packed.left(500) + QByteArray(qsizetype(3) * 1024 * 1024, 'x') + packed);
    EXPECT_TRUE(apart.blocks.empty());
}
