#pragma once

#include <condition_variable>
#include <mutex>

// Counts arrivals, and lets others wait for a number of them.
class Gate
{
public:
    void arrive()
    {
        {
            const std::lock_guard lock(m_mutex);
            ++m_arrived;
        }
        m_changed.notify_all();
    }

    void waitFor(int arrivals)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_arrived >= arrivals; });
    }

    int arrived()
    {
        const std::lock_guard lock(m_mutex);
        return m_arrived;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_arrived = 0;
};
