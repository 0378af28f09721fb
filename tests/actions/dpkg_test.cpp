// The queue with the real dpkg, in a sandbox with a package database of the test's own.
#include "tests/actions/RealDpkgTest.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

const QString installed = QStringLiteral("install ok installed ");

} // namespace

TEST_F(RealDpkg, installsAPackageThatIsNotInstalled)
{
    offer(archive(QStringLiteral("vesk-test-new"), QStringLiteral("1.0")));
    ASSERT_TRUE(m_sandbox.statusOf(QStringLiteral("vesk-test-new")).isEmpty());
    EXPECT_EQ(run({ QStringLiteral("vesk-test-new"), QStringLiteral("1.0"), QStringLiteral("0") }),
        QStringList{ QStringLiteral("vesk-test-new 0 4") });
    EXPECT_EQ(installedFile(QStringLiteral("vesk-test-new")), QStringLiteral("1.0"));
    EXPECT_EQ(m_sandbox.statusOf(QStringLiteral("vesk-test-new")), installed + QStringLiteral("1.0"));
}

TEST_F(RealDpkg, leavesTheMachinesOwnPackagesAlone)
{
    offer(archive(QStringLiteral("vesk-test-new"), QStringLiteral("1.0")));
    run({ QStringLiteral("vesk-test-new"), QStringLiteral("1.0"), QStringLiteral("0") });
    QFile status(QStringLiteral("/var/lib/dpkg/status"));
    ASSERT_TRUE(status.open(QIODevice::ReadOnly));
    EXPECT_FALSE(status.readAll().contains("vesk-test-new"));
    EXPECT_FALSE(QFileInfo::exists(QStringLiteral("/opt/vesk-test-new")));
}

TEST_F(RealDpkg, upgradesAnInstalledPackage)
{
    offer(archive(QStringLiteral("vesk-test-old"), QStringLiteral("1.0")));
    offer(archive(QStringLiteral("vesk-test-old"), QStringLiteral("1:2.0")), "/pool/");
    run({ QStringLiteral("vesk-test-old"), QStringLiteral("1.0"), QStringLiteral("0") });
    EXPECT_EQ(run({ QStringLiteral("vesk-test-old"), QStringLiteral("1:2.0"), QStringLiteral("2") }),
        QStringList{ QStringLiteral("vesk-test-old 2 4") });
    EXPECT_EQ(installedFile(QStringLiteral("vesk-test-old")), QStringLiteral("1:2.0"));
    EXPECT_EQ(m_sandbox.statusOf(QStringLiteral("vesk-test-old")), installed + QStringLiteral("1:2.0"));
}

TEST_F(RealDpkg, downloadsAndInstallsAnUninstallEntryLikeAnyOther)
{
    offer(archive(QStringLiteral("vesk-test-gone"), QStringLiteral("1.0")), "/");
    EXPECT_EQ(run({ QStringLiteral("vesk-test-gone"), QStringLiteral("1.0"), QStringLiteral("1") }),
        QStringList{ QStringLiteral("vesk-test-gone 1 4") });
    EXPECT_EQ(m_sandbox.statusOf(QStringLiteral("vesk-test-gone")), installed + QStringLiteral("1.0"));
    EXPECT_EQ(m_server.requests().size(), 3U);
}

TEST_F(RealDpkg, handsOverAPackageWhosePostinstFailsAndOneWhoseArchiveIsMissing)
{
    offer(archive(QStringLiteral("vesk-test-broken"), QStringLiteral("1.0"), QStringLiteral("exit 1")));
    offer(archive(QStringLiteral("vesk-test-new"), QStringLiteral("1.0")));
    const QString version = QStringLiteral("1.0");
    const QString install = QStringLiteral("0");
    EXPECT_EQ(run({ QStringLiteral("vesk-test-broken"), version, install, QStringLiteral("vesk-test-missing"), version,
                      install, QStringLiteral("vesk-test-new"), version, install },
                  2),
        (QStringList{ QStringLiteral("vesk-test-broken 0 3"), QStringLiteral("vesk-test-missing 0 3"),
            QStringLiteral("vesk-test-new 0 4") }));
    QStringList urls = m_handlers.urls(2);
    urls.sort();
    EXPECT_EQ(urls,
        (QStringList{
            QStringLiteral("sileo://package/vesk-test-broken"), QStringLiteral("sileo://package/vesk-test-missing") }));
    EXPECT_EQ(m_sandbox.statusOf(QStringLiteral("vesk-test-broken")), QStringLiteral("install ok half-configured 1.0"));
    EXPECT_EQ(m_sandbox.statusOf(QStringLiteral("vesk-test-new")), installed + version);
}

