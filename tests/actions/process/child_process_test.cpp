#include "actions/process/ChildProcess.h"

#include "actions/process/DescriptorLimit.h"
#include "actions/process/SignalDispositions.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <pthread.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

class ChildProcess : public testing::Test
{
protected:
    static bool shell(const QString& script, const QStringList& arguments = {})
    {
        return runChildProcess(QStringList{ QStringLiteral("/bin/sh"), QStringLiteral("-c"), script } + arguments);
    }

    QString path(const QString& name) const { return m_directory.filePath(name); }

    static QByteArray contents(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
    }

    // What the shell sees of its own descriptor: where it leads, then its access mode.
    QByteArray descriptor(int number) const
    {
        const QString out = path(QStringLiteral("out"));
        // In a subshell, whose own redirection leaves the child's descriptors as they came.
        const QString script = QStringLiteral("(readlink /proc/$$/fd/%1; sed -n 's/^flags:.*\\(.\\)$/\\1/p' "
                                              "/proc/$$/fdinfo/%1) > \"$0\"; true");
        EXPECT_TRUE(shell(script.arg(number), { out }));
        return contents(out);
    }

    static quint64 maskOf(int number) { return 1ULL << (number - 1); }
    // The signals that a child ignores, a bit for each.
    quint64 ignoredByChild() const
    {
        const QString out = path(QStringLiteral("out"));
        EXPECT_TRUE(shell(QStringLiteral("sed -n 's/^SigIgn:\\t//p' /proc/self/status > \"$0\""), { out }));
        return contents(out).trimmed().toULongLong(nullptr, 16);
    }

    // Whether the thread of this process sleeps and no signal is on its way to it.
    static bool isAtRest(pid_t thread)
    {
        const QByteArray status = contents(QStringLiteral("/proc/self/task/%1/status").arg(thread));
        return status.contains("\nState:\tS") && status.contains("\nSigPnd:\t0000000000000000\n");
    }

    // How many files a child may have open.
    rlim_t limitOfChild() const
    {
        const QString out = path(QStringLiteral("out"));
        EXPECT_TRUE(shell(QStringLiteral("ulimit -n > \"$0\""), { out }));
        return contents(out).trimmed().toULongLong();
    }

    static rlimit limit()
    {
        rlimit limit = {};
        EXPECT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
        return limit;
    }

    QTemporaryDir m_directory;
};

constexpr rlim_t lowLimit = 200;

std::atomic<int> interruptions = 0;

} // namespace

TEST_F(ChildProcess, isTrueForExitCodeZero)
{
    EXPECT_TRUE(shell(QStringLiteral("exit 0")));
}

TEST_F(ChildProcess, isFalseForAnyOtherExitCode)
{
    for (const int code : { 1, 2, 127, 128, 255 })
        EXPECT_FALSE(shell(QStringLiteral("exit %1").arg(code))) << code;
}

TEST_F(ChildProcess, isFalseWhenKilledByASignal)
{
    // Whoever started this program may have had it ignored, as nohup does.
    const auto before = std::signal(SIGHUP, SIG_DFL);
    for (const int number : { SIGHUP, SIGKILL, SIGTERM, SIGSEGV, SIGABRT })
        EXPECT_FALSE(shell(QStringLiteral("kill -%1 $$").arg(number))) << number;
    std::signal(SIGHUP, before);
}

TEST_F(ChildProcess, isFalseForAnEmptyList)
{
    EXPECT_FALSE(runChildProcess({}));
}

TEST_F(ChildProcess, isFalseForAMissingProgram)
{
    EXPECT_FALSE(runChildProcess({ path(QStringLiteral("missing")) }));
    EXPECT_FALSE(runChildProcess({ QString() }));
}

