// What only shows in a process of its own: its memory, and its end.
#include "tests/support/LoopbackServer.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr int longestWait = 60000;
constexpr qint64 mebibyte = qint64(1024) * 1024;

class InstallerProcess : public testing::Test
{
protected:
    void start(const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CACHE_HOME"), m_directory.path());
        // The address sanitizer, where it is built in, keeps freed memory for a while unless told not to.
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("quarantine_size_mb=1"));
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(QStringLiteral(INSTALLER_PROBE), arguments);
        ASSERT_TRUE(m_process.waitForStarted());
    }

    QString finish()
    {
        EXPECT_TRUE(m_process.waitForFinished(longestWait));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_process.exitCode(), 0);
        return QString::fromUtf8(m_process.readAll());
    }

    QString archives() const { return m_directory.filePath(QStringLiteral("vesk/archives")); }

    // By how many KiB the peak of the process's memory grows with the download of a body of so many bytes.
    qint64 growthWithBodyOf(qint64 size)
    {
        LoopbackServer::Reply reply;
        reply.fillerSize = size;
        m_server.setReply("/debs/large_1_iphoneos-arm.deb", reply);
        start({ QStringLiteral("download"), m_server.url(), QStringLiteral("large"), QStringLiteral("1") });
        const QStringList lines = finish().split(u'\n');
        EXPECT_EQ(lines[0], archives() + QStringLiteral("/large_1_iphoneos-arm.deb"));
        EXPECT_EQ(QFileInfo(lines[0]).size(), size);
        return lines.value(1).toLongLong();
    }

    QTemporaryDir m_directory;
    LoopbackServer m_server;
    QProcess m_process;
};

} // namespace

TEST_F(InstallerProcess, keepsItsMemoryFlatHoweverLargeTheArchive)
{
    const qint64 small = growthWithBodyOf(mebibyte);
    const qint64 large = growthWithBodyOf(300 * mebibyte);
    RecordProperty("small", static_cast<int>(small));
    RecordProperty("large", static_cast<int>(large));
    EXPECT_GT(small, 0);
    EXPECT_LT(large - small, 8 * 1024);
}

TEST_F(InstallerProcess, endsCleanlyInTheMiddleOfADownload)
{
    LoopbackServer::Reply stalled;
    stalled.body = QByteArray(2000, 'd');
    stalled.declaredLength = 3000;
    stalled.ending = LoopbackServer::Ending::Stall;
    m_server.setReply("/debs/stalled_1_iphoneos-arm.deb", stalled);
    start({ QStringLiteral("quit"), m_server.url(), QStringLiteral("stalled"), QStringLiteral("1") });
    const auto files = [this] { return QDir(archives()).entryList(QDir::Files | QDir::Hidden); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return !files().isEmpty(); }, longestWait));
    m_process.closeWriteChannel();
    EXPECT_TRUE(finish().isEmpty());
    EXPECT_TRUE(files().isEmpty());
}
