#pragma once

#include <csignal>

namespace http {

// While it lives, a write to a connection that the other side has closed does not end the process: SIGPIPE is held back
// on this thread and dropped at the end. What the process does about SIGPIPE is left alone, for its children inherit
// that.
class BrokenPipeGuard
{
public:
    BrokenPipeGuard();
    ~BrokenPipeGuard();
    BrokenPipeGuard(const BrokenPipeGuard&) = delete;
    BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;

private:
    sigset_t m_before = {};
    bool m_wasPending = false;
};

} // namespace http
