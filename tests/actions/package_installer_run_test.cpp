// The queue run from end to end, with a server and a dpkg of the test's own.
#include "tests/actions/QueueExecution.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <limits>
#include <pthread.h>
#include <thread>

namespace {

// While it lives, no thread can be started: each is to have a larger stack than there is memory to address.
class NoMoreThreads
{
public:
    NoMoreThreads()
    {
        EXPECT_EQ(pthread_getattr_default_np(&m_before), 0);
        pthread_attr_t larger = {};
        EXPECT_EQ(pthread_getattr_default_np(&larger), 0);
        EXPECT_EQ(pthread_attr_setstacksize(&larger, std::numeric_limits<std::size_t>::max() / 2), 0);
        EXPECT_EQ(pthread_setattr_default_np(&larger), 0);
        pthread_attr_destroy(&larger);
    }
    ~NoMoreThreads()
    {
        pthread_setattr_default_np(&m_before);
        pthread_attr_destroy(&m_before);
    }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;

private:
    pthread_attr_t m_before = {};
};

} // namespace

TEST_F(QueueExecution, downloadsAndInstallsAnEntry)
{
    const QueueEntryPtr entry = enqueueOffered(one);
    run();
    EXPECT_EQ(entry->status(), QueueStatusComplete);
    EXPECT_EQ(dpkgCalls(), QStringList{ QStringLiteral("-i ") + archive(one) });
    EXPECT_EQ(QFileInfo(archive(one)).size(), 1500);
    EXPECT_TRUE(opener.opened.empty());
    EXPECT_EQ(installer->completedCount(), 1U);
    EXPECT_EQ(installer->failedCount(), 0U);
}

TEST_F(QueueExecution, isInstallingFromTheCallUntilJustBeforeTheCompletion)
{
    enqueueOffered(one);
    EXPECT_FALSE(installer->isInstalling());
    bool duringCompletion = true;
    installer->executeQueueWithCompletion([&] {
        duringCompletion = installer->isInstalling();
        ++completions;
    });
    EXPECT_TRUE(installer->isInstalling());
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_FALSE(duringCompletion);
}

TEST_F(QueueExecution, callsTheCompletionOnTheMainThreadInALaterTurn)
{
    QThread* thread = nullptr;
    installer->executeQueueWithCompletion([&] {
        thread = QThread::currentThread();
        ++completions;
    });
    EXPECT_EQ(completions, 0);
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_EQ(thread, QCoreApplication::instance()->thread());
}

TEST_F(QueueExecution, callsTheCompletionOnTheMainThreadWhereverItWasMade)
{
    std::thread([this] {
        installer = std::make_unique<PackageInstaller>(
            InstallerSurroundings{ .urlOpener = std::make_unique<RecordingOpener>(opener) });
    }).join();
    run();
}

TEST_F(QueueExecution, letsGoOfTheCompletionOnTheMainThread)
{
    QThread* thread = nullptr;
    {
        const auto note = [&](const int*) { thread = QThread::currentThread(); };
        const std::shared_ptr<int> held(new int, [note](int* value) {
            note(value);
            delete value;
        });
        installer->executeQueueWithCompletion([this, held] { ++completions; });
    }
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_EQ(thread, QCoreApplication::instance()->thread());
}

TEST_F(QueueExecution, runsWithoutACompletion)
{
    const QueueEntryPtr entry = enqueueOffered(one);
    installer->executeQueueWithCompletion(nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !installer->isInstalling(); }, longestWait));
    EXPECT_EQ(entry->status(), QueueStatusComplete);
}

