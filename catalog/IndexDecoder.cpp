#include "IndexDecoder.h"

#include <array>
#include <limits>
#include <memory>

#include <bzlib.h>
#include <zlib.h>

namespace {

constexpr std::size_t passSize = 65536;
using PassBuffer = std::array<char, passSize>;

// 32 KiB of history, and recognise a gzip or a zlib header.
constexpr int inflateWindowBits = 15 + 32;

// Hands out what the passes produce and keeps to the limit.
class Output
{
public:
    Output(std::size_t maximumSize, const DecodeSink& sink)
        : m_maximumSize(maximumSize)
        , m_sink(sink)
    {
    }

    char* data() { return m_buffer->data(); }

    // Whether decoding may go on after a pass that produced so many bytes.
    bool take(std::size_t produced)
    {
        if (produced > m_maximumSize - m_size) {
            m_refusal = DecodeResult::TooLarge;
            return false;
        }
        m_size += produced;
        if (produced != 0 && !m_sink({ m_buffer->data(), produced })) {
            m_refusal = DecodeResult::Stopped;
            return false;
        }
        return true;
    }

    DecodeResult refusal() const { return m_refusal; }
    DecodeResult atEnd() const { return m_size == 0 ? DecodeResult::Broken : DecodeResult::Complete; }

private:
    std::size_t m_maximumSize;
    const DecodeSink& m_sink;
    std::size_t m_size = 0;
    DecodeResult m_refusal = DecodeResult::Broken;
    std::unique_ptr<PassBuffer> m_buffer = std::make_unique<PassBuffer>();
};

bool fitsOneCall(std::string_view body)
{
    return !body.empty() && body.size() <= std::numeric_limits<unsigned>::max();
}

// The libraries take their input through pointers to non-const bytes, which they do not write to.
char* inputOf(std::string_view body)
{
    return const_cast<char*>(body.data());
}

DecodeResult runBzip2(bz_stream& stream, Output& output)
{
    while (true) {
        stream.next_out = output.data();
        stream.avail_out = passSize;
        const int result = BZ2_bzDecompress(&stream);
        if (result != BZ_OK && result != BZ_STREAM_END)
            return DecodeResult::Broken;
        const std::size_t produced = passSize - stream.avail_out;
        if (!output.take(produced))
            return output.refusal();
        if (result == BZ_STREAM_END)
            return output.atEnd();
        if (stream.avail_in == 0 && produced == 0)
            return DecodeResult::Broken;
    }
}

DecodeResult runInflate(z_stream& stream, Output& output)
{
    while (true) {
        stream.next_out = reinterpret_cast<Bytef*>(output.data());
        stream.avail_out = passSize;
        const int result = inflate(&stream, Z_NO_FLUSH);
        if (result != Z_OK && result != Z_STREAM_END)
            return DecodeResult::Broken;
        if (!output.take(passSize - stream.avail_out))
            return output.refusal();
        if (result == Z_STREAM_END)
            return output.atEnd();
    }
}

} // namespace

DecodeResult decodeBzip2(std::string_view body, std::size_t maximumSize, const DecodeSink& sink)
{
    bz_stream stream{};
    if (!fitsOneCall(body) || BZ2_bzDecompressInit(&stream, 0, 0) != BZ_OK)
        return DecodeResult::Broken;
    stream.next_in = inputOf(body);
    stream.avail_in = static_cast<unsigned>(body.size());
    Output output(maximumSize, sink);
    const DecodeResult result = runBzip2(stream, output);
    BZ2_bzDecompressEnd(&stream);
    return result;
}

DecodeResult decodeGzip(std::string_view body, std::size_t maximumSize, const DecodeSink& sink)
{
    z_stream stream{};
    if (!fitsOneCall(body) || inflateInit2(&stream, inflateWindowBits) != Z_OK)
        return DecodeResult::Broken;
    stream.next_in = reinterpret_cast<Bytef*>(inputOf(body));
    stream.avail_in = static_cast<uInt>(body.size());
    Output output(maximumSize, sink);
    const DecodeResult result = runInflate(stream, output);
    inflateEnd(&stream);
    return result;
}
