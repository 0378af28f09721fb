#include "tests/catalog/decode/DrivenDecoder.h"
#include "tests/catalog/decode/PackedStream.h"
#include "tests/catalog/decode/PlainReference.h"

#include <gtest/gtest.h>

// Bodies of many blocks, which are shared out among threads: what comes out must be what the library makes of the whole
// body.

namespace {

// All with the same text, packed into some hundred thousand bytes.
const QByteArray& manyBlocks()
{
    static const QByteArray packed = packedInSmallBlocks(noise(550000));
    return packed;
}

void expectWhatTheLibraryGives(const QByteArray& body)
{
    const PlainlyDecoded expected = plainlyDecoded(body, Compression::Bzip2);
    const Decoded decoded = decodeInPieces(body, Compression::Bzip2, [] { return qsizetype(20011); });
    EXPECT_EQ(decoded.state, expected.isSound ? DecodeState::Complete : DecodeState::Broken);
    EXPECT_TRUE(decoded.text == expected.text);
}

QByteArray withByteTurnedOver(QByteArray body, qsizetype at)
{
    body[at] = static_cast<char>(body[at] ^ 0x10);
    return body;
}

} // namespace

TEST(Bzip2Decoder, givesTheBlocksInTheirOrder)
{
    const Decoded decoded = decodeWhole(manyBlocks(), Compression::Bzip2);
    EXPECT_EQ(decoded.state, DecodeState::Complete);
    EXPECT_TRUE(decoded.text == noise(550000));
}

// Whoever reads a stream in order gets through 16 KiB of it in a step.
TEST(Bzip2Decoder, leavesTheWorkOnEachBlockToAWorker)
{
    constexpr int blocks = 6;
    for (const qsizetype pieceSize : { manyBlocks().size(), qsizetype(20011) }) {
        const Decoded decoded = decodeInPieces(manyBlocks(), Compression::Bzip2, [&] { return pieceSize; });
        EXPECT_TRUE(decoded.text == noise(550000));
        EXPECT_LE(decoded.steps, 2 * blocks + 1);
    }
}

TEST(Bzip2Decoder, endsWithTheFirstStream)
{
    expectWhatTheLibraryGives(manyBlocks() + manyBlocks());
    expectWhatTheLibraryGives(manyBlocks() + noise(100000));
    expectWhatTheLibraryGives(packedInSmallBlocks("short") + manyBlocks());
}

TEST(Bzip2Decoder, isNotMisledByAMarkWithinABlock)
{
    const std::string bits = bitsOf(manyBlocks());
    const QByteArray inFirstBlock = bodyOf(withFalseMark(bits));
    ASSERT_TRUE(unpackedByLibrary(inFirstBlock) == noise(550000));
    expectWhatTheLibraryGives(inFirstBlock);

    // The third block is made the first for as long as the mark is put into it.
    std::size_t third = bits.find(blockMarkBits, bits.find(blockMarkBits, 32 + 48) + 48);
    const std::string header = bits.substr(0, 32);
    const QByteArray inThirdBlock
        = bodyOf(bits.substr(0, third) + withFalseMark(header + bits.substr(third)).substr(32));
    ASSERT_TRUE(unpackedByLibrary(inThirdBlock) == noise(550000));
    expectWhatTheLibraryGives(inThirdBlock);
}

TEST(Bzip2Decoder, givesMixedUsualAndUnusualBlocksInTheirOrder)
{
    expectWhatTheLibraryGives(packedInSmallBlocks(noise(350000) + QByteArray(20'000'000, 'x') + noise(350000)));
    expectWhatTheLibraryGives(packedInSmallBlocks(noise(550000), 20000));
    expectWhatTheLibraryGives(packedInSmallBlocks(noise(550000), 250000));
}

// All of it is packed so small that the usual blocks and the unusual one come out of one piece.
TEST(Bzip2Decoder, goesOnWithinAPieceOfTextBehindUsualBlocksThatPackWell)
{
    const QByteArray lines = QByteArray("one line and\n").repeated(27000);
    const QByteArray packed = packedInSmallBlocks(lines + QByteArray(20'000'000, 'x') + lines);
    ASSERT_LT(packed.size(), 16384);
    expectWhatTheLibraryGives(packed);
}

TEST(Bzip2Decoder, failsOnABodyCutOffInAnyBlock)
{
    for (qsizetype length = 66000; length < manyBlocks().size(); length += 40009)
        expectWhatTheLibraryGives(manyBlocks().left(length));
    for (qsizetype cut = 1; cut < 16; ++cut)
        expectWhatTheLibraryGives(manyBlocks().chopped(cut));
}

TEST(Bzip2Decoder, failsOnAByteTurnedOverInAnyBlock)
{
    for (qsizetype at = 0; at < manyBlocks().size(); at += 40009)
        expectWhatTheLibraryGives(withByteTurnedOver(manyBlocks(), at));
    for (qsizetype fromEnd = 1; fromEnd < 16; ++fromEnd)
        expectWhatTheLibraryGives(withByteTurnedOver(manyBlocks(), manyBlocks().size() - fromEnd));
}

// Blocks that are sound each, but not those that the stream was made of.
TEST(Bzip2Decoder, failsWhenABlockIsMissing)
{
    const std::string bits = bitsOf(manyBlocks());
    const std::size_t second = bits.find(blockMarkBits, 32 + 48);
    const std::size_t third = bits.find(blockMarkBits, second + 48);
    expectWhatTheLibraryGives(bodyOf(bits.substr(0, second) + bits.substr(third)));
}

TEST(Bzip2Decoder, failsOnAnotherLevelThanTheBlocksAreOf)
{
    QByteArray body = manyBlocks();
    for (const char level : { '0', '5', '9', 'x' }) {
        body[3] = level;
        expectWhatTheLibraryGives(body);
    }
}
