#include "PackageInstaller.h"

#include "ChildProcess.h"
#include "HandOff.h"
#include "PackageDownload.h"
#include "QueueRun.h"

#include <QCoreApplication>

#include <algorithm>
#include <system_error>
#include <utility>

namespace {

// A package without an identifier is like no other.
bool sameIdentifier(const QueueEntryPtr& entry, const VeskPackagePtr& package)
{
    const QString identifier = package->packageID();
    return entry->package() && !identifier.isNull() && entry->package()->packageID() == identifier;
}

quint64 countOf(const std::vector<QueueEntryPtr>& queue, qint64 status)
{
    const auto has = [status](const QueueEntryPtr& entry) { return entry->status() == status; };
    return static_cast<quint64>(std::ranges::count_if(queue, has));
}

} // namespace

PackageInstaller& PackageInstaller::sharedInstaller()
{
    static auto* const installer = new PackageInstaller(InstallerSurroundings::system());
    return *installer;
}

PackageInstaller::PackageInstaller(InstallerSurroundings surroundings)
    : m_surroundings(std::move(surroundings))
{
    if (QCoreApplication::instance())
        m_mainThread.moveToThread(QCoreApplication::instance()->thread());
}

PackageInstaller::~PackageInstaller() = default;

void PackageInstaller::enqueuePackage(const VeskPackagePtr& package, qint64 action)
{
    if (!package)
        return;
    const auto isDuplicate
        = [&](const QueueEntryPtr& entry) { return sameIdentifier(entry, package) && entry->action() == action; };
    if (std::ranges::none_of(m_queue, isDuplicate))
        m_queue.push_back(QueueEntry::entryWithPackage(package, action));
}

void PackageInstaller::removeEntry(const QueueEntryPtr& entry)
{
    // The caller may well pass an element of the queue itself.
    const QueueEntryPtr removed = entry;
    std::erase(m_queue, removed);
}

void PackageInstaller::clearQueue()
{
    m_queue.clear();
}

void PackageInstaller::clearCompleted()
{
    std::erase_if(m_queue, [](const QueueEntryPtr& entry) { return hasRun(*entry); });
}

quint64 PackageInstaller::completedCount() const
{
    return countOf(m_queue, QueueStatusComplete);
}

quint64 PackageInstaller::failedCount() const
{
    return countOf(m_queue, QueueStatusFailed);
}

QString PackageInstaller::statusDisplayName(qint64 status)
{
    switch (status) {
    case QueueStatusDownloading:
        return QStringLiteral("Downloading");
    case QueueStatusInstalling:
        return QStringLiteral("Installing");
    case QueueStatusReady:
        return QStringLiteral("Ready");
    case QueueStatusComplete:
        return QStringLiteral("Complete");
    case QueueStatusFailed:
        return QStringLiteral("Failed");
    default:
        return QStringLiteral("In Queue");
    }
}

void PackageInstaller::executeQueueWithCompletion(std::function<void()> completion)
{
    if (m_isInstalling)
        return;
    m_isInstalling = true;
    const auto finish = [this, completion = std::move(completion)] { finishRun(completion); };
    const auto post = [this](std::function<void()> task) {
        QMetaObject::invokeMethod(&m_mainThread, std::move(task), Qt::QueuedConnection);
    };
    QueueRun run{
        .entries = m_queue,
        .download =
            [this](const VeskPackagePtr& package, const std::stop_token& stop) {
                return PackageDownload(m_surroundings.temporaryDirectory, m_surroundings.limits)
                    .download(package, stop);
            },
        .install
        = [this](const QString& path, const VeskPackagePtr& package) { return installWithDPKG(path, package); },
        .handOver
        = [this, post](
              const VeskPackagePtr& package) { post([this, package] { openPackageInPackageManager(package); }); },
        .finish = [post, finish] { post(finish); },
        .handOffDelay = m_surroundings.handOffDelay,
    };
    try {
        m_worker = std::jthread([run = std::move(run)](const std::stop_token& stop) { run.execute(stop); });
    } catch (const std::system_error&) {
        // No thread to be had: the run is over with its entries as they were.
        post(finish);
    }
}

void PackageInstaller::finishRun(const std::function<void()>& completion)
{
    m_isInstalling = false;
    if (completion)
        completion();
}

QString PackageInstaller::downloadPackage(const VeskPackagePtr& package)
{
    return PackageDownload(m_surroundings.temporaryDirectory, m_surroundings.limits).download(package, {});
}

bool PackageInstaller::runCommand(const QStringList& arguments)
{
    return runChildProcess(arguments);
}

bool PackageInstaller::installWithDPKG(const QString& path, const VeskPackagePtr& /*package*/)
{
    if (!isExecutableFile(m_surroundings.dpkgPath))
        return false;
    return runCommand({ m_surroundings.dpkgPath, QStringLiteral("-i"), path });
}

bool PackageInstaller::uninstallPackage(const VeskPackagePtr& package)
{
    if (!package)
        return false;
    if (isExecutableFile(m_surroundings.dpkgPath)
        && runCommand({ m_surroundings.dpkgPath, QStringLiteral("-r"), package->packageID() }))
        return true;
    openPackageInPackageManager(package);
    return false;
}

void PackageInstaller::openPackageInPackageManager(const VeskPackagePtr& package)
{
    if (package)
        openFirstURL(handOffURLs(*package), *m_surroundings.urlOpener);
}

void PackageInstaller::openRepositoryInPackageManager(const VeskRepositoryPtr& repository)
{
    if (repository)
        openFirstURL(handOffURLs(*repository), *m_surroundings.urlOpener);
}
