// What becomes of a queue when dpkg cannot do its work: the entry is handed over, and the run goes on.
#include "tests/actions/RealDpkgTest.h"

namespace {

class TroubledDpkg : public RealDpkg
{
protected:
    // Offers the archive, and one more that nothing is wrong with, and queues the two.
    QStringList queueOf(const TestArchive& troubled)
    {
        const TestArchive sound = archive(QStringLiteral("vesk-test-sound"), QStringLiteral("1.0"));
        offer(troubled);
        offer(sound);
        return { troubled.identifier, troubled.version, QStringLiteral("0"), sound.identifier, sound.version,
            QStringLiteral("0") };
    }

    bool isSoundInstalled() const
    {
        return m_sandbox.statusOf(QStringLiteral("vesk-test-sound")) == QStringLiteral("install ok installed 1.0");
    }
};

const QStringList onlyTheSecond{ QStringLiteral("vesk-test-troubled 0 3"), QStringLiteral("vesk-test-sound 0 4") };
const QStringList neither{ QStringLiteral("vesk-test-troubled 0 3"), QStringLiteral("vesk-test-sound 0 3") };

} // namespace

TEST_F(TroubledDpkg, handsOverWhileAnotherProgramHoldsTheLockOfTheDatabase)
{
    const QStringList holder{ QStringLiteral("/usr/bin/python3"), QStringLiteral("-c"),
        QStringLiteral("import fcntl, subprocess, sys\n"
                       "locks = [open('/var/lib/dpkg/' + name, 'w') for name in ('lock-frontend', 'lock')]\n"
                       "for lock in locks: fcntl.lockf(lock, fcntl.LOCK_EX)\n"
                       "sys.exit(subprocess.call(sys.argv[1:]))\n") };
    const QStringList words = queueOf(archive(QStringLiteral("vesk-test-troubled"), QStringLiteral("1.0")));
    EXPECT_EQ(runBehind(holder, words, 2), neither);
    EXPECT_TRUE(m_sandbox.statusOf(QStringLiteral("vesk-test-troubled")).isEmpty());
    // Once it is let go of, the same queue goes through.
    EXPECT_EQ(
        run(words), (QStringList{ QStringLiteral("vesk-test-troubled 0 4"), QStringLiteral("vesk-test-sound 0 4") }));
}

TEST_F(TroubledDpkg, handsOverAPackageWhoseDependencyIsMissing)
{
    TestArchive needy = archive(QStringLiteral("vesk-test-troubled"), QStringLiteral("1.0"));
    needy.depends = QStringLiteral("vesk-test-nowhere");
    EXPECT_EQ(run(queueOf(needy), 1), onlyTheSecond);
    EXPECT_EQ(m_sandbox.statusOf(needy.identifier), QStringLiteral("install ok unpacked 1.0"));
    EXPECT_TRUE(isSoundInstalled());
}

TEST_F(TroubledDpkg, handsOverAPackageThatWaitsForAnAnswerByATerminal)
{
    // There is none to open, and standard input cannot be read.
    const TestArchive curious
        = archive(QStringLiteral("vesk-test-troubled"), QStringLiteral("1.0"), QStringLiteral("cat && exit 0; exit 3"));
    EXPECT_EQ(run(queueOf(curious), 1), onlyTheSecond);
    EXPECT_EQ(m_sandbox.statusOf(curious.identifier), QStringLiteral("install ok half-configured 1.0"));
    EXPECT_TRUE(isSoundInstalled());
}

TEST_F(TroubledDpkg, goesOnWithTheQueueWhenItIsKilledHalfWay)
{
    const TestArchive killer
        = archive(QStringLiteral("vesk-test-troubled"), QStringLiteral("1.0"), QStringLiteral("kill -KILL $PPID"));
    EXPECT_EQ(run(queueOf(killer), 1), onlyTheSecond);
    EXPECT_EQ(m_sandbox.statusOf(killer.identifier), QStringLiteral("install ok half-configured 1.0"));
    EXPECT_TRUE(isSoundInstalled());
}

TEST_F(TroubledDpkg, handsOverAPackageThatTheDiskHasNoRoomFor)
{
    TestArchive large = archive(QStringLiteral("vesk-test-troubled"), QStringLiteral("1.0"));
    large.files.append({ QStringLiteral("/opt/vesk-test-troubled/data"), QByteArray(4 << 20, 'x') });
    EXPECT_EQ(
        run(queueOf(large), 1,
            { QStringLiteral("--size"), QStringLiteral("1048576"), QStringLiteral("--tmpfs"), QStringLiteral("/opt") }),
        onlyTheSecond);
    EXPECT_TRUE(isSoundInstalled());
}

TEST_F(TroubledDpkg, handsOverWhereThereIsNoDpkg)
{
    EXPECT_EQ(run(queueOf(archive(QStringLiteral("vesk-test-troubled"), QStringLiteral("1.0"))), 2,
                  { QStringLiteral("--ro-bind"), QStringLiteral("/dev/null"), QStringLiteral("/usr/bin/dpkg") }),
        neither);
    EXPECT_FALSE(isSoundInstalled());
}

// dpkg looks for the administrator's programs in the PATH that it is given, and it is given the one of this program.
TEST_F(TroubledDpkg, handsOverWhenThePathOfTheProgramLeavesOutTheAdministratorsFolders)
{
    const QStringList words = queueOf(archive(QStringLiteral("vesk-test-troubled"), QStringLiteral("1.0")));
    EXPECT_EQ(runBehind({ QStringLiteral("/usr/bin/env"), QStringLiteral("PATH=/usr/bin:/bin") }, words, 2), neither);
    EXPECT_FALSE(isSoundInstalled());
}
