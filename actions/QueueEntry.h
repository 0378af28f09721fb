#pragma once

#include "catalog/records/VeskPackage.h"

#include <QtGlobal>

#include <atomic>
#include <memory>
#include <utility>

// What an entry asks for. A reinstall is an install.
enum QueueAction : qint64 {
    QueueActionInstall = 0,
    QueueActionUninstall = 1,
    QueueActionUpgrade = 2,
};

// How far an entry has come. Ready: its download or its installation failed and it was handed to another package
// manager. Failed is counted and coloured by the screens, yet no step of a run ever sets it.
enum QueueStatus : qint64 {
    QueueStatusQueued = 0,
    QueueStatusDownloading = 1,
    QueueStatusInstalling = 2,
    QueueStatusReady = 3,
    QueueStatusComplete = 4,
    QueueStatusFailed = 5,
};

class QueueEntry;
using QueueEntryPtr = std::shared_ptr<QueueEntry>;

// One requested action on one package; two entries are the same only when they are the same object.
// Made and read on the main thread. The status alone is also written by the worker of a run.
// Action and status are codes, so that a screen can meet one it does not know.
class QueueEntry
{
public:
    // An entry with status 0.
    static QueueEntryPtr entryWithPackage(const VeskPackagePtr& package, qint64 action)
    {
        return std::make_shared<QueueEntry>(package, action);
    }

    QueueEntry(VeskPackagePtr package, qint64 action)
        : m_package(std::move(package))
        , m_action(action)
    {
    }

    const VeskPackagePtr& package() const { return m_package; }
    qint64 action() const { return m_action; }
    qint64 status() const { return m_status.load(std::memory_order_acquire); }

    void setPackage(const VeskPackagePtr& package) { m_package = package; }
    void setAction(qint64 action) { m_action = action; }
    void setStatus(qint64 status) { m_status.store(status, std::memory_order_release); }

private:
    VeskPackagePtr m_package;
    qint64 m_action = QueueActionInstall;
    std::atomic<qint64> m_status = QueueStatusQueued;
};
