#include "actions/QueueWorker.h"

#include <gtest/gtest.h>

#include <future>

namespace {

QueueEntryPtr entryOf(const QString& identifier)
{
    auto package = std::make_shared<VeskPackage>();
    package->setPackageID(identifier);
    return QueueEntry::entryWithPackage(package, QueueActionInstall);
}

// Waits until the run is told to stop.
void awaitStop(const std::stop_token& stop)
{
    std::promise<void> told;
    const std::stop_callback onStop(stop, [&told] { told.set_value(); });
    told.get_future().wait();
}

// A run of the packages whose steps do as they are told.
QueueRun runOf(const QStringList& identifiers)
{
    QueueRun run;
    for (const QString& identifier : identifiers)
        run.entries.push_back(entryOf(identifier));
    run.download = [](const VeskPackagePtr& package, const std::stop_token&) { return package->packageID(); };
    run.install = [](const QString&, const VeskPackagePtr&) { return true; };
    run.handOver = [](const VeskPackagePtr&) {};
    run.finish = [] {};
    return run;
}

} // namespace

TEST(QueueWorker, waitsAtTheEndForADownloadThatFollowsAnInstallation)
{
    std::promise<void> hasBegun;
    std::atomic<bool> isOver = false;
    QueueRun run = runOf({ QStringLiteral("one"), QStringLiteral("two") });
    run.download = [&](const VeskPackagePtr& package, const std::stop_token& stop) {
        if (package->packageID() == QLatin1String("one"))
            return QStringLiteral("one.deb");
        hasBegun.set_value();
        awaitStop(stop);
        // Long enough for whoever does not wait to be gone.
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        isOver = true;
        return QString();
    };
    QueueWorker worker;
    ASSERT_TRUE(worker.start(std::move(run)));
    hasBegun.get_future().wait();
    worker.abandon();
    EXPECT_TRUE(isOver);
    worker.join();
}

TEST(QueueWorker, doesNotWaitAtTheEndForAChildProcess)
{
    std::promise<void> hasBegun;
    std::promise<void> mayEnd;
    QueueRun run = runOf({ QStringLiteral("one") });
    run.install = [&](const QString&, const VeskPackagePtr&) {
        hasBegun.set_value();
        mayEnd.get_future().wait();
        return true;
    };
    QueueWorker worker;
    ASSERT_TRUE(worker.start(std::move(run)));
    hasBegun.get_future().wait();
    worker.abandon();
    mayEnd.set_value();
    worker.join();
}
