// From the first refresh to an installed package, without the window: the user's own source list, a source served over
// HTTP, the real dpkg and its database. Runs in a sandbox of its own.
#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <algorithm>

namespace {

constexpr int longestWait = 60'000;

QString installedFile(const QString& identifier, const QString& file)
{
    return QStringLiteral("/opt/vesk-demo/%1/%2").arg(identifier, file);
}

QString textOf(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString handOffs()
{
    return textOf(qEnvironmentVariable("VESK_DEMO_HANDOFFS"));
}

class InstallTest : public testing::Test
{
protected:
    void SetUp() override { refresh(); }

    void refresh()
    {
        bool refreshed = false;
        m_catalog.refreshAllWithCompletion([&refreshed] { refreshed = true; });
        ASSERT_TRUE(QTest::qWaitFor([&refreshed] { return refreshed; }, longestWait));
        ASSERT_FALSE(m_catalog.packages().empty());
    }

    VeskPackagePtr package(const QString& identifier)
    {
        const PackageVector& all = m_catalog.packages().all();
        const auto found = std::find_if(
            all.begin(), all.end(), [&](const VeskPackagePtr& each) { return each->packageID() == identifier; });
        return found == all.end() ? nullptr : *found;
    }

    // Queues the one action, runs the queue and answers with the status the entry ended at.
    qint64 statusAfterRunning(const QString& identifier, qint64 action)
    {
        m_installer.enqueuePackage(package(identifier), action);
        bool finished = false;
        m_installer.executeQueueWithCompletion([&finished] { finished = true; });
        EXPECT_TRUE(QTest::qWaitFor([&finished] { return finished; }, longestWait));
        return m_installer.queue().back()->status();
    }

    RepoManager m_catalog{ CatalogWorld::real() };
    PackageInstaller m_installer{ InstallerSurroundings::system() };
};

TEST_F(InstallTest, installsAPackageAndKnowsItAfterTheNextRefreshOnly)
{
    const QString identifier = QStringLiteral("demo.northgate.cairn");
    ASSERT_TRUE(package(identifier));
    EXPECT_FALSE(package(identifier)->installed());

    EXPECT_EQ(statusAfterRunning(identifier, QueueActionInstall), QueueStatusComplete);
    EXPECT_TRUE(QFileInfo(installedFile(identifier, QStringLiteral("bin/cairn"))).isExecutable());
    EXPECT_FALSE(package(identifier)->installed());

    refresh();
    EXPECT_EQ(package(identifier)->installedVersion(), package(identifier)->version());
}

TEST_F(InstallTest, upgradesAPackageThatIsOlderThanTheSources)
{
    const QString identifier = QStringLiteral("demo.orchard.lantern");
    EXPECT_TRUE(package(identifier)->hasUpdate());
    EXPECT_EQ(textOf(installedFile(identifier, QStringLiteral("version"))), QStringLiteral("1.9\n"));

    EXPECT_EQ(statusAfterRunning(identifier, QueueActionUpgrade), QueueStatusComplete);
    EXPECT_EQ(textOf(installedFile(identifier, QStringLiteral("version"))), QStringLiteral("2.3.0\n"));

    refresh();
    EXPECT_FALSE(package(identifier)->hasUpdate());
}

TEST_F(InstallTest, findsThePackagesThatLieInThePoolAndInTheRoot)
{
    for (const QString& identifier :
        { QStringLiteral("demo.orchard.cider-press"), QStringLiteral("demo.kettle.teaspoon") }) {
        EXPECT_EQ(statusAfterRunning(identifier, QueueActionInstall), QueueStatusComplete);
        EXPECT_TRUE(QFileInfo::exists(installedFile(identifier, QStringLiteral("README"))));
    }
}

TEST_F(InstallTest, installsAVersionWithAnEpoch)
{
    const QString identifier = QStringLiteral("demo.tinsel.once");
    EXPECT_EQ(statusAfterRunning(identifier, QueueActionInstall), QueueStatusComplete);
    EXPECT_EQ(textOf(installedFile(identifier, QStringLiteral("version"))), QStringLiteral("1:1.2\n"));
}

TEST_F(InstallTest, handsOverAPackageWhosePostinstFails)
{
    const QString identifier = QStringLiteral("demo.gearhart.standing-order");
    EXPECT_EQ(statusAfterRunning(identifier, QueueActionInstall), QueueStatusReady);
    EXPECT_TRUE(QTest::qWaitFor([] { return !handOffs().isEmpty(); }, longestWait));
    EXPECT_EQ(handOffs(), QStringLiteral("sileo://package/demo.gearhart.standing-order\n"));
}

TEST_F(InstallTest, handsOverAPackageWhoseDownloadIsMissing)
{
    const QString identifier = QStringLiteral("demo.nimbus.thunderstone");
    EXPECT_EQ(statusAfterRunning(identifier, QueueActionInstall), QueueStatusReady);
    EXPECT_TRUE(QTest::qWaitFor([] { return !handOffs().isEmpty(); }, longestWait));
    EXPECT_EQ(handOffs(), QStringLiteral("sileo://package/demo.nimbus.thunderstone\n"));
    EXPECT_FALSE(QFileInfo::exists(installedFile(identifier, QStringLiteral("README"))));
}

// The run installs whatever an entry asks for; an uninstall of what is there leaves it there.
TEST_F(InstallTest, runsAnUninstallEntryAsAnInstallation)
{
    const QString identifier = QStringLiteral("demo.saltmarsh.tidewheel");
    QFile::remove(installedFile(identifier, QStringLiteral("README")));
    EXPECT_EQ(statusAfterRunning(identifier, QueueActionUninstall), QueueStatusComplete);
    EXPECT_TRUE(QFileInfo::exists(installedFile(identifier, QStringLiteral("README"))));
}

TEST_F(InstallTest, removesAPackageWhenAskedToDirectly)
{
    const QString identifier = QStringLiteral("demo.saltmarsh.tidewheel");
    EXPECT_TRUE(m_installer.uninstallPackage(package(identifier)));
    EXPECT_FALSE(QFileInfo::exists(installedFile(identifier, QStringLiteral("README"))));
    EXPECT_EQ(handOffs(), QString());

    refresh();
    EXPECT_FALSE(package(identifier)->installed());
}

} // namespace
