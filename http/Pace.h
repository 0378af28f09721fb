#pragma once

#include "http/request/Limits.h"
#include "http/request/Outcome.h"

#include <chrono>
#include <cstdint>

namespace http {

// Tells when a transfer has been silent or slow for too long. Knows no clock of its own: it is told the time.
class Pace
{
public:
    using Clock = std::chrono::steady_clock;

    // The transfer, with all the answers that lead it on, begins now.
    Pace(const Limits& limits, Clock::time_point now);

    // A sign of life: a connection is begun, the request is sent, or a byte came.
    void heard(Clock::time_point now);

    // When to ask for the verdict, of a transfer of whose body so many bytes came.
    Clock::time_point due(std::int64_t received) const;

    // None, Silent or TooSlow.
    Failure verdict(Clock::time_point now, std::int64_t received) const;

private:
    Clock::time_point silentAt() const { return m_heard + m_limits.inactivity; }
    Clock::time_point slowAt(std::int64_t received) const { return m_begin + m_limits.timeAllowed(received); }

    Limits m_limits;
    Clock::time_point m_begin;
    Clock::time_point m_heard;
};

} // namespace http
