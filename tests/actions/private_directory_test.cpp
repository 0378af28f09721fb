#include "actions/PrivateDirectory.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <pthread.h>
#include <sched.h>
#include <set>
#include <string>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

std::atomic<int> interruptions = 0;

class PrivateDirectoryTest : public testing::Test
{
protected:
    QString path(const QString& name = QStringLiteral("private")) const { return m_parent.filePath(name); }

    static unsigned modeOf(const QString& name)
    {
        struct stat information = {};
        return lstat(name.toUtf8().constData(), &information) == 0 ? information.st_mode : 0U;
    }

    static QByteArray contents(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
    }

    static void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    static QStringList entries(const QString& directory)
    {
        return QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    static std::set<int> openDescriptors()
    {
        std::set<int> descriptors;
        for (int descriptor = 0; descriptor < 256; ++descriptor)
            if (fcntl(descriptor, F_GETFD) != -1)
                descriptors.insert(descriptor);
        return descriptors;
    }

    // For this process alone, which gets file systems of its own.
    static bool makeReadOnly(const QString& directory)
    {
        const std::string user = std::to_string(getuid());
        const QByteArray name = QFile::encodeName(directory);
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return false;
        std::ofstream("/proc/self/setgroups") << "deny";
        std::ofstream("/proc/self/uid_map") << user << ' ' << user << " 1";
        return mount(name.constData(), name.constData(), nullptr, MS_BIND, nullptr) == 0
            && mount(nullptr, name.constData(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }

    bool store(const QString& name, const QByteArray& bytes) const
    {
        const auto directory = PrivateDirectory::open(path());
        const auto file = directory ? directory->makeFile() : nullptr;
        return file && file->write(bytes.constData(), bytes.size()) && file->moveTo(name);
    }

    // That of the open file of this name in the directory.
    int descriptorOf(const QString& name) const
    {
        for (const int descriptor : openDescriptors())
            if (QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(descriptor)) == path() + u'/' + name)
                return descriptor;
        return -1;
    }

    // Once the pipe is full, whoever writes to it is in the middle of a write.
    static void interruptWhenFull(pthread_t writing, int pipe)
    {
        for (int there = 0; there < fcntl(pipe, F_GETPIPE_SZ);) {
            ioctl(pipe, FIONREAD, &there);
            std::this_thread::yield();
        }
        for (int expected = 1; expected <= 50; ++expected) {
            pthread_kill(writing, SIGUSR1);
            while (interruptions < expected)
                std::this_thread::yield();
        }
    }

    // Until its other end is closed.
    static std::string allFrom(int pipe)
    {
        std::string bytes;
        std::array<char, 4096> piece = {};
        for (ssize_t count = 0; (count = read(pipe, piece.data(), piece.size())) > 0;)
            bytes.append(piece.data(), static_cast<std::size_t>(count));
        return bytes;
    }

    QTemporaryDir m_parent;
};

} // namespace

TEST_F(PrivateDirectoryTest, isMadeForItsUserAlone)
{
    const mode_t previous = umask(0);
    EXPECT_TRUE(PrivateDirectory::open(path()).has_value());
    umask(previous);
    EXPECT_EQ(modeOf(path()), S_IFDIR | 0700U);
}

TEST_F(PrivateDirectoryTest, isUsableUnderTheStrictestFileCreationMask)
{
    const mode_t previous = umask(0777);
    EXPECT_TRUE(PrivateDirectory::open(path()).has_value());
    umask(previous);
    EXPECT_EQ(modeOf(path()), S_IFDIR | 0700U);
}

TEST_F(PrivateDirectoryTest, isOpenedAgainWithWhatItHolds)
{
    ASSERT_TRUE(store(QStringLiteral("a"), "first"));
    ASSERT_TRUE(store(QStringLiteral("b"), "second"));
    EXPECT_EQ(entries(path()), (QStringList{ QStringLiteral("a"), QStringLiteral("b") }));
}

TEST_F(PrivateDirectoryTest, isNarrowedWhenItsModeIsWider)
{
    for (const mode_t mode : { 0777U, 0755U, 0701U, 01777U, 02700U }) {
        ASSERT_TRUE(QDir().mkpath(path()));
        ASSERT_EQ(chmod(path().toUtf8().constData(), mode), 0);
        EXPECT_TRUE(PrivateDirectory::open(path()).has_value());
        EXPECT_EQ(modeOf(path()), S_IFDIR | 0700U) << std::oct << mode;
    }
}

TEST_F(PrivateDirectoryTest, isRefusedWhenItBelongsToAnotherUser)
{
    ASSERT_EQ(mkdir(path().toUtf8().constData(), 0700), 0);
    if (geteuid() == 0) {
        ASSERT_EQ(chown(path().toUtf8().constData(), 65534, 65534), 0);
        EXPECT_FALSE(PrivateDirectory::open(path()).has_value());
        EXPECT_EQ(modeOf(path()), S_IFDIR | 0700U);
    } else {
        // The root directory is there on every machine, and not ours.
        EXPECT_FALSE(PrivateDirectory::open(QStringLiteral("/")).has_value());
    }
}

TEST_F(PrivateDirectoryTest, isRefusedWhenASymbolicLinkStandsInItsPlace)
{
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("elsewhere"))));
    ASSERT_TRUE(QFile::link(path(QStringLiteral("elsewhere")), path()));
    EXPECT_FALSE(PrivateDirectory::open(path()).has_value());
    EXPECT_TRUE(entries(path(QStringLiteral("elsewhere"))).isEmpty());
}

