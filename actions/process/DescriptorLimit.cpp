#include "actions/process/DescriptorLimit.h"

#include <mutex>
#include <optional>
#include <sys/resource.h>

namespace {

// Written once, before there is a second thread.
std::optional<rlim_t> limitAtStart;

std::mutex mutex;
int childrenBeingStarted = 0;

void set(rlim_t count)
{
    rlimit limit = {};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return;
    limit.rlim_cur = count;
    setrlimit(RLIMIT_NOFILE, &limit);
}

} // namespace

void DescriptorLimit::raiseAtStart()
{
    rlimit limit = {};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return;
    limitAtStart = limit.rlim_cur;
    set(limit.rlim_max);
}

DescriptorLimit::OfChildren::OfChildren()
{
    const std::lock_guard lock(mutex);
    if (++childrenBeingStarted == 1 && limitAtStart)
        set(*limitAtStart);
}

DescriptorLimit::OfChildren::~OfChildren()
{
    const std::lock_guard lock(mutex);
    rlimit limit = {};
    if (--childrenBeingStarted == 0 && limitAtStart && getrlimit(RLIMIT_NOFILE, &limit) == 0)
        set(limit.rlim_max);
}
