#include "Encodings.h"

#include <zlib.h>

#include <sstream>

namespace {

// More windowBits by 16 ask for a gzip header instead of zlib's.
std::string compressed(std::string_view body, int windowBits)
{
    constexpr int usualMemory = 8;
    z_stream stream = {};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, windowBits, usualMemory, Z_DEFAULT_STRATEGY);
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

constexpr std::string_view statusLine = "HTTP/1.1 200 OK\r\n";

} // namespace

std::string gzipped(std::string_view body)
{
    return compressed(body, MAX_WBITS + 16);
}

std::string deflated(std::string_view body)
{
    return compressed(body, MAX_WBITS);
}

std::string answerOf(std::string_view body, std::string_view headers)
{
    std::ostringstream answer;
    answer << statusLine << headers << "Content-Length: " << body.size() << "\r\n\r\n" << body;
    return answer.str();
}

std::string chunkedAnswerOf(std::string_view body, std::size_t chunk, std::string_view headers)
{
    std::ostringstream answer;
    answer << statusLine << headers << "Transfer-Encoding: chunked\r\n\r\n" << std::hex;
    for (; !body.empty(); body.remove_prefix(std::min(chunk, body.size()))) {
        const std::string_view piece = body.substr(0, chunk);
        answer << piece.size() << "\r\n" << piece << "\r\n";
    }
    answer << "0\r\n\r\n";
    return answer.str();
}