TEST_F(PrivateDirectoryTest, isRefusedWhenASymbolicLinkLeadsNowhere)
{
    ASSERT_TRUE(QFile::link(path(QStringLiteral("nowhere")), path()));
    EXPECT_FALSE(PrivateDirectory::open(path()).has_value());
    EXPECT_EQ(modeOf(path(QStringLiteral("nowhere"))), 0U);
}

TEST_F(PrivateDirectoryTest, isRefusedWhenAFileStandsInItsPlace)
{
    write(path(), "in the way");
    EXPECT_FALSE(PrivateDirectory::open(path()).has_value());
    EXPECT_EQ(contents(path()), "in the way");
}

TEST_F(PrivateDirectoryTest, isRefusedWithoutAParentOrAName)
{
    EXPECT_FALSE(PrivateDirectory::open(path(QStringLiteral("missing/private"))).has_value());
    EXPECT_FALSE(PrivateDirectory::open(QString()).has_value());
}

TEST_F(PrivateDirectoryTest, isTheFirstThatCanBeOpened)
{
    write(path(QStringLiteral("taken")), "a file");
    const auto directory = PrivateDirectory::openFirst(
        { path(QStringLiteral("taken")), path(QStringLiteral("taken/below")), path(), path(QStringLiteral("spare")) });
    ASSERT_TRUE(directory.has_value());
    EXPECT_EQ(directory->pathOf(QStringLiteral("a")), path() + QStringLiteral("/a"));
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("spare"))));
    EXPECT_FALSE(PrivateDirectory::openFirst({ path(QStringLiteral("taken")) }).has_value());
    EXPECT_FALSE(PrivateDirectory::openFirst({}).has_value());
}

TEST_F(PrivateDirectoryTest, isNotWhereItsFileSystemCanOnlyBeRead)
{
    const QString spare = path(QStringLiteral("spare"));
    ASSERT_TRUE(PrivateDirectory::open(path()).has_value());
    const auto opensSpare = [this, &spare] {
        const auto directory = PrivateDirectory::openFirst({ path(), spare });
        return directory && directory->pathOf(QStringLiteral("a")) == spare + QStringLiteral("/a");
    };
    EXPECT_EXIT(std::_Exit(makeReadOnly(path()) ? (opensSpare() ? 0 : 1) : 2), testing::ExitedWithCode(0), "");
}

TEST_F(PrivateDirectoryTest, isMadeWithItsParentsForItsUserAlone)
{
    const mode_t previous = umask(0);
    EXPECT_TRUE(PrivateDirectory::openFirst({ path(QStringLiteral("cache/vesk/archives")) }).has_value());
    umask(previous);
    for (const QString& name :
        { QStringLiteral("cache"), QStringLiteral("cache/vesk"), QStringLiteral("cache/vesk/archives") })
        EXPECT_EQ(modeOf(path(name)), S_IFDIR | 0700U) << name.toStdString();
}

