// What a download leaves on the disk, and what it finds there.
#include "tests/actions/PackageDownloadTest.h"

#include <csignal>
#include <sys/resource.h>

class PackageDownloadDisk : public PackageDownloadTest
{
};

TEST_F(PackageDownloadDisk, failsAsAFailedWriteDoesWhenTheNameIsNoPlainName)
{
    const QStringList identifiers = { QStringLiteral("../one"), QStringLiteral("a/b"), QString(250, u'a') };
    for (const QString& identifier : identifiers) {
        LoopbackServer server;
        const auto wanted = packageOf(server.url(), identifier, QStringLiteral("1.0"));
        for (const QString& url : archiveURLs(server.url(), archiveName(*wanted)))
            server.serve(QUrl(url).path().toUtf8(), m_body);
        EXPECT_TRUE(download(wanted).isNull()) << identifier.toStdString();
        EXPECT_EQ(server.requests().size(), 3U) << identifier.toStdString();
    }
    EXPECT_TRUE(entries().isEmpty());
    EXPECT_EQ(QDir(m_parent.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
        QStringList{ QStringLiteral("archives") });
}

TEST_F(PackageDownloadDisk, failsWhenThePrivateDirectoryCannotBeMade)
{
    ASSERT_TRUE(QFile::link(m_parent.path(), directory()));
    for (const QByteArray& path : { m_debs, m_pool, m_root })
        m_server.serve(path, m_body);
    EXPECT_TRUE(download().isNull());
    EXPECT_EQ(m_server.requests().size(), 3U);
    EXPECT_EQ(QDir(m_parent.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
        QStringList{ QStringLiteral("archives") });
}

TEST_F(PackageDownloadDisk, isNotBlockedByWhoeverTookTheSharedName)
{
    ASSERT_TRUE(QFile::link(m_parent.path(), directory()));
    m_server.serve(m_debs, m_body);
    const QString own = m_parent.filePath(QStringLiteral("own/archives"));
    const QString archive = PackageDownload({ directory(), own }, sourceRequest(m_limits)).download(package(), {});
    EXPECT_EQ(archive, own + QStringLiteral("/one_1.0_iphoneos-arm.deb"));
    EXPECT_EQ(contents(archive), m_body);
}

TEST_F(PackageDownloadDisk, replacesASymbolicLinkPlantedAtTheArchivesName)
{
    m_server.serve(m_debs, bodyOf(2000));
    const QString path = download();
    QFile victim(m_parent.filePath(QStringLiteral("victim")));
    ASSERT_TRUE(victim.open(QIODevice::WriteOnly));
    victim.write("precious");
    victim.close();
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QFile::link(victim.fileName(), path));
    m_server.serve(m_debs, m_body);
    EXPECT_EQ(download(), path);
    EXPECT_EQ(contents(victim.fileName()), "precious");
    EXPECT_EQ(contents(path), m_body);
    EXPECT_FALSE(QFileInfo(path).isSymLink());
}

TEST_F(PackageDownloadDisk, goesOnWithTheNextCandidateWhenTheNameIsTaken)
{
    ASSERT_TRUE(QDir().mkpath(directory() + QStringLiteral("/one_1.0_iphoneos-arm.deb")));
    for (const QByteArray& path : { m_debs, m_pool, m_root })
        m_server.serve(path, m_body);
    EXPECT_TRUE(download().isNull());
    EXPECT_EQ(m_server.requests().size(), 3U);
    EXPECT_EQ(entries(), QStringList{ QStringLiteral("one_1.0_iphoneos-arm.deb") });
}

TEST_F(PackageDownloadDisk, leavesNothingBehindWhenTheDiskTakesNoMore)
{
    struct rlimit previous = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &previous), 0);
    const auto previousHandler = signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small = { 4000, previous.rlim_max };
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    m_server.serve(m_debs, m_body);
    m_server.serve(m_pool, bodyOf(3000));
    const QString path = download();
    setrlimit(RLIMIT_FSIZE, &previous);
    signal(SIGXFSZ, previousHandler);
    EXPECT_EQ(contents(path), bodyOf(3000));
    EXPECT_EQ(entries().size(), 1);
}

TEST_F(PackageDownloadDisk, keepsTheOldArchiveWhenANewDownloadFails)
{
    m_server.serve(m_debs, m_body);
    const QString path = download();
    LoopbackServer::Reply answer;
    answer.body = bodyOf(3000);
    answer.declaredLength = 9000;
    answer.ending = Ending::Close;
    reply(answer);
    EXPECT_TRUE(download().isNull());
    EXPECT_EQ(contents(path), m_body);
    EXPECT_EQ(entries().size(), 1);
}