TEST_F(RealDpkg, handsOverWhatIsNoArchiveAndWhatIsOnlyHalfOfOne)
{
    const TestArchive whole = archive(QStringLiteral("vesk-test-half"), QStringLiteral("1.0"));
    const QByteArray bytes = whole.build();
    ASSERT_GE(bytes.size(), 3000);
    m_server.serve(pathOf(whole), bytes.left(bytes.size() - 1500));
    m_server.serve("/debs/vesk-test-text_1.0_iphoneos-arm.deb", QByteArray(5000, 'x'));
    const QString version = QStringLiteral("1.0");
    EXPECT_EQ(run({ whole.identifier, version, QStringLiteral("0"), QStringLiteral("vesk-test-text"), version,
                      QStringLiteral("0") },
                  2),
        (QStringList{ QStringLiteral("vesk-test-half 0 3"), QStringLiteral("vesk-test-text 0 3") }));
    EXPECT_EQ(m_handlers.urls(2).size(), 2);
    EXPECT_TRUE(installedFile(whole.identifier).isEmpty());
}

TEST_F(RealDpkg, asksNothingOfAnybody)
{
    // Whatever a package's script reads or says, there is nobody to answer and nothing to wait for.
    const QString script = QStringLiteral("echo loud; echo loud >&2; if read -r answer; then exit 0; else exit 1; fi");
    offer(archive(QStringLiteral("vesk-test-curious"), QStringLiteral("1.0"), script));
    EXPECT_EQ(run({ QStringLiteral("vesk-test-curious"), QStringLiteral("1.0"), QStringLiteral("0") }),
        QStringList{ QStringLiteral("vesk-test-curious 0 3") });
}

TEST_F(RealDpkg, isNotAskedWhenTheDiskHasNoRoomForTheArchive)
{
    TestArchive large = archive(QStringLiteral("vesk-test-large"), QStringLiteral("1.0"));
    large.files.append({ QStringLiteral("/opt/vesk-test-large/data"), QByteArray(4 << 20, 'x') });
    offer(large);
    const QStringList smallDisk = { QStringLiteral("--size"), QStringLiteral("1048576"), QStringLiteral("--tmpfs"),
        m_sandbox.path(QStringLiteral("home")) };
    EXPECT_EQ(run({ large.identifier, large.version, QStringLiteral("0") }, 0, smallDisk),
        QStringList{ QStringLiteral("vesk-test-large 0 3") });
    EXPECT_EQ(m_server.requests().size(), 3U);
    EXPECT_TRUE(m_sandbox.statusOf(large.identifier).isEmpty());
}

TEST_F(RealDpkg, doesNotHoldTheProgramWhenItEndsDuringARun)
{
    const QString pipe = m_sandbox.path(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
    // The program is told to quit by dpkg's own doing, which then goes on for longer than the test may take.
    const QString script = QStringLiteral("echo now > '%1'; sleep 600").arg(pipe);
    offer(archive(QStringLiteral("vesk-test-slow"), QStringLiteral("1.0"), script));
    const auto result = m_sandbox.run({ QStringLiteral("/bin/sh"), QStringLiteral("-c"),
        QStringLiteral("exec \"$0\" quit \"$1\" vesk-test-slow 1.0 <> \"$2\""), QStringLiteral(INSTALLER_PROBE),
        m_server.url(), pipe });
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.isEmpty()) << result.output.toStdString();
}
