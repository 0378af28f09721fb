#pragma once

#include "actions/QueueEntry.h"

#include <QString>

#include <chrono>
#include <functional>
#include <stop_token>
#include <vector>

// Whether a run passes the entry over: it is complete or has failed.
bool hasRun(const QueueEntry& entry);

// One run over a snapshot of the queue: what the worker does, told in terms of the steps it is given.
struct QueueRun
{
    std::vector<QueueEntryPtr> entries;
    // The path of the archive, or null.
    std::function<QString(const VeskPackagePtr&, const std::stop_token&)> download;
    std::function<bool(const QString& path, const VeskPackagePtr&)> install;
    // These two post to the main thread and return.
    std::function<void(const VeskPackagePtr&)> handOver;
    std::function<void()> finish;
    std::chrono::milliseconds handOffDelay;

    // Processes the entries in their order and finishes. All are downloaded and installed, those that ask for an
    // uninstall too. Once told to stop it begins no further step and does not finish.
    void execute(const std::stop_token& stop) const;

private:
    void process(QueueEntry& entry, const std::stop_token& stop) const;
};
