#pragma once

#include <curl/curl.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace http {

// Watches the headers of one request's answer go by, interim answers (1xx) before it and trailers after it included.
class AnswerHead
{
public:
    enum class Verdict {
        // Go on.
        Open,
        // This line ended the head of the answer itself.
        Ended,
        // More bytes of headers than any answer needs.
        TooLong,
        // It tells lengths that contradict each other, so nobody knows where the body ends.
        Contradictory,
    };

    // The handle must outlive this.
    explicit AnswerHead(CURL* handle);

    // For each line as it comes, its end included.
    Verdict take(std::string_view line);

    bool hasEnded() const { return m_hasEnded; }
    // 0 until the head has ended.
    int status() const { return m_status; }
    // Where the answer leads on to, as it says so; none when it is the answer.
    const std::optional<std::string>& location() const { return m_location; }

private:
    Verdict end(int status);
    bool hasContradictoryLengths() const;
    std::optional<std::string> header(const char* name, std::size_t index = 0) const;

    CURL* m_handle;
    std::size_t m_length = 0;
    bool m_hasEnded = false;
    int m_status = 0;
    std::optional<std::string> m_location;
};

} // namespace http
