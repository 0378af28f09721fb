#include "actions/process/SignalDispositions.h"

#include <array>
#include <csignal>

namespace {

// Written once, before there is a second thread.
std::array<bool, NSIG> ignoredAtStart = {};
bool isNoted = false;

bool isIgnored(int number)
{
    struct sigaction action = {};
    return sigaction(number, nullptr, &action) == 0 && (action.sa_flags & SA_SIGINFO) == 0
        && action.sa_handler == SIG_IGN;
}

void handleByDoingNothing(int number)
{
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}

} // namespace

void SignalDispositions::noteAtStart()
{
    for (int number = 1; number < NSIG; ++number)
        ignoredAtStart.at(static_cast<std::size_t>(number)) = isIgnored(number);
    isNoted = true;
}

void SignalDispositions::restoreForChildren()
{
    for (int number = 1; isNoted && number < NSIG; ++number)
        if (!ignoredAtStart.at(static_cast<std::size_t>(number)) && isIgnored(number))
            handleByDoingNothing(number);
}
