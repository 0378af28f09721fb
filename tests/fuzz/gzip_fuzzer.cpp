// Any bytes, and any edits of a sound body, in pieces of any size: what comes of them must be what the library makes of
// the whole.
#include "tests/catalog/decode/DrivenDecoder.h"
#include "tests/catalog/decode/PackedStream.h"
#include "tests/catalog/decode/PlainReference.h"

#include <cstdint>
#include <cstdlib>
#include <zlib.h>

namespace {

QByteArray gzipped(const QByteArray& text)
{
    z_stream stream{};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, 31, 8, Z_DEFAULT_STRATEGY);
    QByteArray body(static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(text.size()))), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(body.data());
    stream.avail_out = static_cast<uInt>(body.size());
    deflate(&stream, Z_FINISH);
    body.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return body;
}

// Two bytes tell where, one tells how; what is left over at the end tells where the body is cut.
QByteArray edited(QByteArray body, const std::uint8_t* data, std::size_t size)
{
    const auto placeAt
        = [&body, data](std::size_t index) { return qsizetype(data[index] << 8 | data[index + 1]) % body.size(); };
    std::size_t index = 0;
    for (; index + 3 <= size; index += 3) {
        const qsizetype place = placeAt(index);
        body[place] = static_cast<char>(body[place] ^ static_cast<char>(data[index + 2]));
    }
    if (size - index == 2)
        body.truncate(placeAt(index));
    return body;
}

void require(bool isAsExpected)
{
    if (!isAsExpected)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QByteArray sound = gzipped(noise(3000) + QByteArray(1000, 'a'));
    if (size < 2)
        return 0;
    const bool isEdit = data[0] % 2 == 1;
    const QByteArray body = isEdit
        ? edited(sound, data + 2, size - 2)
        : QByteArray(reinterpret_cast<const char*>(data + 2), static_cast<qsizetype>(size - 2));
    // Each piece costs the room for a batch of text: no more than some thirty of them.
    const qsizetype pieceSize = 1 + body.size() * (data[1] + 8) / 264;
    const PlainlyDecoded expected = plainlyDecoded(body, Compression::Gzip);
    const Decoded decoded = decodeInPieces(body, Compression::Gzip, [pieceSize] { return pieceSize; });
    require((decoded.state == DecodeState::Complete) == expected.isSound);
    require(!expected.isSound || decoded.text == expected.text);
    return 0;
}