TEST_F(QueueExecution, runsOnceWhenCalledTwiceAndDropsTheSecondCompletion)
{
    enqueueOffered(one);
    bool secondCame = false;
    start();
    installer->executeQueueWithCompletion([&] { secondCame = true; });
    ASSERT_TRUE(waitForCompletions(1));
    run();
    EXPECT_FALSE(secondCame);
    EXPECT_EQ(dpkgCalls().size(), 1);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(QueueExecution, finishesAQueueOfCompleteEntriesWithoutTouchingThem)
{
    enqueueOffered(one)->setStatus(QueueStatusComplete);
    enqueueOffered(two)->setStatus(QueueStatusFailed);
    run();
    EXPECT_TRUE(server.requests().empty());
    EXPECT_TRUE(dpkgCalls().isEmpty());
}

TEST_F(QueueExecution, isOverWithItsEntriesAsTheyWereWhenNoThreadCanBeStartedAndRunsThemTheNextTime)
{
    const QueueEntryPtr entry = enqueueOffered(one);
    const qint64 before = entry->status();
    {
        const NoMoreThreads noMoreThreads;
        start();
        EXPECT_EQ(completions, 0);
        EXPECT_TRUE(installer->isInstalling());
    }
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_FALSE(installer->isInstalling());
    EXPECT_EQ(entry->status(), before);
    EXPECT_TRUE(server.requests().empty());
    run();
    EXPECT_EQ(entry->status(), QueueStatusComplete);
}

TEST_F(QueueExecution, runsEntriesStrictlyInTheOrderOfTheQueue)
{
    for (const QString& identifier : { three, one, two })
        enqueueOffered(identifier);
    run();
    EXPECT_EQ(dpkgCalls(),
        (QStringList{ QStringLiteral("-i ") + archive(three), QStringLiteral("-i ") + archive(one),
            QStringLiteral("-i ") + archive(two) }));
    EXPECT_EQ(installer->completedCount(), 3U);
}

TEST_F(QueueExecution, downloadsAndInstallsAnUninstallEntryLikeAnyOther)
{
    const QueueEntryPtr entry = enqueueOffered(one, QueueActionUninstall);
    run();
    EXPECT_EQ(entry->status(), QueueStatusComplete);
    EXPECT_EQ(dpkgCalls(), QStringList{ QStringLiteral("-i ") + archive(one) });
}

TEST_F(QueueExecution, handsOverWhatCannotBeDownloaded)
{
    const QueueEntryPtr entry = enqueueMissing(one);
    run();
    EXPECT_EQ(entry->status(), QueueStatusReady);
    EXPECT_TRUE(dpkgCalls().isEmpty());
    EXPECT_EQ(opener.openedURLs(), QStringList{ handOff(one) });
    EXPECT_EQ(opener.opened[0].thread, QCoreApplication::instance()->thread());
    EXPECT_EQ(installer->completedCount(), 0U);
    EXPECT_EQ(installer->failedCount(), 0U);
}

TEST_F(QueueExecution, handsOverWhatDpkgRefuses)
{
    writeDpkg(QStringLiteral("exit 1"));
    const QueueEntryPtr entry = enqueueOffered(one);
    run();
    EXPECT_EQ(entry->status(), QueueStatusReady);
    EXPECT_EQ(dpkgCalls().size(), 1);
    EXPECT_EQ(opener.openedURLs(), QStringList{ handOff(one) });
    EXPECT_EQ(opener.opened[0].thread, QCoreApplication::instance()->thread());
    EXPECT_EQ(installer->failedCount(), 0U);
}

TEST_F(QueueExecution, handsOverWhenDpkgIsKilledMissingOrNotExecutable)
{
    writeDpkg(QStringLiteral("kill -KILL $$"));
    enqueueOffered(one);
    run();
    ASSERT_TRUE(QFile::setPermissions(path(QStringLiteral("dpkg")), QFile::ReadOwner));
    run();
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("dpkg"))));
    run();
    EXPECT_EQ(installer->queue()[0]->status(), QueueStatusReady);
    EXPECT_EQ(opener.openedURLs(), (QStringList{ handOff(one), handOff(one), handOff(one) }));
    EXPECT_EQ(dpkgCalls().size(), 1);
}

TEST_F(QueueExecution, handsEachFailedEntryOverInTheirOrder)
{
    writeDpkg(QStringLiteral("exit 1"));
    enqueueMissing(one);
    enqueueOffered(two);
    enqueueMissing(three);
    run();
    EXPECT_EQ(opener.openedURLs(), (QStringList{ handOff(one), handOff(two), handOff(three) }));
}

TEST_F(QueueExecution, handsOverWhileTheWorkerGoesOn)
{
    enqueueMissing(one);
    const QueueEntryPtr second = enqueueOffered(two);
    LoopbackServer::Reply held;
    held.body = QByteArray(1500, 'd');
    held.timing = LoopbackServer::Timing::Held;
    server.setReply(served(two), held);
    start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opener.opened.empty(); }, longestWait));
    EXPECT_TRUE(QTest::qWaitFor([&] { return second->status() == QueueStatusDownloading; }, longestWait));
    EXPECT_TRUE(installer->isInstalling());
    server.release(served(two));
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_EQ(second->status(), QueueStatusComplete);
}

TEST_F(QueueExecution, waitsSixTenthsOfASecondBeforeAHandOffAfterAFailedDpkg)
{
    InstallerSurroundings surroundings{
        .dpkgPath = path(QStringLiteral("dpkg")),
        .archiveDirectories = { path(QStringLiteral("archives")) },
        .urlOpener = std::make_unique<RecordingOpener>(opener),
    };
    installer = std::make_unique<PackageInstaller>(std::move(surroundings));
    writeDpkg(QStringLiteral("exit 1"));
    enqueueOffered(one);
    run();
    const QDateTime dpkgRan = QFileInfo(path(QStringLiteral("calls"))).lastModified().toUTC();
    ASSERT_EQ(opener.opened.size(), 1U);
    EXPECT_GE(dpkgRan.msecsTo(opener.opened[0].time), 600);
}

