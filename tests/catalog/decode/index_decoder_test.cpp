#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/decode/DrivenDecoder.h"
#include "tests/catalog/decode/PlainReference.h"

#include <random>

namespace {

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
    Compression compression;
    QByteArray (*pack)(const QByteArray&);
};

// Pieces of any size from 1 up to that one.
PieceSize randomPieces(std::mt19937& random, qsizetype largest)
{
    return [&random, largest] { return 1 + static_cast<qsizetype>(random()) % largest; };
}

} // namespace

class IndexDecoders : public testing::TestWithParam<Kind>
{
protected:
    static Decoded decode(const QByteArray& body) { return decodeWhole(body, GetParam().compression); }
    static QByteArray pack(const QByteArray& text) { return GetParam().pack(text); }

    static void expectThePlainDefinition(const QByteArray& body, const PieceSize& pieces)
    {
        const PlainlyDecoded expected = plainlyDecoded(body, GetParam().compression);
        const Decoded decoded = decodeInPieces(body, GetParam().compression, pieces);
        // Whether nothing at all is good enough is for who asks.
        const bool isSound = decoded.state == DecodeState::Complete && !decoded.text.isEmpty();
        EXPECT_EQ(isSound, expected.isSound) << "of " << body.size() << " bytes";
        EXPECT_TRUE(decoded.text == expected.text) << "of " << body.size() << " bytes";
    }
};

INSTANTIATE_TEST_SUITE_P(All, IndexDecoders,
    testing::Values(Kind{ "Gzip", Compression::Gzip, gzipped }, Kind{ "Bzip2", Compression::Bzip2, bzipped }),
    [](const auto& kind) { return kind.param.name; });

TEST_P(IndexDecoders, giveBackWhatWasPacked)
{
    for (const QByteArray& text :
        { QByteArray("short"), longText(), QByteArray(65536, 'x'), QByteArray(262144, 'x'), QByteArray(262145, 'x') }) {
        const Decoded decoded = decode(pack(text));
        EXPECT_EQ(decoded.state, DecodeState::Complete);
        EXPECT_TRUE(decoded.text == text);
    }
}

TEST_P(IndexDecoders, failOnAnEmptyBody)
{
    EXPECT_EQ(decode({}).state, DecodeState::Broken);
}

TEST_P(IndexDecoders, failOnABodyCutOffAnywhereInWhateverPiecesItComes)
{
    const QByteArray packed = pack("some text that is packed");
    for (qsizetype length = 0; length < packed.size(); ++length) {
        for (const qsizetype pieceSize : { qsizetype(1), qsizetype(7), packed.size() }) {
            const auto pieces = [pieceSize] { return pieceSize; };
            EXPECT_EQ(decodeInPieces(packed.left(length), GetParam().compression, pieces).state, DecodeState::Broken)
                << length;
        }
    }
    const QByteArray longPacked = pack(longText());
    EXPECT_EQ(decode(longPacked.left(longPacked.size() / 2)).state, DecodeState::Broken);
}

TEST_P(IndexDecoders, failOnPlainText)
{
    EXPECT_EQ(decode("Package: a\n\n").state, DecodeState::Broken);
}

TEST_P(IndexDecoders, failOnAByteTurnedOver)
{
    QByteArray packed = pack(longText());
    packed[packed.size() / 2] = static_cast<char>(packed[packed.size() / 2] ^ 0x55);
    EXPECT_EQ(decode(packed).state, DecodeState::Broken);
}

TEST_P(IndexDecoders, decodeTheFirstStreamOnly)
{
    for (const QByteArray& more : { pack("second"), QByteArray("garbage") }) {
        const Decoded decoded = decode(pack("first") + more);
        EXPECT_EQ(decoded.state, DecodeState::Complete);
        EXPECT_EQ(decoded.text, "first");
    }
}

TEST_P(IndexDecoders, followThePlainDefinitionOnSmallBodiesInPiecesOfAnySize)
{
    std::mt19937 random{ 1 };
    for (int round = 0; round < 300; ++round) {
        QByteArray body = pack(longText().left(static_cast<qsizetype>(random() % 3000)));
        if (round % 3 == 1)
            body[static_cast<qsizetype>(random()) % body.size()] = static_cast<char>(random());
        if (round % 3 == 2)
            body.truncate(static_cast<qsizetype>(random()) % body.size());
        if (round % 5 == 0)
            body += body;
        expectThePlainDefinition(body, randomPieces(random, 1 + static_cast<qsizetype>(random() % 300)));
    }
}

TEST_P(IndexDecoders, followThePlainDefinitionOnLargeBodiesInPiecesOfAnySize)
{
    std::mt19937 random{ 2 };
    const QByteArray packed = pack(longText());
    for (int round = 0; round < 12; ++round) {
        QByteArray body = packed;
        if (round % 3 == 1)
            body[static_cast<qsizetype>(random()) % body.size()] = static_cast<char>(random());
        if (round % 3 == 2)
            body.truncate(static_cast<qsizetype>(random()) % body.size());
        expectThePlainDefinition(body, randomPieces(random, 40000));
    }
}

TEST(GzipDecoder, recognisesAZlibHeaderToo)
{
    const QByteArray zlibWithLength = qCompress(QByteArray("some text"));
    const Decoded decoded = decodeWhole(zlibWithLength.mid(4), Compression::Gzip);
    EXPECT_EQ(decoded.state, DecodeState::Complete);
    EXPECT_EQ(decoded.text, "some text");
}

TEST(GzipDecoder, failsWhenADictionaryIsAskedFor)
{
    const QByteArray withDictionary = QByteArray::fromHex("78f9000000010300000000") + "more";
    EXPECT_EQ(decodeWhole(withDictionary, Compression::Gzip).state, DecodeState::Broken);
}

TEST(PlainDecoder, takesAnyBodyAsItIs)
{
    std::mt19937 random{ 3 };
    for (const QByteArray& body : { QByteArray(), QByteArray("x"), longText() }) {
        const Decoded decoded = decodeInPieces(body, Compression::None, randomPieces(random, 100000));
        EXPECT_EQ(decoded.state, DecodeState::Complete);
        EXPECT_TRUE(decoded.text == body);
    }
}
