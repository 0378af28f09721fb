#include "http/BrokenPipeGuard.h"

#include <ctime>

namespace http {

namespace {

sigset_t brokenPipe()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    return set;
}

bool isPending()
{
    sigset_t pending;
    return sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 1;
}

} // namespace

BrokenPipeGuard::BrokenPipeGuard()
    : m_wasPending(isPending())
{
    const sigset_t set = brokenPipe();
    pthread_sigmask(SIG_BLOCK, &set, &m_before);
}

BrokenPipeGuard::~BrokenPipeGuard()
{
    const sigset_t set = brokenPipe();
    const timespec atOnce = {};
    if (!m_wasPending && isPending())
        sigtimedwait(&set, nullptr, &atOnce);
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

} // namespace http