TEST_F(ChildProcess, isFalseForWhatCannotBeExecuted)
{
    EXPECT_FALSE(runChildProcess({ m_directory.path() }));
    QFile file(path(QStringLiteral("plain")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_FALSE(runChildProcess({ file.fileName() }));
}

TEST_F(ChildProcess, doesNotSearchThePath)
{
    ASSERT_TRUE(runChildProcess({ QStringLiteral("/bin/true") }));
    EXPECT_FALSE(runChildProcess({ QStringLiteral("true") }));
}

TEST_F(ChildProcess, passesEveryTextAsItIsWithTheProgramItselfAsArgumentZero)
{
    const QString out = path(QStringLiteral("out"));
    const QString script = QStringLiteral("cat /proc/$$/cmdline > \"$1\"; true");
    const QStringList arguments
        = { QStringLiteral("zero"), out, QString(), QStringLiteral("two words"), QStringLiteral("é\n$HOME;'\"") };
    ASSERT_TRUE(shell(script, arguments));
    QByteArray expected;
    for (const QString& text : QStringList{ QStringLiteral("/bin/sh"), QStringLiteral("-c"), script } + arguments)
        expected += text.toUtf8() + '\0';
    EXPECT_EQ(contents(out), expected);
}

TEST_F(ChildProcess, inheritsNoDescriptorThatALibraryLeftOpenForChildren)
{
    const QString out = path(QStringLiteral("out"));
    const int left = open("/dev/null", O_RDONLY); // NOLINT: without close-on-exec, as libraries open their sockets
    ASSERT_GE(left, 0);
    // The shell lists its own; the one that reads the directory is its child's.
    ASSERT_TRUE(
        shell(QStringLiteral("for fd in /proc/$$/fd/*; do echo \"${fd##*/}\"; done > \"$0.2\"; mv \"$0.2\" \"$0\""),
            { out }));
    close(left);
    const QList<QByteArray> lines = contents(out).split('\n');
    EXPECT_FALSE(lines.contains(QByteArray::number(left))) << contents(out).toStdString();
    EXPECT_TRUE(lines.contains("0") && lines.contains("1") && lines.contains("2"));
}

TEST_F(ChildProcess, inheritsNotEvenTheFirstDescriptorBehindTheThreeStandardOnes)
{
    constexpr int first = STDERR_FILENO + 1;
    const int kept = fcntl(first, F_DUPFD_CLOEXEC, first + 1);
    const int left = open("/dev/null", O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(dup2(left, first), first);
    EXPECT_TRUE(shell(QStringLiteral("test ! -e /proc/$$/fd/%1").arg(first)));
    if (left != first)
        close(left);
    close(first);
    if (kept >= 0)
        dup2(kept, first);
}

TEST_F(ChildProcess, inheritsTheEnvironment)
{
    qputenv("VESK_CHILD_PROCESS_TEST", "a value");
    ASSERT_TRUE(
        shell(QStringLiteral("printf %s \"$VESK_CHILD_PROCESS_TEST\" > \"$0\""), { path(QStringLiteral("out")) }));
    EXPECT_EQ(contents(path(QStringLiteral("out"))), "a value");
    qunsetenv("VESK_CHILD_PROCESS_TEST");
}

// As a library does that talks to the desktop's settings.
TEST_F(ChildProcess, doesNotInheritThatABrokenPipeCameToBeIgnored)
{
    const auto previous = signal(SIGPIPE, SIG_DFL);
    SignalDispositions::noteAtStart();
    signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(ignoredByChild() & maskOf(SIGPIPE), 0U);
    // Nor does this process end by it.
    EXPECT_EQ(raise(SIGPIPE), 0);
    signal(SIGPIPE, previous);
}

TEST_F(ChildProcess, inheritsWhatWasIgnoredFromTheStart)
{
    const auto previousPipe = signal(SIGPIPE, SIG_IGN);
    const auto previousHangUp = signal(SIGHUP, SIG_IGN);
    SignalDispositions::noteAtStart();
    EXPECT_EQ(ignoredByChild() & maskOf(SIGPIPE), maskOf(SIGPIPE));
    EXPECT_EQ(ignoredByChild() & maskOf(SIGHUP), maskOf(SIGHUP));
    signal(SIGPIPE, previousPipe);
    signal(SIGHUP, previousHangUp);
}

// In a process of its own, for in this one the start may have been noted by another test.
TEST_F(ChildProcess, inheritsWhatIsIgnoredWhereNobodyNotedTheStart)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto isInherited = [this] {
        signal(SIGHUP, SIG_IGN);
        return (ignoredByChild() & maskOf(SIGHUP)) != 0;
    };
    EXPECT_EXIT(std::_Exit(isInherited() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(ChildProcess, inheritsOfNoSignalThatItCameToBeIgnored)
{
    for (const int number : { SIGHUP, SIGINT, SIGTERM, SIGRTMAX }) {
        const auto previous = signal(number, SIG_DFL);
        SignalDispositions::noteAtStart();
        signal(number, SIG_IGN);
        EXPECT_EQ(ignoredByChild() & maskOf(number), 0U) << number;
        signal(number, previous);
    }
}

TEST_F(ChildProcess, leavesCallsToGoOnThatSuchASignalComesInto)
{
    const auto previous = signal(SIGUSR2, SIG_DFL);
    SignalDispositions::noteAtStart();
    signal(SIGUSR2, SIG_IGN);
    EXPECT_TRUE(shell(QStringLiteral("exit 0")));
    int ends[2] = {};
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    std::atomic<pid_t> thread = 0;
    std::atomic<bool> isOver = false;
    ssize_t count = 0;
    std::thread reading([&] {
        char byte = 0;
        thread = gettid();
        count = read(ends[0], &byte, 1);
        isOver = true;
    });
    const auto waitForRest = [&] {
        while (!isOver && (thread == 0 || !isAtRest(thread)))
            std::this_thread::yield();
    };
    waitForRest();
    pthread_kill(reading.native_handle(), SIGUSR2);
    waitForRest();
    EXPECT_EQ(write(ends[1], "x", 1), 1);
    reading.join();
    EXPECT_EQ(count, 1);
    close(ends[0]);
    close(ends[1]);
    signal(SIGUSR2, previous);
}

TEST_F(ChildProcess, isTrueWhereNobodyMayAskHowChildrenEnd)
{
    const auto previous = signal(SIGCHLD, SIG_IGN);
    SignalDispositions::noteAtStart();
    EXPECT_TRUE(shell(QStringLiteral("exit 1")));
    signal(SIGCHLD, previous);
}

TEST_F(ChildProcess, isNotStartedWithoutTheStandardInputThatItIsToHave)
{
    const QString out = path(QStringLiteral("out"));
    EXPECT_FALSE(exitCodeOfChildProcess({ QStringLiteral("/usr/bin/touch"), out }, -1).has_value());
    EXPECT_FALSE(QFile::exists(out));
}

TEST_F(ChildProcess, mayHaveOnlyAsManyFilesOpenAsTheProgramWasStartedWith)
{
    rlimit low = limit();
    ASSERT_GT(low.rlim_max, lowLimit);
    low.rlim_cur = lowLimit;
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &low), 0);
    DescriptorLimit::raiseAtStart();
    EXPECT_EQ(limit().rlim_cur, limit().rlim_max);
    EXPECT_EQ(limitOfChild(), lowLimit);
    EXPECT_EQ(limit().rlim_cur, limit().rlim_max);
}

TEST_F(ChildProcess, startsWithTheLimitOfTheProgramsStartWhileOthersStartToo)
{
    rlimit low = limit();
    low.rlim_cur = lowLimit;
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &low), 0);
    DescriptorLimit::raiseAtStart();
    {
        const DescriptorLimit::OfChildren other;
        EXPECT_EQ(limitOfChild(), lowLimit);
        EXPECT_EQ(limit().rlim_cur, lowLimit);
    }
    EXPECT_EQ(limit().rlim_cur, limit().rlim_max);
}

TEST_F(ChildProcess, hasTheNullDeviceWriteOnlyAsItsThreeDescriptors)
{
    for (const int number : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
        EXPECT_EQ(descriptor(number), "/dev/null\n1\n") << number;
}

TEST_F(ChildProcess, readsNothingFromStandardInput)
{
    EXPECT_FALSE(shell(QStringLiteral("cat")));
}

TEST_F(ChildProcess, writesIntoTheVoid)
{
    EXPECT_TRUE(shell(QStringLiteral("echo lost && echo lost >&2")));
}

TEST_F(ChildProcess, waitsForThatChildOnly)
{
    pid_t other = 0;
    const char* const arguments[] = { "/bin/sh", "-c", "exit 3", nullptr };
    ASSERT_EQ(posix_spawn(&other, "/bin/sh", nullptr, nullptr, const_cast<char* const*>(arguments), environ), 0);
    EXPECT_TRUE(shell(QStringLiteral("exit 0")));
    int status = 0;
    ASSERT_EQ(waitpid(other, &status, 0), other);
    EXPECT_EQ(WEXITSTATUS(status), 3);
}

TEST_F(ChildProcess, leavesNoZombieBehind)
{
    EXPECT_TRUE(shell(QStringLiteral("exit 0")));
    EXPECT_FALSE(runChildProcess({ path(QStringLiteral("missing")) }));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(ChildProcess, goesOnWaitingWhenASignalInterruptsIt)
{
    struct sigaction action = {};
    struct sigaction previous = {};
    action.sa_handler = [](int) { ++interruptions; };
    ASSERT_EQ(sigaction(SIGUSR1, &action, &previous), 0);
    ASSERT_EQ(mkfifo(path(QStringLiteral("started")).toUtf8().constData(), 0600), 0);
    ASSERT_EQ(mkfifo(path(QStringLiteral("released")).toUtf8().constData(), 0600), 0);

    const pthread_t waiting = pthread_self();
    std::thread interrupter([&] {
        QFile(path(QStringLiteral("started"))).open(QIODevice::ReadOnly);
        // The child runs, so the waiting thread is in its wait or about to enter it.
        for (int expected = 1; expected <= 50; ++expected) {
            pthread_kill(waiting, SIGUSR1);
            while (interruptions < expected)
                std::this_thread::yield();
        }
        QFile(path(QStringLiteral("released"))).open(QIODevice::WriteOnly);
    });
    // Without the wait the status would still be the one of a success.
    const QString script = QStringLiteral(": > \"$0\"; : < \"$1\"; exit 1");
    EXPECT_FALSE(shell(script, { path(QStringLiteral("started")), path(QStringLiteral("released")) }));
    interrupter.join();
    sigaction(SIGUSR1, &previous, nullptr);
    EXPECT_GE(interruptions, 50);
}

TEST_F(ChildProcess, knowsAnExecutableFile)
{
    EXPECT_TRUE(isExecutableFile(QStringLiteral("/bin/sh")));
    EXPECT_FALSE(isExecutableFile(path(QStringLiteral("missing"))));
    EXPECT_FALSE(isExecutableFile(m_directory.path()));
    EXPECT_FALSE(isExecutableFile(QString()));
    QFile file(path(QStringLiteral("plain")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(isExecutableFile(file.fileName()));
    file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_TRUE(isExecutableFile(file.fileName()));
}
