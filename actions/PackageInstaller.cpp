#include "actions/PackageInstaller.h"

#include "actions/HandOff.h"
#include "actions/PackageDownload.h"
#include "actions/process/ChildProcess.h"

#include <QCoreApplication>

#include <algorithm>
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
    static auto* const installer = [] {
        qAddPostRoutine([] { sharedInstaller().m_worker.abandon(); });
        return new PackageInstaller(InstallerSurroundings::system());
    }();
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
    // Compared by address: the caller may well pass an element of the queue itself, which moves while it is removed.
    std::erase_if(m_queue, [removed = entry.get()](const QueueEntryPtr& other) { return other.get() == removed; });
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
    m_completion = std::move(completion);
    m_snapshot = m_queue;
    // Without a thread the run is over at once, with its entries as they were.
    if (!m_worker.start(runOf(m_snapshot)))
        postToMainThread([this] { finishRun(); });
}

QueueRun PackageInstaller::runOf(const std::vector<QueueEntryPtr>& entries)
{
    // For one run: what the administrator refuses stays refused until its end.
    const auto administrator = std::make_shared<AdministratorInstall>(m_surroundings.administrator);
    // Of the archive downloaded last. One is enough: each is installed before the next is downloaded.
    const auto digest = std::make_shared<QByteArray>();
    const auto download = [this, digest](const VeskPackagePtr& package, const std::stop_token& stop) {
        PackageDownload archive(m_surroundings.archiveDirectories, m_surroundings.archiveRequest);
        QString path = archive.download(package, stop);
        *digest = archive.digest();
        return path;
    };
    const auto install = [this, administrator, digest](const QString& path, const VeskPackagePtr& package) {
        return m_surroundings.administrator.arePresent() ? administrator->install(path, *digest)
                                                         : installWithDPKG(path, package);
    };
    const auto handOver = [this](const VeskPackagePtr& package) {
        postToMainThread([this, package] { openPackageInPackageManager(package); });
    };
    return {
        .entries = entries,
        .download = download,
        .install = install,
        .handOver = handOver,
        .finish = [this] { postToMainThread([this] { finishRun(); }); },
        .handOffDelay = m_surroundings.handOffDelay,
    };
}

void PackageInstaller::postToMainThread(const std::function<void()>& task)
{
    QMetaObject::invokeMethod(&m_mainThread, task, Qt::QueuedConnection);
}

void PackageInstaller::finishRun()
{
    m_worker.join();
    m_snapshot.clear();
    m_isInstalling = false;
    // The completion may start the next run, and may destroy this installer.
    const auto completion = std::exchange(m_completion, nullptr);
    if (completion)
        completion();
}

QString PackageInstaller::downloadPackage(const VeskPackagePtr& package) const
{
    return PackageDownload(m_surroundings.archiveDirectories, m_surroundings.archiveRequest).download(package, {});
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

void PackageInstaller::openPackageInPackageManager(const VeskPackagePtr& package) const
{
    if (package)
        openFirstURL(handOffURLs(*package), *m_surroundings.urlOpener);
}

void PackageInstaller::openRepositoryInPackageManager(const VeskRepositoryPtr& repository) const
{
    if (repository)
        openFirstURL(handOffURLs(*repository), *m_surroundings.urlOpener);
}
