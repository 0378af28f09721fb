// The window through many cycles of refresh, search, queue, run and clear on one source: what it holds of the system is
// printed after every fiftieth. benchmarks/soak starts it, with a source a quarter of whose answers are faults.
//
// usage: vesk-soak SOURCE CYCLES
#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "http/Client.h"
#include "resources/VeskResources.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/navigation/SearchController.h"
#include "ui/screens/shell/AppDelegate.h"
#include "ui/screens/shell/RootViewController.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

constexpr int cyclesBetweenLines = 50;
constexpr int packagesInAQueue = 4;

// One source, kept nowhere.
class OneSource : public SourceStore
{
public:
    explicit OneSource(QString url)
        : m_url(std::move(url))
    {
    }

    std::optional<std::vector<StoredSource>> sources() const override
    {
        return std::vector<StoredSource>{ { m_url, QStringLiteral("Soak"), true } };
    }
    bool setSources(const std::vector<StoredSource>& /*sources*/) override { return true; }

private:
    QString m_url;
};

class NoOpener : public URLOpener
{
public:
    bool canOpenURL(const QString& /*url*/) override { return true; }
    void openURL(const QString& /*url*/) override { }
};

// Whoever says nothing for so long is given up: stalls are among the faults, and the cycles are many.
http::Request impatient(http::Request request)
{
    request.limits.inactivity = std::chrono::milliseconds(200);
    return request;
}

CatalogWorld worldOf(const QString& source)
{
    CatalogWorld world;
    world.store = std::make_unique<OneSource>(source);
    world.workers = std::make_shared<Workers>();
    world.network = std::make_unique<http::Client>();
    world.collationLocale = QStringLiteral("en");
    world.indexRequest = impatient(CatalogWorld::standardIndexRequest());
    return world;
}

// A dpkg that ends well every other time, by its own number.
QString makeDpkg(const QTemporaryDir& directory)
{
    QFile dpkg(directory.filePath(QStringLiteral("dpkg")));
    if (dpkg.open(QIODevice::WriteOnly))
        dpkg.write("#!/bin/sh\nexit $(($$ % 2))\n");
    dpkg.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return dpkg.fileName();
}

InstallerSurroundings surroundingsIn(const QTemporaryDir& directory)
{
    InstallerSurroundings surroundings;
    surroundings.dpkgPath = makeDpkg(directory);
    surroundings.archiveDirectories = { directory.filePath(QStringLiteral("archives")) };
    surroundings.urlOpener = std::make_unique<NoOpener>();
    surroundings.archiveRequest = impatient(InstallerSurroundings::standardRequest());
    surroundings.handOffDelay = std::chrono::milliseconds(1);
    return surroundings;
}

qsizetype entriesOf(const QString& directory)
{
    return QDir(directory).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

QList<QByteArray> wordsOf(const QString& file)
{
    QFile opened(file);
    const QByteArray text = opened.open(QIODevice::ReadOnly) ? opened.readAll().simplified() : QByteArray();
    return text.isEmpty() ? QList<QByteArray>() : text.split(' ');
}

// In MiB.
int memory()
{
    const QList<QByteArray> words = wordsOf(QStringLiteral("/proc/self/status"));
    return words.value(words.indexOf("VmRSS:") + 1).toInt() / 1024;
}

// Of all threads.
qsizetype children()
{
    qsizetype count = 0;
    const QString tasks = QStringLiteral("/proc/self/task");
    for (const QString& task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        count += wordsOf(tasks + u'/' + task + QStringLiteral("/children")).size();
    return count;
}

void printState(int cycle)
{
    QTextStream(stdout) << cycle << " cycles: " << memory() << " MiB, " << entriesOf(QStringLiteral("/proc/self/fd"))
                        << " descriptors, " << entriesOf(QStringLiteral("/proc/self/task")) << " threads, "
                        << children() << " children" << Qt::endl;
}

class Soak
{
public:
    explicit Soak(const QString& source)
        : m_manager(worldOf(source))
        , m_installer(surroundingsIn(m_directory))
        , m_delegate(m_manager, m_installer)
    {
        m_delegate.didFinishLaunchingWithOptions();
    }

    void runCycle(int cycle)
    {
        m_delegate.window()->selectTab(cycle % 5);
        QEventLoop loop;
        m_manager.refreshAllWithCompletion([&loop] { loop.quit(); });
        loop.exec();
        search(QString::number(cycle % 10));
        for (std::size_t number = 0; number < packagesInAQueue && number < m_manager.packages().size(); ++number)
            m_installer.enqueuePackage(m_manager.packages().all()[number], QueueActionInstall);
        m_installer.executeQueueWithCompletion([&loop] { loop.quit(); });
        loop.exec();
        m_installer.clearQueue();
        search(QString());
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QDir(m_directory.filePath(QStringLiteral("archives"))).removeRecursively();
    }

private:
    void search(const QString& query)
    {
        constexpr int searchTab = 3;
        m_delegate.window()->selectTab(searchTab);
        auto* const tabs = static_cast<RootViewController*>(m_delegate.window()->rootViewController());
        auto* const stack = static_cast<kit::NavigationController*>(tabs->viewControllers()[searchTab]);
        stack->topViewController()->navigationItem()->searchController()->searchBar()->setText(query);
        QCoreApplication::processEvents();
    }

    QTemporaryDir m_directory;
    RepoManager m_manager;
    PackageInstaller m_installer;
    AppDelegate m_delegate;
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    if (argc != 3)
        return 64;
    initialiseResources();
    Soak soak(QString::fromLocal8Bit(argv[1]));
    const int cycles = QByteArray(argv[2]).toInt();
    for (int cycle = 1; cycle <= cycles; ++cycle) {
        soak.runCycle(cycle);
        if (cycle % cyclesBetweenLines == 0)
            printState(cycle);
    }
    return 0;
}
