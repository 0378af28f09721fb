#include "catalog/work/Strand.h"

#include <utility>

class Strand::Queue : public std::enable_shared_from_this<Queue>
{
public:
    explicit Queue(Workers& workers)
        : m_workers(workers)
    {
    }

    void post(Workers::Task task)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_tasks.push_back(std::move(task));
            if (std::exchange(m_isUnderWay, true))
                return;
        }
        m_workers.post(turn());
    }

private:
    Workers::Task turn()
    {
        return [self = shared_from_this()] { self->runFirst(); };
    }

    void runFirst()
    {
        takeFirst()();
        {
            const std::lock_guard lock(m_mutex);
            m_isUnderWay = !m_tasks.empty();
            if (!m_isUnderWay)
                return;
        }
        m_workers.postAtEnd(turn());
    }

    Workers::Task takeFirst()
    {
        const std::lock_guard lock(m_mutex);
        Workers::Task task = std::move(m_tasks.front());
        m_tasks.pop_front();
        return task;
    }

    Workers& m_workers;
    std::mutex m_mutex;
    std::deque<Workers::Task> m_tasks;
    // Whether one of the tasks runs or waits for a worker.
    bool m_isUnderWay = false;
};

Strand::Strand(Workers& workers)
    : m_queue(std::make_shared<Queue>(workers))
{
}

void Strand::post(Workers::Task task)
{
    m_queue->post(std::move(task));
}
