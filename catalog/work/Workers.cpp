#include "catalog/work/Workers.h"

#include <algorithm>
#include <utility>

std::size_t Workers::standardCount()
{
    return std::max(2U, std::thread::hardware_concurrency());
}

Workers::Workers(std::size_t count)
{
    for (std::size_t number = 0; number < std::max<std::size_t>(1, count); ++number)
        m_threads.emplace_back([this](const std::stop_token& stop) { work(stop); });
}

// A task that is dropped may let go of something that posts in turn, so the queue is closed and the tasks go last.
Workers::~Workers()
{
    std::deque<Task> dropped;
    {
        const std::lock_guard lock(m_mutex);
        m_isClosed = true;
        dropped.swap(m_tasks);
        for (std::jthread& thread : m_threads)
            thread.request_stop();
    }
    m_hasChanged.notify_all();
    for (std::jthread& thread : m_threads)
        thread.join();
}

void Workers::post(Task task)
{
    if (enqueue(task))
        m_hasChanged.notify_one();
}

void Workers::postAtEnd(Task task)
{
    enqueue(task);
}

bool Workers::enqueue(Task& task)
{
    const std::lock_guard lock(m_mutex);
    if (!m_isClosed)
        m_tasks.push_back(std::move(task));
    return !m_isClosed;
}

void Workers::work(const std::stop_token& stop)
{
    while (const Task task = next(stop))
        task();
}

// Empty when it is time to end.
Workers::Task Workers::next(const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    m_hasChanged.wait(lock, [this, &stop] { return stop.stop_requested() || !m_tasks.empty(); });
    if (stop.stop_requested())
        return {};
    Task task = std::move(m_tasks.front());
    m_tasks.pop_front();
    return task;
}