TEST_F(QueueExecution, runsAgainWhatWasHandedOverAndSkipsWhatIsComplete)
{
    const QueueEntryPtr first = enqueueMissing(one);
    const QueueEntryPtr second = enqueueOffered(two);
    run();
    EXPECT_EQ(first->status(), QueueStatusReady);
    EXPECT_EQ(second->status(), QueueStatusComplete);
    server.serve(served(one), QByteArray(1500, 'd'));
    run();
    EXPECT_EQ(first->status(), QueueStatusComplete);
    EXPECT_EQ(dpkgCalls(), (QStringList{ QStringLiteral("-i ") + archive(two), QStringLiteral("-i ") + archive(one) }));
}

TEST_F(QueueExecution, doesNotRunWhatIsAddedDuringTheRun)
{
    enqueueOffered(one);
    start();
    const QueueEntryPtr late = enqueueOffered(two);
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_EQ(late->status(), QueueStatusQueued);
    EXPECT_EQ(dpkgCalls().size(), 1);
}

TEST_F(QueueExecution, goesOnOverItsSnapshotWhenTheQueueIsCleared)
{
    const QueueEntryPtr first = enqueueOffered(one);
    enqueueOffered(two);
    start();
    installer->removeEntry(first);
    installer->clearQueue();
    EXPECT_TRUE(installer->queue().empty());
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_EQ(dpkgCalls().size(), 2);
    EXPECT_EQ(first->status(), QueueStatusComplete);
    EXPECT_EQ(installer->completedCount(), 0U);
}

TEST_F(QueueExecution, keepsTheRecordsOfARunUntilItsEndAndLetsGoOfThemThen)
{
    const std::weak_ptr<QueueEntry> entry = enqueueOffered(one);
    start();
    installer->clearQueue();
    EXPECT_FALSE(entry.expired());
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_TRUE(entry.expired());
}

TEST_F(QueueExecution, doesNotTouchTheInstalledVersion)
{
    const QueueEntryPtr entry = enqueueOffered(one);
    entry->package()->setInstalledVersion(QStringLiteral("0.5"));
    run();
    EXPECT_EQ(entry->package()->installedVersion(), QStringLiteral("0.5"));
}

TEST_F(QueueExecution, canBeStartedAgainByItsCompletion)
{
    enqueueMissing(one);
    installer->executeQueueWithCompletion([this] { start(); });
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_EQ(opener.openedURLs(), (QStringList{ handOff(one), handOff(one) }));
}

TEST_F(QueueExecution, canBeDestroyedByItsCompletion)
{
    enqueueOffered(one);
    installer->executeQueueWithCompletion([this] {
        installer.reset();
        ++completions;
    });
    ASSERT_TRUE(waitForCompletions(1));
    EXPECT_EQ(installer, nullptr);
}

TEST_F(QueueExecution, isGivenUpInADownloadWhenTheInstallerIsDestroyed)
{
    const QueueEntryPtr entry = enqueueOffered(one);
    LoopbackServer::Reply stalled;
    stalled.body = QByteArray(1500, 'd');
    stalled.declaredLength = 3000;
    stalled.ending = LoopbackServer::Ending::Stall;
    server.setReply(served(one), stalled);
    start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.bytesSent() > 1500; }, longestWait));
    installer.reset();
    EXPECT_EQ(server.requests().size(), 1U);
    QCoreApplication::processEvents();
    EXPECT_EQ(completions, 0);
    EXPECT_TRUE(opener.opened.empty());
    EXPECT_TRUE(QDir(path(QStringLiteral("archives"))).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

TEST_F(QueueExecution, waitsForARunningDpkgWhenTheInstallerIsDestroyed)
{
    const QString script = QStringLiteral("sleep 0.3; echo done >> '%1'; exit 1").arg(path(QStringLiteral("calls")));
    writeDpkg(script);
    const QueueEntryPtr entry = enqueueOffered(one);
    start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return dpkgCalls().size() == 1; }, longestWait));
    installer.reset();
    EXPECT_EQ(dpkgCalls().size(), 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(completions, 0);
    EXPECT_TRUE(opener.opened.empty());
}

TEST_F(QueueExecution, forgetsWhatItHasPostedWhenTheInstallerIsDestroyed)
{
    const QueueEntryPtr entry = enqueueMissing(one);
    start();
    // Without a turn of the event loop: the worker's tasks wait to be run.
    while (entry->status() != QueueStatusReady)
        QThread::yieldCurrentThread();
    installer.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(completions, 0);
    EXPECT_TRUE(opener.opened.empty());
}

TEST_F(QueueExecution, survivesAnEntryWithoutAPackage)
{
    installer->queue().push_back(QueueEntry::entryWithPackage(nullptr, QueueActionInstall));
    installer->enqueuePackage(package(one), QueueActionInstall);
    run();
    EXPECT_EQ(installer->queue()[0]->status(), QueueStatusReady);
    EXPECT_EQ(opener.openedURLs(), QStringList{ handOff(one) });
}
