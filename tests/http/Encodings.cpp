#include "tests/http/Encodings.h"

#include <sstream>

namespace {

constexpr std::string_view statusLine = "HTTP/1.1 200 OK\r\n";

} // namespace

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
