#pragma once

#include "actions/QueueRun.h"

#include <atomic>
#include <thread>

// The one background thread of the queue. Used on the main thread; destroying it stops its run and waits for it.
class QueueWorker
{
public:
    // Starts the run. False when the system has no thread to give. The last run must have been joined.
    bool start(QueueRun run);
    // Waits until the run has let go of everything it holds; brief once its last step is done.
    void join();
    // For the end of the program: stops the run and waits for it, though not for a child process that it waits for.
    void abandon();

private:
    enum class Phase { Idle, Busy, WaitingForChild };

    void setPhase(Phase phase);

    std::atomic<Phase> m_phase = Phase::Idle;
    std::jthread m_thread;
};
