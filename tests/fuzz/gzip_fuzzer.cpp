// Any bytes, and any edits of a sound body, in pieces of any size: what comes of them must be what the library makes of
// the whole.
#include "tests/catalog/decode/DrivenDecoder.h"
#include "tests/catalog/decode/PackedStream.h"
#include "tests/catalog/decode/PlainReference.h"
#include "tests/fuzz/Require.h"
#include "tests/support/Packing.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QByteArray sound
        = QByteArray::fromStdString(gzipped(noise(3000).toStdString() + std::string(1000, 'a')));
    if (size < 2)
        return 0;
    const bool isEdit = data[0] % 2 == 1;
    const QByteArray body = isEdit
        ? edited(sound, data + 2, size - 2, 2)
        : QByteArray(reinterpret_cast<const char*>(data + 2), static_cast<qsizetype>(size - 2));
    // Each piece costs the room for a batch of text: no more than some thirty of them.
    const qsizetype pieceSize = 1 + body.size() * (data[1] + 8) / 264;
    const PlainlyDecoded expected = plainlyDecoded(body, Compression::Gzip);
    const Decoded decoded = decodeInPieces(body, Compression::Gzip, [pieceSize] { return pieceSize; });
    require((decoded.state == DecodeState::Complete) == expected.isSound);
    require(!expected.isSound || decoded.text == expected.text);
    return 0;
}
