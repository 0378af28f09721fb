#pragma once

#include "catalog/work/Workers.h"

#include <memory>

// Tasks that run on workers one after the other, in the order in which they are posted and never two at once: what they
// work on needs no lock. Each waits its turn among the tasks of all others, so that strands share the workers fairly.
// Those that have not begun still run when the strand is gone, as long as the workers are there. A task that holds the
// strand's owner should do so weakly, so that dropped tasks keep nothing alive.
class Strand
{
public:
    // The workers must outlive every call of post().
    explicit Strand(Workers& workers);

    // Safe on any thread.
    void post(Workers::Task task);

private:
    class Queue;
    std::shared_ptr<Queue> m_queue;
};
