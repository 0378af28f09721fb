#include "actions/PackageInstaller.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

InstallerSurroundings noSurroundings()
{
    return { .dpkgPath = {}, .archiveDirectories = {}, .urlOpener = nullptr };
}

VeskPackagePtr packageNamed(const QString& identifier)
{
    auto package = std::make_shared<VeskPackage>();
    package->setPackageID(identifier);
    return package;
}

class ActionQueue : public testing::Test
{
protected:
    QueueEntryPtr entryWithStatus(const QString& identifier, qint64 status)
    {
        installer.enqueuePackage(packageNamed(identifier), QueueActionInstall);
        installer.queue().back()->setStatus(status);
        return installer.queue().back();
    }

    void fillWithEveryStatus()
    {
        for (qint64 status = QueueStatusQueued; status <= QueueStatusFailed; ++status)
            entryWithStatus(QString::number(status), status);
    }

    std::vector<qint64> statuses()
    {
        std::vector<qint64> result;
        for (const QueueEntryPtr& entry : installer.queue())
            result.push_back(entry->status());
        return result;
    }

    PackageInstaller installer{ noSurroundings() };
    VeskPackagePtr package = packageNamed(QStringLiteral("org.example.one"));
};

} // namespace

TEST_F(ActionQueue, startsEmptyAndIdle)
{
    EXPECT_TRUE(installer.queue().empty());
    EXPECT_FALSE(installer.isInstalling());
    EXPECT_EQ(installer.completedCount(), 0U);
    EXPECT_EQ(installer.failedCount(), 0U);
}

TEST_F(ActionQueue, hasTheCodesOfItsActionsAndStatuses)
{
    EXPECT_EQ(static_cast<int>(QueueActionInstall), 0);
    EXPECT_EQ(static_cast<int>(QueueActionUninstall), 1);
    EXPECT_EQ(static_cast<int>(QueueActionUpgrade), 2);
    EXPECT_EQ(static_cast<int>(QueueStatusQueued), 0);
    EXPECT_EQ(static_cast<int>(QueueStatusDownloading), 1);
    EXPECT_EQ(static_cast<int>(QueueStatusInstalling), 2);
    EXPECT_EQ(static_cast<int>(QueueStatusReady), 3);
    EXPECT_EQ(static_cast<int>(QueueStatusComplete), 4);
    EXPECT_EQ(static_cast<int>(QueueStatusFailed), 5);
}

TEST_F(ActionQueue, givesAnEntryItsPackageItsActionAndStatusZero)
{
    const QueueEntryPtr entry = QueueEntry::entryWithPackage(package, QueueActionUpgrade);
    EXPECT_EQ(entry->package(), package);
    EXPECT_EQ(entry->action(), 2);
    EXPECT_EQ(entry->status(), 0);
}

TEST_F(ActionQueue, keepsTheOrderInWhichEntriesWereAskedFor)
{
    for (const QString& name : { QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("c") })
        installer.enqueuePackage(packageNamed(name), QueueActionInstall);
    ASSERT_EQ(installer.queue().size(), 3U);
    EXPECT_EQ(installer.queue()[0]->package()->packageID(), QStringLiteral("b"));
    EXPECT_EQ(installer.queue()[1]->package()->packageID(), QStringLiteral("a"));
    EXPECT_EQ(installer.queue()[2]->package()->packageID(), QStringLiteral("c"));
}

TEST_F(ActionQueue, ignoresANullPackage)
{
    installer.enqueuePackage(nullptr, QueueActionInstall);
    EXPECT_TRUE(installer.queue().empty());
}

TEST_F(ActionQueue, leavesOneEntryForTheSamePackageAndActionTwice)
{
    installer.enqueuePackage(package, QueueActionInstall);
    installer.enqueuePackage(package, QueueActionInstall);
    EXPECT_EQ(installer.queue().size(), 1U);
}

TEST_F(ActionQueue, knowsAPackageByItsIdentifierNotByItsRecord)
{
    installer.enqueuePackage(package, QueueActionInstall);
    installer.enqueuePackage(packageNamed(package->packageID()), QueueActionInstall);
    ASSERT_EQ(installer.queue().size(), 1U);
    EXPECT_EQ(installer.queue()[0]->package(), package);
}

TEST_F(ActionQueue, comparesIdentifiersToTheLetter)
{
    installer.enqueuePackage(packageNamed(QStringLiteral("org.example.One")), QueueActionInstall);
    installer.enqueuePackage(packageNamed(QStringLiteral("org.example.one")), QueueActionInstall);
    EXPECT_EQ(installer.queue().size(), 2U);
}

TEST_F(ActionQueue, keepsDifferentActionsOfOnePackageBesideEachOther)
{
    installer.enqueuePackage(package, QueueActionInstall);
    installer.enqueuePackage(package, QueueActionUpgrade);
    installer.enqueuePackage(package, QueueActionUninstall);
    installer.enqueuePackage(package, QueueActionUpgrade);
    ASSERT_EQ(installer.queue().size(), 3U);
    EXPECT_EQ(installer.queue()[0]->action(), 0);
    EXPECT_EQ(installer.queue()[1]->action(), 2);
    EXPECT_EQ(installer.queue()[2]->action(), 1);
}

