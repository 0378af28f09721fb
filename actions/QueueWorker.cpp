#include "actions/QueueWorker.h"

#include <system_error>
#include <utility>

bool QueueWorker::start(QueueRun run)
{
    run.install = [this, install = std::move(run.install)](const QString& path, const VeskPackagePtr& package) {
        setPhase(Phase::WaitingForChild);
        const bool isInstalled = install(path, package);
        setPhase(Phase::Busy);
        return isInstalled;
    };
    setPhase(Phase::Busy);
    try {
        m_thread = std::jthread([this, run = std::move(run)](const std::stop_token& stop) {
            run.execute(stop);
            setPhase(Phase::Idle);
        });
    } catch (const std::system_error&) {
        setPhase(Phase::Idle);
        return false;
    }
    return true;
}

void QueueWorker::join()
{
    if (m_thread.joinable())
        m_thread.join();
}

void QueueWorker::abandon()
{
    m_thread.request_stop();
    while (m_phase == Phase::Busy)
        m_phase.wait(Phase::Busy);
}

void QueueWorker::setPhase(Phase phase)
{
    m_phase = phase;
    m_phase.notify_all();
}