TEST_F(PrivateDirectoryTest, isMadeWithItsParentsBelowTheCurrentDirectory)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_parent.path()));
    EXPECT_TRUE(PrivateDirectory::openFirst({ QStringLiteral("c/archives") }).has_value());
    EXPECT_TRUE(QDir::setCurrent(before));
    EXPECT_EQ(modeOf(path(QStringLiteral("c/archives"))), S_IFDIR | 0700U);
}

// Some file systems tell only then that there was no room.
TEST_F(PrivateDirectoryTest, failsWhenTheCloseOfAFileFails)
{
    const auto directory = PrivateDirectory::open(path());
    const std::set<int> before = openDescriptors();
    const auto file = directory->makeFile();
    ASSERT_TRUE(file->write("contents", 8));
    for (const int descriptor : openDescriptors()) {
        if (!before.contains(descriptor)) {
            ASSERT_EQ(close(descriptor), 0);
        }
    }
    EXPECT_FALSE(file->moveTo(QStringLiteral("archive")));
    EXPECT_TRUE(entries(path()).isEmpty());
}

// A program that is started meanwhile, dpkg above all, must not hold on to them.
TEST_F(PrivateDirectoryTest, keepsItsDescriptorsFromChildren)
{
    const std::set<int> before = openDescriptors();
    const auto directory = PrivateDirectory::open(path());
    ASSERT_TRUE(directory.has_value());
    const auto file = directory->makeFile();
    ASSERT_NE(file, nullptr);
    int opened = 0;
    for (const int descriptor : openDescriptors()) {
        if (before.contains(descriptor))
            continue;
        ++opened;
        EXPECT_EQ(fcntl(descriptor, F_GETFD), FD_CLOEXEC);
    }
    EXPECT_EQ(opened, 2);
}

TEST_F(PrivateDirectoryTest, keepsAFileUnderItsFinalNameForItsUserAlone)
{
    ASSERT_TRUE(store(QStringLiteral("archive"), "contents"));
    EXPECT_EQ(contents(path(QStringLiteral("private/archive"))), "contents");
    EXPECT_EQ(modeOf(path(QStringLiteral("private/archive"))), S_IFREG | 0600U);
}

TEST_F(PrivateDirectoryTest, replacesAFileOfTheSameNameWhole)
{
    ASSERT_TRUE(store(QStringLiteral("archive"), "a long old text"));
    ASSERT_TRUE(store(QStringLiteral("archive"), "new"));
    EXPECT_EQ(contents(path(QStringLiteral("private/archive"))), "new");
}

TEST_F(PrivateDirectoryTest, replacesASymbolicLinkItselfAndNotWhatItLeadsTo)
{
    ASSERT_TRUE(PrivateDirectory::open(path()).has_value());
    write(path(QStringLiteral("victim")), "precious");
    ASSERT_TRUE(QFile::link(path(QStringLiteral("victim")), path(QStringLiteral("private/archive"))));
    ASSERT_TRUE(store(QStringLiteral("archive"), "new"));
    EXPECT_EQ(contents(path(QStringLiteral("victim"))), "precious");
    EXPECT_EQ(modeOf(path(QStringLiteral("private/archive"))), S_IFREG | 0600U);
    EXPECT_EQ(contents(path(QStringLiteral("private/archive"))), "new");
}

TEST_F(PrivateDirectoryTest, failsWhenADirectoryHasTheFinalName)
{
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("private/archive"))));
    EXPECT_FALSE(store(QStringLiteral("archive"), "new"));
    EXPECT_EQ(entries(path()), QStringList{ QStringLiteral("archive") });
}

TEST_F(PrivateDirectoryTest, writesEachFileUnderANameOfItsOwnThatNobodyCanPredict)
{
    const auto directory = PrivateDirectory::open(path());
    ASSERT_TRUE(directory.has_value());
    std::set<QString> names;
    for (int round = 0; round < 64; ++round) {
        const auto file = directory->makeFile();
        ASSERT_NE(file, nullptr);
        ASSERT_EQ(entries(path()).size(), 1);
        names.insert(entries(path()).constFirst());
        EXPECT_GE(entries(path()).constFirst().size(), 24);
    }
    EXPECT_EQ(names.size(), 64U);
}

TEST_F(PrivateDirectoryTest, makesNoFileOnceItIsGone)
{
    const auto directory = PrivateDirectory::open(path());
    ASSERT_TRUE(directory.has_value());
    ASSERT_EQ(rmdir(path().toUtf8().constData()), 0);
    EXPECT_EQ(directory->makeFile(), nullptr);
}

