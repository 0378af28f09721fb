#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

// The threads on which the catalog works beside the main thread: as many as there are processors, for all sources
// together. Tasks start in the order in which they are posted. A task is short, a few milliseconds, and waits for
// nothing: neither for another task nor for the network. What has to go on later posts itself again.
class Workers
{
public:
    using Task = std::function<void()>;

    // The processors of this machine, at least two, so that one long task does not hold up all the others.
    static std::size_t standardCount();

    // At least one.
    explicit Workers(std::size_t count = standardCount());
    // Waits for the tasks that run; those that have not begun are dropped. Never on one of the workers.
    ~Workers();
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    std::size_t count() const { return m_threads.size(); }

    // Safe on any thread.
    void post(Task task);
    // The same for a task, as the last thing that it does. No thread is woken for it: the task's own looks for the next
    // one right then.
    void postAtEnd(Task task);

private:
    bool enqueue(Task& task);
    void work(const std::stop_token& stop);
    Task next(const std::stop_token& stop);

    std::mutex m_mutex;
    std::condition_variable m_hasChanged;
    std::deque<Task> m_tasks;
    bool m_isClosed = false;
    std::vector<std::jthread> m_threads;
};
