#include "catalog/decode/DecodeOutput.h"

#include <zlib.h>

namespace {

// 32 KiB of history, and recognise a gzip or a zlib header.
constexpr int inflateWindowBits = 15 + 32;

DecodeResult runInflate(z_stream& stream, DecodeOutput& output)
{
    while (char* window = output.window()) {
        stream.next_out = reinterpret_cast<Bytef*>(window);
        stream.avail_out = DecodeTarget::windowSize;
        const int result = inflate(&stream, Z_NO_FLUSH);
        if (result != Z_OK && result != Z_STREAM_END)
            return DecodeResult::Broken;
        if (!output.take(DecodeTarget::windowSize - stream.avail_out))
            return DecodeResult::TooLarge;
        if (result == Z_STREAM_END)
            return output.atEnd();
    }
    return DecodeResult::Stopped;
}

} // namespace

DecodeResult decodeGzip(std::string_view body, std::size_t maximumSize, DecodeTarget& target)
{
    z_stream stream{};
    if (!fitsOneCall(body) || inflateInit2(&stream, inflateWindowBits) != Z_OK)
        return DecodeResult::Broken;
    stream.next_in = reinterpret_cast<Bytef*>(inputOf(body));
    stream.avail_in = static_cast<uInt>(body.size());
    DecodeOutput output(maximumSize, target);
    const DecodeResult result = runInflate(stream, output);
    inflateEnd(&stream);
    return result;
}
