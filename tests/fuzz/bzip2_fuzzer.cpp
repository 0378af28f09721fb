// Any edits of a body of one block and of bodies of many: what comes of blocks that are decompressed
// one by one must be what the library makes of the whole.
#include "catalog/decode/Bzip2Blocks.h"
#include "catalog/text/TextDecoding.h"
#include "tests/catalog/decode/DrivenDecoder.h"
#include "tests/catalog/decode/PackedStream.h"
#include "tests/catalog/decode/PlainReference.h"
#include "tests/fuzz/Require.h"

namespace {

void checkBlocks(const QByteArray& bytes)
{
    const auto body = std::make_shared<ReceivedBody>();
    body->append(viewOf(bytes));
    body->finish();
    Bzip2Blocks blocks(body);
    QByteArray text;
    bool isSound = true;
    while (const auto block = blocks.next()) {
        const QByteArray part = Bzip2Blocks::decode(*body, *block, {});
        isSound = isSound && !part.isEmpty();
        text += part;
    }
    const bool isComplete = blocks.state() == Bzip2Blocks::State::Complete;
    require(!isSound || !isComplete || text == plainlyDecoded(bytes, Compression::Bzip2).text);
}

// Of a block that leads out of itself the library gives as much as had filled the room for its text, so what comes of
// an unsound body may break off sooner or later.
void checkDecoder(const QByteArray& body, qsizetype pieceSize)
{
    const PlainlyDecoded expected = plainlyDecoded(body, Compression::Bzip2);
    const Decoded decoded = decodeInPieces(body, Compression::Bzip2, [pieceSize] { return pieceSize; });
    require((decoded.state == DecodeState::Complete) == expected.isSound);
    require(decoded.text.startsWith(expected.text) || expected.text.startsWith(decoded.text));
    require(!expected.isSound || decoded.text == expected.text);
}

} // namespace

// Blocks of much text are decompressed one by one; those of a single letter take little time for that. Short ones lead
// from one end of the stream to the other.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QByteArray oneBlock = packedInSmallBlocks(noise(100));
    static const QByteArray longBlocks = packedInSmallBlocks(QByteArray(140100, 'a'), 70000);
    static const QByteArray shortBlocks = packedInSmallBlocks(noise(400), 100);
    if (size < 2)
        return 0;
    if (data[0] < 64)
        checkDecoder(edited(longBlocks, data + 2, size - 2, 2), 20 + data[1]);
    else if (data[0] < 128)
        checkDecoder(edited(shortBlocks, data + 2, size - 2, 2), 50 + data[1] * qsizetype(8));
    else
        checkBlocks(edited(oneBlock, data + 2, size - 2, 2));
    return 0;
}
