#include "actions/QueueRun.h"

#include <condition_variable>
#include <mutex>

namespace {

// Sleeps for the whole time unless told to stop.
void rest(std::chrono::milliseconds time, const std::stop_token& stop)
{
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any wake;
    wake.wait_for(lock, stop, time, [] { return false; });
}

} // namespace

bool hasRun(const QueueEntry& entry)
{
    const qint64 status = entry.status();
    return status == QueueStatusComplete || status == QueueStatusFailed;
}

void QueueRun::execute(const std::stop_token& stop) const
{
    for (const QueueEntryPtr& entry : entries) {
        if (stop.stop_requested())
            return;
        if (!hasRun(*entry))
            process(*entry, stop);
    }
    if (!stop.stop_requested())
        finish();
}

void QueueRun::process(QueueEntry& entry, const std::stop_token& stop) const
{
    entry.setStatus(QueueStatusDownloading);
    const QString path = download(entry.package(), stop);
    if (stop.stop_requested())
        return;
    if (path.isNull()) {
        entry.setStatus(QueueStatusReady);
        handOver(entry.package());
        return;
    }
    entry.setStatus(QueueStatusInstalling);
    if (install(path, entry.package())) {
        entry.setStatus(QueueStatusComplete);
        return;
    }
    entry.setStatus(QueueStatusReady);
    rest(handOffDelay, stop);
    if (!stop.stop_requested())
        handOver(entry.package());
}