TEST_F(ActionQueue, blocksADuplicateOfAnEntryThatHasRunUntilItIsRemoved)
{
    for (const qint64 status : { QueueStatusReady, QueueStatusComplete, QueueStatusFailed }) {
        installer.clearQueue();
        installer.enqueuePackage(package, QueueActionInstall);
        installer.queue()[0]->setStatus(status);
        installer.enqueuePackage(package, QueueActionInstall);
        EXPECT_EQ(installer.queue().size(), 1U) << status;
        installer.removeEntry(installer.queue()[0]);
        installer.enqueuePackage(package, QueueActionInstall);
        EXPECT_EQ(installer.queue().size(), 1U) << status;
        EXPECT_EQ(installer.queue()[0]->status(), 0) << status;
    }
}

TEST_F(ActionQueue, takesPackagesWithoutAnIdentifierForDifferentOnes)
{
    installer.enqueuePackage(std::make_shared<VeskPackage>(), QueueActionInstall);
    installer.enqueuePackage(std::make_shared<VeskPackage>(), QueueActionInstall);
    EXPECT_EQ(installer.queue().size(), 2U);
}

TEST_F(ActionQueue, removesEveryElementThatIsTheEntryAndNoOther)
{
    installer.enqueuePackage(package, QueueActionInstall);
    installer.enqueuePackage(packageNamed(QStringLiteral("org.example.two")), QueueActionInstall);
    installer.queue().push_back(installer.queue()[0]);
    const QueueEntryPtr kept = installer.queue()[1];
    installer.removeEntry(installer.queue()[0]);
    ASSERT_EQ(installer.queue().size(), 1U);
    EXPECT_EQ(installer.queue()[0], kept);
}

TEST_F(ActionQueue, doesNotRemoveAnEqualLookingEntry)
{
    installer.enqueuePackage(package, QueueActionInstall);
    installer.removeEntry(QueueEntry::entryWithPackage(package, QueueActionInstall));
    installer.removeEntry(nullptr);
    EXPECT_EQ(installer.queue().size(), 1U);
}

TEST_F(ActionQueue, clearsEveryEntryWhateverItsStatus)
{
    fillWithEveryStatus();
    installer.clearQueue();
    EXPECT_TRUE(installer.queue().empty());
}

TEST_F(ActionQueue, clearsOnlyWhatIsCompleteOrFailedAndKeepsTheRestInOrder)
{
    fillWithEveryStatus();
    installer.clearCompleted();
    EXPECT_EQ(statuses(), (std::vector<qint64>{ 0, 1, 2, 3 }));
}

TEST_F(ActionQueue, countsCompleteAndFailedEntries)
{
    fillWithEveryStatus();
    entryWithStatus(QStringLiteral("another"), QueueStatusComplete);
    EXPECT_EQ(installer.completedCount(), 2U);
    EXPECT_EQ(installer.failedCount(), 1U);
}

TEST_F(ActionQueue, namesItsStatuses)
{
    EXPECT_EQ(PackageInstaller::statusDisplayName(0), QStringLiteral("In Queue"));
    EXPECT_EQ(PackageInstaller::statusDisplayName(1), QStringLiteral("Downloading"));
    EXPECT_EQ(PackageInstaller::statusDisplayName(2), QStringLiteral("Installing"));
    EXPECT_EQ(PackageInstaller::statusDisplayName(3), QStringLiteral("Ready"));
    EXPECT_EQ(PackageInstaller::statusDisplayName(4), QStringLiteral("Complete"));
    EXPECT_EQ(PackageInstaller::statusDisplayName(5), QStringLiteral("Failed"));
}

TEST_F(ActionQueue, namesEveryOtherStatusInQueue)
{
    for (const qint64 code : { qint64(6), qint64(-1), qint64(1) << 32, std::numeric_limits<qint64>::min() })
        EXPECT_EQ(PackageInstaller::statusDisplayName(code), QStringLiteral("In Queue")) << code;
}

TEST_F(ActionQueue, keepsThePackageOfAnEntryWithItsSourceAlive)
{
    const std::weak_ptr<VeskRepository> source = [this] {
        auto repository = VeskRepository::repositoryWithURLString(QStringLiteral("https://example.org"), {});
        auto other = packageNamed(QStringLiteral("org.example.two"));
        other->setRepository(repository);
        installer.enqueuePackage(other, QueueActionInstall);
        return repository;
    }();
    EXPECT_FALSE(source.expired());
    installer.clearQueue();
    EXPECT_TRUE(source.expired());
}

TEST(SharedInstaller, takesArchivesOfUpToEightGibibytesThatAreNotSilentForHalfAMinute)
{
    const http::Limits limits = InstallerSurroundings::standardRequest().limits;
    EXPECT_EQ(limits.largestBody, 8LL * 1024 * 1024 * 1024);
    EXPECT_EQ(limits.inactivity, std::chrono::seconds(30));
}

TEST(SharedInstaller, isOneInstanceWithAnEmptyQueue)
{
    EXPECT_EQ(&PackageInstaller::sharedInstaller(), &PackageInstaller::sharedInstaller());
    EXPECT_TRUE(PackageInstaller::sharedInstaller().queue().empty());
    EXPECT_FALSE(PackageInstaller::sharedInstaller().isInstalling());
}

TEST(QueueEntry, holdsWhatItIsToldLater)
{
    const auto entry = QueueEntry::entryWithPackage(nullptr, QueueActionInstall);
    EXPECT_EQ(entry->status(), QueueStatusQueued);
    const auto package = std::make_shared<VeskPackage>();
    entry->setPackage(package);
    entry->setAction(QueueActionUpgrade);
    entry->setStatus(QueueStatusReady);
    EXPECT_EQ(entry->package(), package);
    EXPECT_EQ(entry->action(), QueueActionUpgrade);
    EXPECT_EQ(entry->status(), QueueStatusReady);
}