TEST_F(PrivateDirectoryTest, keepsAFileOfASingleByte)
{
    EXPECT_TRUE(store(QStringLiteral("archive"), "x"));
    EXPECT_EQ(contents(path() + QStringLiteral("/archive")), "x");
}

// A pipe in the file's place is full at times, so that a write ends in its middle or before it has begun.
TEST_F(PrivateDirectoryTest, writesEveryByteInItsOrderWhenSignalsInterruptIt)
{
    struct sigaction action = {};
    struct sigaction previous = {};
    action.sa_handler = [](int) { ++interruptions; };
    ASSERT_EQ(sigaction(SIGUSR1, &action, &previous), 0);
    const auto directory = PrivateDirectory::open(path());
    const auto file = directory->makeFile();
    std::array<int, 2> pipe = {};
    ASSERT_EQ(pipe2(pipe.data(), O_CLOEXEC), 0);
    ASSERT_GE(dup2(pipe[1], descriptorOf(entries(path()).constFirst())), 0);
    close(pipe[1]);

    std::string bytes(1000000, '\0');
    for (std::size_t place = 0; place < bytes.size(); ++place)
        bytes[place] = static_cast<char>(place % 251);
    std::string received;
    std::thread reader([&, writing = pthread_self()] {
        interruptWhenFull(writing, pipe[0]);
        received = allFrom(pipe[0]);
    });
    EXPECT_TRUE(file->write(bytes.data(), static_cast<qint64>(bytes.size())));
    EXPECT_TRUE(file->moveTo(QStringLiteral("archive")));
    reader.join();
    close(pipe[0]);
    sigaction(SIGUSR1, &previous, nullptr);
    EXPECT_TRUE(received == bytes);
}

TEST_F(PrivateDirectoryTest, leavesNothingOfAFileThatGetsNoFinalName)
{
    const auto directory = PrivateDirectory::open(path());
    ASSERT_TRUE(directory.has_value());
    EXPECT_TRUE(directory->makeFile()->write("half", 4));
    EXPECT_TRUE(entries(path()).isEmpty());
}

TEST_F(PrivateDirectoryTest, refusesANameThatIsNotOnePlainName)
{
    const QStringList names = { QString(), QStringLiteral(""), QStringLiteral("."), QStringLiteral(".."),
        QStringLiteral("../archive"), QStringLiteral("/archive"), QStringLiteral("a/b"), QStringLiteral("archive/"),
        QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b"), QString(256, u'a'), QString(128, u'é') };
    for (const QString& name : names) {
        EXPECT_FALSE(isPlainFileName(name)) << name.toStdString();
        EXPECT_FALSE(store(name, "contents")) << name.toStdString();
        EXPECT_TRUE(entries(path()).isEmpty()) << name.toStdString();
    }
    EXPECT_EQ(entries(m_parent.path()), QStringList{ QStringLiteral("private") });
}

TEST_F(PrivateDirectoryTest, acceptsEveryPlainName)
{
    const QStringList names
        = { QStringLiteral("a"), QStringLiteral("..."), QStringLiteral("..a"), QStringLiteral("a b"),
              QStringLiteral("1:2.0~b+c%2f"), QStringLiteral("-rf"), QString(255, u'a'), QString(127, u'é') };
    for (const QString& name : names) {
        EXPECT_TRUE(isPlainFileName(name)) << name.toStdString();
        EXPECT_TRUE(store(name, "contents")) << name.toStdString();
        EXPECT_EQ(contents(path() + u'/' + name), "contents") << name.toStdString();
    }
}

TEST_F(PrivateDirectoryTest, tellsThatNotEveryByteCouldBeWritten)
{
    struct rlimit previous = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &previous), 0);
    const auto previousHandler = signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small = { 1000, previous.rlim_max };
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    {
        const auto directory = PrivateDirectory::open(path());
        const auto file = directory->makeFile();
        const QByteArray bytes(1500, 'x');
        EXPECT_FALSE(file->write(bytes.constData(), bytes.size()));
    }
    setrlimit(RLIMIT_FSIZE, &previous);
    signal(SIGXFSZ, previousHandler);
    EXPECT_TRUE(entries(path()).isEmpty());
}
