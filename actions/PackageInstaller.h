#pragma once

#include "actions/InstallerSurroundings.h"
#include "actions/QueueEntry.h"
#include "actions/QueueWorker.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

// Owns the queue of requested package actions and runs it: downloads, dpkg in a child process, hand-off of what fails.
// Main thread, except downloadPackage, runCommand, installWithDPKG and uninstallPackage, which block their caller and
// work on any. No failure is reported in words: an operation answers false or null, and an entry that
// failed ends at QueueStatusReady; nothing ever sets QueueStatusFailed.
class PackageInstaller
{
public:
    // The one instance of the program, made on first use and never destroyed; safe from any thread.
    // When the application ends during a run, a download is given up, and a dpkg that was started goes on by itself.
    static PackageInstaller& sharedInstaller();

    explicit PackageInstaller(InstallerSurroundings surroundings);
    PackageInstaller(const PackageInstaller&) = delete;
    PackageInstaller& operator=(const PackageInstaller&) = delete;
    // Stops a run in progress: a download is given up at once, a dpkg that was started is waited for, and neither
    // hand-offs nor the completion come any more.
    ~PackageInstaller();

    // The live list, in the order in which the entries were asked for.
    std::vector<QueueEntryPtr>& queue() { return m_queue; }
    bool isInstalling() const { return m_isInstalling; }

    // Does nothing for a null package, nor when an entry with the same identifier and action is there, whatever its
    // status.
    void enqueuePackage(const VeskPackagePtr& package, qint64 action);
    void removeEntry(const QueueEntryPtr& entry);
    void clearQueue();
    // Removes the entries at QueueStatusComplete and QueueStatusFailed.
    void clearCompleted();
    quint64 completedCount() const;
    quint64 failedCount() const;
    // "In Queue" for any code outside 1 to 5.
    static QString statusDisplayName(qint64 status);

    // Runs the entries that the queue holds now, one after the other, on a worker. The completion may be empty; it
    // comes on the main thread, after isInstalling has become false. During a run a further call is dropped with its
    // completion.
    void executeQueueWithCompletion(std::function<void()> completion);

    // The path of the downloaded archive, or null.
    QString downloadPackage(const VeskPackagePtr& package) const;
    // Program path and arguments; true exactly when the program exits with code 0.
    bool runCommand(const QStringList& arguments);
    bool installWithDPKG(const QString& path, const VeskPackagePtr& package);
    // Hands the package over, on the calling thread, when dpkg cannot remove it.
    bool uninstallPackage(const VeskPackagePtr& package);

    // Open the first URL that has a handler; nothing at all when none has.
    void openPackageInPackageManager(const VeskPackagePtr& package) const;
    void openRepositoryInPackageManager(const VeskRepositoryPtr& repository) const;

private:
    QueueRun runOf(const std::vector<QueueEntryPtr>& entries);
    void postToMainThread(const std::function<void()>& task);
    void finishRun();

    InstallerSurroundings m_surroundings;
    std::vector<QueueEntryPtr> m_queue;
    bool m_isInstalling = false;
    // What the run in progress holds: kept here too, so that the worker is never the last to let go of a record.
    std::vector<QueueEntryPtr> m_snapshot;
    std::function<void()> m_completion;
    // Lives on the main thread; what the worker posts goes away with it.
    QObject m_mainThread;
    // Last: it is gone before what it uses.
    QueueWorker m_worker;
};
