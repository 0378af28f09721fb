// Installing for a person who is not root, with a pkexec of the test's own.
#include "actions/AdministratorInstall.h"

#include "tests/actions/FakePkexec.h"
#include "tests/actions/QueueExecution.h"

#include <QCryptographicHash>

#include <unistd.h>

namespace {

QByteArray digestOf(const QByteArray& body)
{
    return QCryptographicHash::hash(body, QCryptographicHash::Sha256).toHex();
}

const QByteArray body(2000, 'd');

class AdministratorInstallTest : public testing::Test
{
protected:
    AdministratorInstallTest()
    {
        QFile file(archive);
        if (file.open(QFile::WriteOnly))
            file.write(body);
    }

    bool install() { return administrator.install(archive, digestOf(body)); }

    FakePkexec pkexec;
    const QString archive = pkexec.path(QStringLiteral("archive.deb"));
    AdministratorInstall administrator{ pkexec.programs() };
};

// The run of the queue, by somebody who is not root.
class AdministratorRun : public QueueExecution
{
protected:
    AdministratorRun()
    {
        InstallerSurroundings surroundings{
            .dpkgPath = path(QStringLiteral("dpkg")),
            .administrator = pkexec.programs(),
            .archiveDirectories = { path(QStringLiteral("archives")) },
            .urlOpener = std::make_unique<RecordingOpener>(opener),
        };
        surroundings.handOffDelay = std::chrono::milliseconds(0);
        installer = std::make_unique<PackageInstaller>(std::move(surroundings));
    }

    FakePkexec pkexec;
};

} // namespace

TEST_F(AdministratorInstallTest, asksForTheHelperWithTheDigestAndTheArchiveOnStandardInput)
{
    EXPECT_TRUE(install());
    EXPECT_EQ(pkexec.calls(), QStringList{ pkexec.call(digestOf(body)) });
    EXPECT_EQ(pkexec.input(), body);
}

TEST_F(AdministratorInstallTest, failsAsDpkgDoesAndAsksAgain)
{
    for (const int status : { 1, 2, 125 }) {
        pkexec.exitsWith(status);
        EXPECT_FALSE(install()) << status;
    }
    EXPECT_EQ(pkexec.calls().size(), 3);
}

TEST_F(AdministratorInstallTest, failsWhenPkexecIsKilled)
{
    QFile program(pkexec.programs().pkexecPath);
    ASSERT_TRUE(program.open(QFile::WriteOnly | QFile::Truncate));
    program.write("#!/bin/sh\nkill -KILL $$\n");
    program.close();
    EXPECT_FALSE(install());
}

TEST_F(AdministratorInstallTest, asksNoMoreOnceTheQuestionWasDismissed)
{
    pkexec.exitsWith(126);
    EXPECT_FALSE(install());
    pkexec.exitsWith(0);
    EXPECT_FALSE(install());
    EXPECT_EQ(pkexec.calls().size(), 1);
}

TEST_F(AdministratorInstallTest, asksNoMoreOnceNobodyCouldBeAsked)
{
    pkexec.exitsWith(127);
    EXPECT_FALSE(install());
    EXPECT_FALSE(install());
    EXPECT_EQ(pkexec.calls().size(), 1);
}

TEST_F(AdministratorInstallTest, asksForNoArchiveThatIsALinkOrIsGone)
{
    const QString link = pkexec.path(QStringLiteral("link.deb"));
    ASSERT_TRUE(QFile::link(archive, link));
    EXPECT_FALSE(administrator.install(link, digestOf(body)));
    EXPECT_FALSE(administrator.install(pkexec.path(QStringLiteral("gone.deb")), digestOf(body)));
    EXPECT_TRUE(pkexec.calls().isEmpty());
}

TEST_F(AdministratorInstallTest, needsBothPrograms)
{
    EXPECT_TRUE(pkexec.programs().arePresent());
    ASSERT_TRUE(QFile::remove(pkexec.programs().helperPath));
    EXPECT_FALSE(pkexec.programs().arePresent());
    EXPECT_FALSE(AdministratorPrograms{}.arePresent());
}

TEST(AdministratorPrograms, areNoneForRoot)
{
    const AdministratorPrograms programs = AdministratorPrograms::system();
    EXPECT_EQ(programs.pkexecPath.isEmpty(), geteuid() == 0);
    EXPECT_EQ(programs.helperPath.isEmpty(), geteuid() == 0);
}

TEST_F(AdministratorRun, installsEachEntryByTheDigestOfWhatWasDownloaded)
{
    const QueueEntryPtr first = enqueueOffered(one);
    const QueueEntryPtr second = enqueueOffered(two);
    server.serve(served(two), QByteArray(70'000, 'e'));
    run();
    EXPECT_EQ(first->status(), QueueStatusComplete);
    EXPECT_EQ(second->status(), QueueStatusComplete);
    EXPECT_EQ(pkexec.calls(),
        (QStringList{ pkexec.call(digestOf(QByteArray(1500, 'd'))), pkexec.call(digestOf(QByteArray(70'000, 'e'))) }));
    EXPECT_TRUE(dpkgCalls().isEmpty());
    EXPECT_TRUE(opener.opened.empty());
}

TEST_F(AdministratorRun, asksOnceInARunThatIsDismissedAndAgainInTheNext)
{
    pkexec.exitsWith(126);
    const std::vector entries{ enqueueOffered(one), enqueueOffered(two), enqueueOffered(three) };
    run();
    for (const QueueEntryPtr& entry : entries)
        EXPECT_EQ(entry->status(), QueueStatusReady);
    EXPECT_EQ(pkexec.calls().size(), 1);
    EXPECT_EQ(opener.openedURLs(), (QStringList{ handOff(one), handOff(two), handOff(three) }));

    pkexec.exitsWith(0);
    run();
    for (const QueueEntryPtr& entry : entries)
        EXPECT_EQ(entry->status(), QueueStatusComplete);
    EXPECT_EQ(pkexec.calls().size(), 4);
}

TEST_F(AdministratorRun, leavesAnEntryReadyThatDpkgRefusedAndGoesOnAsking)
{
    pkexec.exitsWith(1);
    const QueueEntryPtr first = enqueueOffered(one);
    enqueueOffered(two);
    run();
    EXPECT_EQ(first->status(), QueueStatusReady);
    EXPECT_EQ(pkexec.calls().size(), 2);
}

TEST_F(AdministratorRun, runsDpkgWhereTheHelperIsNotInstalled)
{
    ASSERT_TRUE(QFile::remove(pkexec.programs().helperPath));
    const QueueEntryPtr entry = enqueueOffered(one);
    run();
    EXPECT_EQ(entry->status(), QueueStatusComplete);
    EXPECT_EQ(dpkgCalls(), QStringList{ QStringLiteral("-i ") + archive(one) });
    EXPECT_TRUE(pkexec.calls().isEmpty());
}
