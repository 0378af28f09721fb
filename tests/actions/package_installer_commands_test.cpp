// What the installer does at once, without its queue.
#include "tests/actions/QueueExecution.h"

class InstallerCommands : public QueueExecution
{
};

TEST_F(InstallerCommands, installsAFileWithDpkg)
{
    EXPECT_TRUE(installer->installWithDPKG(QStringLiteral("/a b/c.deb"), nullptr));
    EXPECT_EQ(dpkgCalls(), QStringList{ QStringLiteral("-i /a b/c.deb") });
    writeDpkg(QStringLiteral("exit 2"));
    EXPECT_FALSE(installer->installWithDPKG(QStringLiteral("/c.deb"), package(one)));
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("dpkg"))));
    EXPECT_FALSE(installer->installWithDPKG(QStringLiteral("/c.deb"), package(one)));
    EXPECT_TRUE(opener.opened.empty());
}

TEST_F(InstallerCommands, runsACommand)
{
    EXPECT_TRUE(installer->runCommand({ path(QStringLiteral("dpkg")), QStringLiteral("--version") }));
    EXPECT_EQ(dpkgCalls(), QStringList{ QStringLiteral("--version") });
    EXPECT_FALSE(installer->runCommand({}));
}

TEST_F(InstallerCommands, uninstallsAPackageByItsIdentifier)
{
    EXPECT_TRUE(installer->uninstallPackage(package(one)));
    EXPECT_EQ(dpkgCalls(), QStringList{ QStringLiteral("-r one") });
    EXPECT_TRUE(opener.opened.empty());
}

TEST_F(InstallerCommands, handsOverOnTheCallersThreadWhatDpkgCannotUninstall)
{
    writeDpkg(QStringLiteral("exit 1"));
    EXPECT_FALSE(installer->uninstallPackage(package(one)));
    EXPECT_EQ(opener.openedURLs(), QStringList{ handOff(one) });
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("dpkg"))));
    bool answer = true;
    QThread* other = QThread::create([&] { answer = installer->uninstallPackage(package(two)); });
    other->start();
    ASSERT_TRUE(other->wait(longestWait));
    EXPECT_FALSE(answer);
    EXPECT_EQ(opener.openedURLs(), (QStringList{ handOff(one), handOff(two) }));
    EXPECT_EQ(opener.opened[1].thread, other);
    delete other;
}

TEST_F(InstallerCommands, opensNothingForNoPackageAndNoSource)
{
    EXPECT_FALSE(installer->uninstallPackage(nullptr));
    installer->openPackageInPackageManager(nullptr);
    installer->openRepositoryInPackageManager(nullptr);
    EXPECT_TRUE(opener.opened.empty());
    EXPECT_TRUE(dpkgCalls().isEmpty());
}

TEST_F(InstallerCommands, opensASourceWithItsTextAsStored)
{
    installer->openRepositoryInPackageManager(
        VeskRepository::repositoryWithURLString(QStringLiteral("https://example.org/a"), {}));
    EXPECT_EQ(opener.openedURLs(), QStringList{ QStringLiteral("sileo://source/https://example.org/a") });
}
