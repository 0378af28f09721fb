#include "catalog/text/TextDecoding.h"
#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/decode/GatheringTarget.h"

namespace {

constexpr std::size_t noLimit = std::size_t(1024) * 1024 * 1024;

using Decoder = DecodeResult (*)(std::string_view, std::size_t, DecodeTarget&);

struct Decoded
{
    DecodeResult result;
    QByteArray text;
};

Decoded decodeAll(Decoder decoder, const QByteArray& body, std::size_t limit = noLimit)
{
    GatheringTarget target(-1);
    const DecodeResult result = decoder(viewOf(body), limit, target);
    return { result, target.text() };
}

// Longer than many passes, and not all the same.
QByteArray longText()
{
    QByteArray text;
    for (int number = 0; number < 60000; ++number)
        text += QByteArray::number(number * 7919) + '\n';
    return text;
}

struct Kind
{
    const char* name;
    Decoder decode;
    QByteArray (*pack)(const QByteArray&);
};

} // namespace

class IndexDecoders : public testing::TestWithParam<Kind>
{
};

INSTANTIATE_TEST_SUITE_P(All, IndexDecoders,
    testing::Values(Kind{ "Gzip", decodeGzip, gzipped }, Kind{ "Bzip2", decodeBzip2, bzipped }),
    [](const auto& kind) { return kind.param.name; });

TEST_P(IndexDecoders, giveBackWhatWasPacked)
{
    for (const QByteArray& text : { QByteArray("short"), longText(), QByteArray(65536, 'x'), QByteArray(65537, 'x') }) {
        const Decoded decoded = decodeAll(GetParam().decode, GetParam().pack(text));
        EXPECT_EQ(decoded.result, DecodeResult::Complete);
        EXPECT_EQ(decoded.text, text);
    }
}

TEST_P(IndexDecoders, failOnAnEmptyBodyAndOnEmptyText)
{
    EXPECT_EQ(decodeAll(GetParam().decode, {}).result, DecodeResult::Broken);
    EXPECT_EQ(decodeAll(GetParam().decode, GetParam().pack({})).result, DecodeResult::Broken);
}

TEST_P(IndexDecoders, failOnABodyCutOffAnywhere)
{
    const QByteArray packed = GetParam().pack("some text that is packed");
    for (qsizetype length = 0; length < packed.size(); ++length)
        EXPECT_EQ(decodeAll(GetParam().decode, packed.left(length)).result, DecodeResult::Broken) << length;
    const QByteArray longPacked = GetParam().pack(longText());
    EXPECT_EQ(decodeAll(GetParam().decode, longPacked.left(longPacked.size() / 2)).result, DecodeResult::Broken);
}

TEST_P(IndexDecoders, failOnPlainText)
{
    EXPECT_EQ(decodeAll(GetParam().decode, "Package: a\n\n").result, DecodeResult::Broken);
}

TEST_P(IndexDecoders, failOnAByteTurnedOver)
{
    QByteArray packed = GetParam().pack(longText());
    packed[packed.size() / 2] = static_cast<char>(packed[packed.size() / 2] ^ 0x55);
    EXPECT_EQ(decodeAll(GetParam().decode, packed).result, DecodeResult::Broken);
}

TEST_P(IndexDecoders, decodeTheFirstStreamOnly)
{
    const Decoded decoded = decodeAll(GetParam().decode, GetParam().pack("first") + GetParam().pack("second"));
    EXPECT_EQ(decoded.result, DecodeResult::Complete);
    EXPECT_EQ(decoded.text, "first");
}

TEST_P(IndexDecoders, passOverWhatFollowsTheStream)
{
    const Decoded decoded = decodeAll(GetParam().decode, GetParam().pack("first") + "garbage");
    EXPECT_EQ(decoded.result, DecodeResult::Complete);
    EXPECT_EQ(decoded.text, "first");
}

TEST_P(IndexDecoders, stopAtTheLimitAndNotBefore)
{
    const QByteArray packed = GetParam().pack(QByteArray(200000, 'x'));
    EXPECT_EQ(decodeAll(GetParam().decode, packed, 200000).result, DecodeResult::Complete);
    const Decoded decoded = decodeAll(GetParam().decode, packed, 199999);
    EXPECT_EQ(decoded.result, DecodeResult::TooLarge);
    EXPECT_LT(decoded.text.size(), 200000);
}

TEST_P(IndexDecoders, stopWhenTheTargetWantsNoMore)
{
    GatheringTarget target(1);
    const QByteArray packed = GetParam().pack(longText());
    EXPECT_EQ(GetParam().decode(viewOf(packed), noLimit, target), DecodeResult::Stopped);
    EXPECT_EQ(target.text(), longText().left(DecodeTarget::windowSize));
}

TEST(GzipDecoder, recognisesAZlibHeaderToo)
{
    const QByteArray zlibWithLength = qCompress(QByteArray("some text"));
    const Decoded decoded = decodeAll(decodeGzip, zlibWithLength.mid(4));
    EXPECT_EQ(decoded.result, DecodeResult::Complete);
    EXPECT_EQ(decoded.text, "some text");
}
