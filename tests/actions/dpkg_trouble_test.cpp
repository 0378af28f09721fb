// What becomes of a queue when dpkg cannot do its work: the entry is handed over, and the run goes on.
#include "tests/actions/RealDpkgTest.h"

using namespace Qt::StringLiterals;

namespace {

class TroubledDpkg : public RealDpkg
{
protected:
    // Offers the archive, and one more that nothing is wrong with, and queues the two.
    QStringList queueOf(const TestArchive& troubled)
    {
        const TestArchive sound = archive(u"vesk-test-sound"_s, u"1.0"_s);
        offer(troubled);
        offer(sound);
        return { troubled.identifier, troubled.version, u"0"_s, sound.identifier, sound.version, u"0"_s };
    }

    bool isSoundInstalled() const { return m_sandbox.statusOf(u"vesk-test-sound"_s) == u"install ok installed 1.0"_s; }
};

const QStringList onlyTheSecond{ u"vesk-test-troubled 0 3"_s, u"vesk-test-sound 0 4"_s };
const QStringList neither{ u"vesk-test-troubled 0 3"_s, u"vesk-test-sound 0 3"_s };

} // namespace

TEST_F(TroubledDpkg, handsOverWhileAnotherProgramHoldsTheLockOfTheDatabase)
{
    const QStringList holder{ u"/usr/bin/python3"_s, u"-c"_s,
        u"import fcntl, subprocess, sys\n"
        "locks = [open('/var/lib/dpkg/' + name, 'w') for name in ('lock-frontend', 'lock')]\n"
        "for lock in locks: fcntl.lockf(lock, fcntl.LOCK_EX)\n"
        "sys.exit(subprocess.call(sys.argv[1:]))\n"_s };
    const QStringList words = queueOf(archive(u"vesk-test-troubled"_s, u"1.0"_s));
    EXPECT_EQ(runBehind(holder, words, 2), neither);
    EXPECT_TRUE(m_sandbox.statusOf(u"vesk-test-troubled"_s).isEmpty());
    // Once it is let go of, the same queue goes through.
    EXPECT_EQ(run(words), (QStringList{ u"vesk-test-troubled 0 4"_s, u"vesk-test-sound 0 4"_s }));
}

TEST_F(TroubledDpkg, handsOverAPackageWhoseDependencyIsMissing)
{
    TestArchive needy = archive(u"vesk-test-troubled"_s, u"1.0"_s);
    needy.depends = u"vesk-test-nowhere"_s;
    EXPECT_EQ(run(queueOf(needy), 1), onlyTheSecond);
    EXPECT_EQ(m_sandbox.statusOf(needy.identifier), u"install ok unpacked 1.0"_s);
    EXPECT_TRUE(isSoundInstalled());
}

TEST_F(TroubledDpkg, handsOverAPackageThatWaitsForAnAnswerByATerminal)
{
    // There is none to open, and standard input cannot be read.
    const TestArchive curious = archive(u"vesk-test-troubled"_s, u"1.0"_s, u"cat && exit 0; exit 3"_s);
    EXPECT_EQ(run(queueOf(curious), 1), onlyTheSecond);
    EXPECT_EQ(m_sandbox.statusOf(curious.identifier), u"install ok half-configured 1.0"_s);
    EXPECT_TRUE(isSoundInstalled());
}

TEST_F(TroubledDpkg, goesOnWithTheQueueWhenItIsKilledHalfWay)
{
    const TestArchive killer = archive(u"vesk-test-troubled"_s, u"1.0"_s, u"kill -KILL $PPID"_s);
    EXPECT_EQ(run(queueOf(killer), 1), onlyTheSecond);
    EXPECT_EQ(m_sandbox.statusOf(killer.identifier), u"install ok half-configured 1.0"_s);
    EXPECT_TRUE(isSoundInstalled());
}

TEST_F(TroubledDpkg, handsOverAPackageThatTheDiskHasNoRoomFor)
{
    TestArchive large = archive(u"vesk-test-troubled"_s, u"1.0"_s);
    large.files.append({ u"/opt/vesk-test-troubled/data"_s, QByteArray(4 << 20, 'x') });
    EXPECT_EQ(run(queueOf(large), 1, { u"--size"_s, u"1048576"_s, u"--tmpfs"_s, u"/opt"_s }), onlyTheSecond);
    EXPECT_TRUE(isSoundInstalled());
}

TEST_F(TroubledDpkg, handsOverWhereThereIsNoDpkg)
{
    EXPECT_EQ(run(queueOf(archive(u"vesk-test-troubled"_s, u"1.0"_s)), 2,
                  { u"--ro-bind"_s, u"/dev/null"_s, u"/usr/bin/dpkg"_s }),
        neither);
    EXPECT_FALSE(isSoundInstalled());
}

// dpkg looks for the administrator's programs in the PATH that it is given, and it is given the one of this program.
TEST_F(TroubledDpkg, handsOverWhenThePathOfTheProgramLeavesOutTheAdministratorsFolders)
{
    const QStringList words = queueOf(archive(u"vesk-test-troubled"_s, u"1.0"_s));
    EXPECT_EQ(runBehind({ u"/usr/bin/env"_s, u"PATH=/usr/bin:/bin"_s }, words, 2), neither);
    EXPECT_FALSE(isSoundInstalled());
}
