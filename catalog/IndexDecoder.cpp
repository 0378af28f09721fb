#include "IndexDecoder.h"

#include <limits>

#include <bzlib.h>
#include <zlib.h>

namespace {

// 32 KiB of history, and recognise a gzip or a zlib header.
constexpr int inflateWindowBits = 15 + 32;

// Counts what the passes produce and keeps to the limit.
class Output
{
public:
    Output(std::size_t maximumSize, DecodeTarget& target)
        : m_maximumSize(maximumSize)
        , m_target(target)
    {
    }

    // The output space of the next pass; null when no more is wanted.
    char* window() { return m_target.window(); }

    // Whether what the pass produced is within the limit.
    bool take(std::size_t produced)
    {
        if (produced > m_maximumSize - m_size)
            return false;
        m_size += produced;
        if (produced != 0)
            m_target.accept(produced);
        return true;
    }

    DecodeResult atEnd() const { return m_size == 0 ? DecodeResult::Broken : DecodeResult::Complete; }

private:
    std::size_t m_maximumSize;
    DecodeTarget& m_target;
    std::size_t m_size = 0;
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
    while (char* window = output.window()) {
        stream.next_out = window;
        stream.avail_out = DecodeTarget::windowSize;
        const int result = BZ2_bzDecompress(&stream);
        if (result != BZ_OK && result != BZ_STREAM_END)
            return DecodeResult::Broken;
        const std::size_t produced = DecodeTarget::windowSize - stream.avail_out;
        if (!output.take(produced))
            return DecodeResult::TooLarge;
        if (result == BZ_STREAM_END)
            return output.atEnd();
        if (stream.avail_in == 0 && produced == 0)
            return DecodeResult::Broken;
    }
    return DecodeResult::Stopped;
}

DecodeResult runInflate(z_stream& stream, Output& output)
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

DecodeResult decodeBzip2(std::string_view body, std::size_t maximumSize, DecodeTarget& target)
{
    bz_stream stream{};
    if (!fitsOneCall(body) || BZ2_bzDecompressInit(&stream, 0, 0) != BZ_OK)
        return DecodeResult::Broken;
    stream.next_in = inputOf(body);
    stream.avail_in = static_cast<unsigned>(body.size());
    Output output(maximumSize, target);
    const DecodeResult result = runBzip2(stream, output);
    BZ2_bzDecompressEnd(&stream);
    return result;
}

DecodeResult decodeGzip(std::string_view body, std::size_t maximumSize, DecodeTarget& target)
{
    z_stream stream{};
    if (!fitsOneCall(body) || inflateInit2(&stream, inflateWindowBits) != Z_OK)
        return DecodeResult::Broken;
    stream.next_in = reinterpret_cast<Bytef*>(inputOf(body));
    stream.avail_in = static_cast<uInt>(body.size());
    Output output(maximumSize, target);
    const DecodeResult result = runInflate(stream, output);
    inflateEnd(&stream);
    return result;
}
