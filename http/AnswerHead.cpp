#include "http/AnswerHead.h"

#include "http/CurlLibrary.h"

namespace http {

namespace {

// Ordinary heads have 1 KiB; servers themselves refuse requests with more than 8 or 16.
constexpr std::size_t longestHead = std::size_t(128) * 1024;
constexpr int firstFinalStatus = 200;

bool leadsElsewhere(int status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

} // namespace

AnswerHead::AnswerHead(CURL* handle)
    : m_handle(handle)
{
}

AnswerHead::Verdict AnswerHead::take(std::string_view line)
{
    m_length += line.size();
    if (m_length > longestHead)
        return Verdict::TooLong;
    if (m_hasEnded || (line != "\r\n" && line != "\n"))
        return Verdict::Open;
    long status = 0;
    curl().easyGetInfo(m_handle, CURLINFO_RESPONSE_CODE, &status);
    return status < firstFinalStatus ? Verdict::Open : end(static_cast<int>(status));
}

AnswerHead::Verdict AnswerHead::end(int status)
{
    m_hasEnded = true;
    m_status = status;
    const auto location = leadsElsewhere(status) ? header("Location") : std::nullopt;
    // The library leaves a byte of the line's end in a value that is empty.
    if (location && location->find_first_not_of(" \t\r\n") != std::string::npos)
        m_location = location;
    return hasContradictoryLengths() ? Verdict::Contradictory : Verdict::Ended;
}

// The library believes the last one.
bool AnswerHead::hasContradictoryLengths() const
{
    const auto first = header("Content-Length");
    for (std::size_t index = 1; first; ++index) {
        const auto next = header("Content-Length", index);
        if (!next)
            return false;
        if (next != first)
            return true;
    }
    return false;
}

std::optional<std::string> AnswerHead::header(const char* name, std::size_t index) const
{
    constexpr int latestRequest = -1;
    curl_header* found = nullptr;
    if (curl().easyHeader(m_handle, name, index, CURLH_HEADER, latestRequest, &found) != CURLHE_OK)
        return std::nullopt;
    return found->value;
}

} // namespace http
