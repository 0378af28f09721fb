// Any edits of a body of one block and of a body of many: what comes of blocks that are decompressed one by one must be
// what the library makes of the whole.
#include "catalog/decode/Bzip2Blocks.h"
#include "catalog/text/TextDecoding.h"
#include "tests/catalog/decode/GatheringTarget.h"
#include "tests/catalog/decode/PackedStream.h"

#include <cstdlib>

namespace {

constexpr std::size_t limit = std::size_t(64) * 1024 * 1024;

// Three bytes tell where, one tells how; what is left over at the end tells where the body is cut.
QByteArray edited(QByteArray body, const std::uint8_t* data, std::size_t size)
{
    const auto placeAt = [&body, data](std::size_t index) {
        return qsizetype(data[index] << 16 | data[index + 1] << 8 | data[index + 2]) % body.size();
    };
    std::size_t index = 0;
    for (; index + 4 <= size; index += 4) {
        const qsizetype place = placeAt(index);
        body[place] = static_cast<char>(body[place] ^ static_cast<char>(data[index + 3]));
    }
    if (size - index == 3)
        body.truncate(placeAt(index));
    return body;
}

void require(bool isAsExpected)
{
    if (!isAsExpected)
        std::abort();
}

void checkBlocks(const QByteArray& body)
{
    Bzip2Blocks blocks(viewOf(body));
    QByteArray text;
    bool isSound = true;
    while (const auto block = blocks.next()) {
        const QByteArray part = blocks.decode(*block);
        isSound = isSound && !part.isEmpty();
        text += part;
    }
    require(!isSound || !blocks.isComplete() || text == unpackedByLibrary(body));
}

void checkDecoder(const QByteArray& body)
{
    const QByteArray expected = unpackedByLibrary(body);
    GatheringTarget target(-1);
    const DecodeResult result = decodeBzip2(viewOf(body), limit, target);
    require(result == (expected.isEmpty() ? DecodeResult::Broken : DecodeResult::Complete));
    require(expected.isEmpty() || target.text() == expected);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QByteArray oneBlock = packedInSmallBlocks(noise(100));
    static const QByteArray manyBlocks = packedInSmallBlocks(noise(210000));
    if (size == 0)
        return 0;
    if (data[0] % 16 == 0)
        checkDecoder(edited(manyBlocks, data + 1, size - 1));
    else
        checkBlocks(edited(oneBlock, data + 1, size - 1));
    return 0;
}
