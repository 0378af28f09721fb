#include "http/Pace.h"

#include <algorithm>

namespace http {

Pace::Pace(const Limits& limits, Clock::time_point now)
    : m_limits(limits)
    , m_begin(now)
    , m_heard(now)
{
}

void Pace::heard(Clock::time_point now)
{
    m_heard = std::max(m_heard, now);
}

Pace::Clock::time_point Pace::due(std::int64_t received) const
{
    return std::min(silentAt(), slowAt(received));
}

Failure Pace::verdict(Clock::time_point now, std::int64_t received) const
{
    if (now >= slowAt(received))
        return Failure::TooSlow;
    return now >= silentAt() ? Failure::Silent : Failure::None;
}

} // namespace http
