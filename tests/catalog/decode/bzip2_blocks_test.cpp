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

std::shared_ptr<ReceivedBody> received(const QByteArray& bytes)
{
    auto body = std::make_shared<ReceivedBody>();
    body->append(viewOf(bytes));
    return body;
}

Apart takenApart(const QByteArray& bytes)
{
    Apart apart;
    const auto body = received(bytes);
    body->finish();
    Bzip2Blocks blocks(body);
    while (const auto block = blocks.next()) {
        apart.blocks.push_back(*block);
        apart.texts.push_back(Bzip2Blocks::decode(*body, *block, {}));
    }
    EXPECT_NE(blocks.state(), Bzip2Blocks::State::Searching);
    apart.isComplete = blocks.state() == Bzip2Blocks::State::Complete;
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

TEST(Bzip2Blocks, areFoundInStreamsOfEveryLevelAndOfNoOther)
{
    QByteArray packed = packedInSmallBlocks(noise(1000));
    for (const char level : { '/', '0', '1', '2', '8', '9', ':' }) {
        packed[3] = level;
        const bool isLevel = level >= '1' && level <= '9';
        EXPECT_EQ(takenApart(packed).texts.size(), isLevel ? 1U : 0U) << level;
    }
}

TEST(Bzip2Blocks, areNotCompleteWhenTheStreamBreaksOff)
{
    const QByteArray packed = packedInSmallBlocks(noise(150000));
    for (qsizetype length = packed.size() - 200; length < packed.size(); ++length) {
        const auto body = received(packed.left(length));
        body->finish();
        Bzip2Blocks blocks(body);
        while (blocks.next()) { }
        EXPECT_EQ(blocks.state(), Bzip2Blocks::State::Doubtful) << length;
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

TEST(Bzip2Blocks, areFoundAsSoonAsTheirLastByteHasCome)
{
    const QByteArray packed = packedInSmallBlocks(noise(250000));
    const Apart expected = takenApart(packed);
    ASSERT_EQ(expected.blocks.size(), 3U);
    const auto body = std::make_shared<ReceivedBody>();
    Bzip2Blocks blocks(body);
    std::size_t found = 0;
    for (qsizetype size = 1; size <= packed.size(); ++size) {
        body->append(viewOf(packed).substr(static_cast<std::size_t>(size - 1), 1));
        const auto block = blocks.next();
        ASSERT_FALSE(blocks.next());
        const bool isExpected
            = found < 3 && expected.blocks[found].end + (found == 2 ? 80 : 48) <= std::uint64_t(size) * 8;
        ASSERT_EQ(block.has_value(), isExpected) << size;
        if (block) {
            EXPECT_EQ(block->end, expected.blocks[found++].end);
        }
    }
    EXPECT_EQ(found, 3U);
    EXPECT_EQ(blocks.state(), Bzip2Blocks::State::Complete);
}

TEST(Bzip2Blocks, areSearchedOnWhileMoreMayCome)
{
    const QByteArray packed = packedInSmallBlocks(noise(1000));
    for (qsizetype size = 0; size < packed.size(); ++size) {
        const auto body = received(packed.left(size));
        Bzip2Blocks blocks(body);
        EXPECT_FALSE(blocks.next());
        EXPECT_EQ(blocks.state(), Bzip2Blocks::State::Searching);
        body->finish();
        EXPECT_FALSE(blocks.next());
        EXPECT_EQ(blocks.state(), Bzip2Blocks::State::Doubtful);
    }
}

TEST(Bzip2Blocks, haveNoTextWhenAStopIsAskedFor)
{
    const auto body = received(packedInSmallBlocks(noise(90000)));
    const auto block = Bzip2Blocks(body).next();
    ASSERT_TRUE(block);
    std::stop_source stop;
    EXPECT_EQ(Bzip2Blocks::decode(*body, *block, stop.get_token()).size(), 90000);
    stop.request_stop();
    EXPECT_TRUE(Bzip2Blocks::decode(*body, *block, stop.get_token()).isEmpty());
}

// Noise without a mark is not searched to its end for each block.
TEST(Bzip2Blocks, areNoLongerThanBlocksCanBe)
{
    const QByteArray packed = packedInSmallBlocks(noise(1000));
    const Apart apart = takenApart(packed.left(500) + QByteArray(qsizetype(3) * 1024 * 1024, 'x') + packed);
    EXPECT_TRUE(apart.blocks.empty());
}
