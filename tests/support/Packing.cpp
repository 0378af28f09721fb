#include "tests/support/Packing.h"

#include <bzlib.h>
#include <zlib.h>

namespace {

// More windowBits by 16 ask for a gzip header instead of zlib's.
std::string compressed(std::string_view body, int windowBits)
{
    constexpr int usualMemory = 8;
    z_stream stream = {};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, windowBits, usualMemory, Z_DEFAULT_STRATEGY);
    std::string result(deflateBound(&stream, body.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(body.data()));
    stream.avail_in = static_cast<uInt>(body.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.resize(stream.total_out);
    deflateEnd(&stream);
    return result;
}

} // namespace

std::string gzipped(std::string_view body)
{
    return compressed(body, MAX_WBITS + 16);
}

std::string deflated(std::string_view body)
{
    return compressed(body, MAX_WBITS);
}

std::string bzipped(std::string_view body)
{
    constexpr int largestBlocks = 9;
    const std::size_t mostThatPackingAdds = body.size() / 100 + 600;
    std::string result(body.size() + mostThatPackingAdds, '\0');
    auto size = static_cast<unsigned>(result.size());
    BZ2_bzBuffToBuffCompress(
        result.data(), &size, const_cast<char*>(body.data()), static_cast<unsigned>(body.size()), largestBlocks, 0, 0);
    result.resize(size);
    return result;
}
