// The stored list of sources on a disk that fails.
#include "catalog/sources/JsonSourceStore.h"
#include "http/Client.h"
#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/sources/FaultyDisk.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

class StoreOnAFaultyDisk : public testing::Test
{
protected:
    StoreOnAFaultyDisk()
    {
        EXPECT_TRUE(JsonSourceStore(path()).setSources(m_old));
        m_oldContents = contents();
    }

    QString path() const { return m_directory.filePath(QStringLiteral("defaults.json")); }

    QByteArray contents() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
    }

    void write(const QByteArray& bytes) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QStringList filesThere() const { return QDir(m_directory.path()).entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<JsonSourceStore> store() const
    {
        return std::make_unique<JsonSourceStore>(path(), std::make_unique<FaultyDisk>(m_disk));
    }

    std::unique_ptr<RepoManager> manager() const
    {
        CatalogWorld world;
        world.store = store();
        world.network = std::make_unique<http::Client>();
        world.workers = std::make_shared<Workers>();
        return std::make_unique<RepoManager>(std::move(world));
    }

    QTemporaryDir m_directory;
    std::shared_ptr<DiskRecord> m_disk = std::make_shared<DiskRecord>();
    const std::vector<StoredSource> m_old{ { QStringLiteral("https://old"), QStringLiteral("Old"), true } };
    const std::vector<StoredSource> m_new{ { QStringLiteral("https://new"), QStringLiteral("New"), false } };
    QByteArray m_oldContents;
};

TEST_F(StoreOnAFaultyDisk, bringsTheFileToTheDiskBeforeItsNameAndTheNameAfterThat)
{
    ASSERT_TRUE(store()->setSources(m_new));
    EXPECT_EQ(m_disk->calls,
        QStringList({ QStringLiteral("open to read"), QStringLiteral("read"), QStringLiteral("close file"),
            QStringLiteral("open to write"), QStringLiteral("write"), QStringLiteral("fsync file"),
            QStringLiteral("close file"), QStringLiteral("rename"), QStringLiteral("open directory"),
            QStringLiteral("fsync directory"), QStringLiteral("close directory") }));
}

TEST_F(StoreOnAFaultyDisk, keepsTheOldListWhateverFailsUntilTheNewOneIsSafe)
{
    for (const QString& step : { QStringLiteral("open to write"), QStringLiteral("write"), QStringLiteral("fsync file"),
             QStringLiteral("close file"), QStringLiteral("rename") }) {
        m_disk->failing = QStringList(step);
        EXPECT_FALSE(store()->setSources(m_new)) << step.toStdString();
        EXPECT_EQ(contents(), m_oldContents) << step.toStdString();
        EXPECT_EQ(filesThere(), QStringList(QStringLiteral("defaults.json"))) << step.toStdString();
    }
}

TEST_F(StoreOnAFaultyDisk, saysSoWhenTheNewNameIsNotBroughtToTheDisk)
{
    for (const QString& step : { QStringLiteral("open directory"), QStringLiteral("fsync directory") }) {
        m_disk->failing = QStringList(step);
        EXPECT_FALSE(store()->setSources(m_new)) << step.toStdString();
        EXPECT_EQ(JsonSourceStore(path()).sources(), m_new);
    }
}

TEST_F(StoreOnAFaultyDisk, removesWhatAKilledProgramLeftAndNothingThatALivingOneWritesTo)
{
    const QString left = path() + QStringLiteral(".new-0123456789abc");
    const QString written = path() + QStringLiteral(".new-z");
    ASSERT_TRUE(QFile::copy(path(), left));
    ASSERT_TRUE(QFile::copy(path(), written));
    const int writer = ::open(QFile::encodeName(written).constData(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(writer, LOCK_EX), 0);
    ASSERT_TRUE(store()->setSources(m_new));
    EXPECT_FALSE(QFile::exists(left));
    EXPECT_TRUE(QFile::exists(written));
    ::close(writer);
    ASSERT_TRUE(store()->setSources(m_new));
    EXPECT_EQ(filesThere(), QStringList(QStringLiteral("defaults.json")));
}

TEST_F(StoreOnAFaultyDisk, makesRoomBeforeItWritesAndNotAfter)
{
    const QString left = path() + QStringLiteral(".new-1");
    ASSERT_TRUE(QFile::copy(path(), left));
    m_disk->failing = QStringList(QStringLiteral("write"));
    EXPECT_FALSE(store()->setSources(m_new));
    EXPECT_FALSE(QFile::exists(left));
}

TEST_F(StoreOnAFaultyDisk, leavesAloneWhatOnlyLooksLikeAnUnfinishedFile)
{
    QStringList others{ QStringLiteral("defaults.json.new-"), QStringLiteral("defaults.json.new-0123456789abcd"),
        QStringLiteral("defaults.json.new-A"), QStringLiteral("defaults.json.new-1.orig"),
        QStringLiteral("defaults.json.news"), QStringLiteral("my-defaults.json.new-1"),
        QStringLiteral("other.json.new-1") };
    for (const QString& name : others)
        ASSERT_TRUE(QFile::copy(path(), m_directory.filePath(name)));
    const QString directory = path() + QStringLiteral(".new-1");
    ASSERT_TRUE(QDir().mkpath(directory));
    const QString link = path() + QStringLiteral(".new-2");
    ASSERT_TRUE(QFile::link(m_directory.filePath(QStringLiteral("other.json.new-1")), link));
    ASSERT_TRUE(store()->setSources(m_new));
    for (const QString& name : others)
        EXPECT_TRUE(QFile::exists(m_directory.filePath(name))) << name.toStdString();
    EXPECT_TRUE(QFileInfo(directory).isDir());
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_F(StoreOnAFaultyDisk, holdsTheNewFileUntilItHasItsName)
{
    bool wasHeld = false;
    m_disk->atRenaming = [&](const char* from) {
        const int other = ::open(from, O_RDWR | O_CLOEXEC);
        wasHeld = ::flock(other, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        ::close(other);
    };
    ASSERT_TRUE(store()->setSources(m_new));
    EXPECT_TRUE(wasHeld);
}

TEST_F(StoreOnAFaultyDisk, doesNotEmptyTheFileWhenASwitchIsTouchedWhileTheDiskIsFull)
{
    const auto full = manager();
    m_disk->failing = QStringList(QStringLiteral("write"));
    full->toggleRepository(full->repositories()[0], false);
    EXPECT_EQ(contents(), m_oldContents);
    EXPECT_FALSE(full->repositories()[0]->enabled());
    m_disk->failing.clear();
    full->toggleRepository(full->repositories()[0], false);
    EXPECT_EQ(JsonSourceStore(path()).sources(),
        std::vector<StoredSource>({ { QStringLiteral("https://old"), QStringLiteral("Old"), false } }));
}

TEST_F(StoreOnAFaultyDisk, writesAndReadsInPiecesAndAfterInterruptions)
{
    for (const std::size_t piece : { 1U, 3U }) {
        m_disk->largestPiece = piece;
        m_disk->interruptions = 2;
        const auto slow = store();
        ASSERT_TRUE(slow->setSources(m_new)) << piece;
        m_disk->interruptions = 2;
        EXPECT_EQ(slow->sources(), m_new) << piece;
        EXPECT_EQ(JsonSourceStore(path()).sources(), m_new) << piece;
    }
}

TEST_F(StoreOnAFaultyDisk, isNotReadBeyondWhatThereIsRoomForWhenItComesInPieces)
{
    m_disk->largestPiece = 10;
    EXPECT_EQ(store()->sources(), m_old);
    EXPECT_EQ(m_disk->furthestRead, static_cast<std::size_t>(m_oldContents.size()));
}

// An interruption is long over when the end of the file comes.
TEST_F(StoreOnAFaultyDisk, isReadToItsNewEndWhenItIsCutMeanwhile)
{
    m_disk->interruptions = 1;
    m_disk->atReading = [this] {
        write("{\"VeskDefaultRepos_v1\":[]}");
        if (m_disk->calls.count(QStringLiteral("read")) > 10)
            m_disk->failing = QStringList(QStringLiteral("read"));
    };
    EXPECT_EQ(store()->sources(), std::vector<StoredSource>());
}

TEST_F(StoreOnAFaultyDisk, saysSoWhenItTakesNotASingleByte)
{
    ASSERT_TRUE(QFile::remove(path()));
    m_disk->largestPiece = 0;
    EXPECT_FALSE(store()->setSources(m_new));
    EXPECT_TRUE(filesThere().isEmpty());
}

TEST_F(StoreOnAFaultyDisk, takesAFileThatCannotBeReadForNoDamage)
{
    for (const QString& step : { QStringLiteral("open to read"), QStringLiteral("read") }) {
        for (const int error : { EACCES, EMFILE, EIO }) {
            m_disk->failing = QStringList(step);
            m_disk->error = error;
            const auto blind = store();
            EXPECT_FALSE(blind->sources().has_value());
            EXPECT_FALSE(blind->setSources(m_new)) << step.toStdString() << error;
            // The list in memory is not that of the file: to write it now would lose the file's.
            m_disk->failing.clear();
            EXPECT_FALSE(blind->setSources(m_new)) << step.toStdString() << error;
            EXPECT_EQ(contents(), m_oldContents);
            EXPECT_EQ(filesThere(), QStringList(QStringLiteral("defaults.json")));
        }
    }
}

TEST_F(StoreOnAFaultyDisk, writesAgainOnceTheFileHasBeenReadAfterAll)
{
    m_disk->failing = QStringList(QStringLiteral("open to read"));
    const auto blind = store();
    EXPECT_FALSE(blind->sources().has_value());
    m_disk->failing.clear();
    EXPECT_EQ(blind->sources(), m_old);
    EXPECT_TRUE(blind->setSources(m_new));
    EXPECT_EQ(JsonSourceStore(path()).sources(), m_new);
}

TEST_F(StoreOnAFaultyDisk, triesTheNextEditAgainWhenTheFileCouldNotBeReadForOne)
{
    const auto store = this->store();
    EXPECT_EQ(store->sources(), m_old);
    m_disk->failing = QStringList(QStringLiteral("open to read"));
    EXPECT_FALSE(store->setSources(m_new));
    EXPECT_EQ(contents(), m_oldContents);
    m_disk->failing.clear();
    EXPECT_TRUE(store->setSources(m_new));
}

TEST_F(StoreOnAFaultyDisk, startsThisRunFromTheDefaultsAndTheNextFromTheUsersOwnWhenItCannotBeRead)
{
    m_disk->failing = QStringList(QStringLiteral("open to read"));
    m_disk->error = EMFILE;
    const auto blind = manager();
    EXPECT_EQ(blind->repositories().size(), 4U);
    m_disk->failing.clear();
    blind->removeRepository(blind->repositories()[0]);
    EXPECT_EQ(blind->repositories().size(), 3U);
    EXPECT_EQ(contents(), m_oldContents);
    ASSERT_EQ(manager()->repositories().size(), 1U);
    EXPECT_EQ(manager()->repositories()[0]->name(), QStringLiteral("Old"));
}

TEST_F(StoreOnAFaultyDisk, leavesALinkThatLeadsNowhereAlone)
{
    ASSERT_TRUE(QFile::remove(path()));
    ASSERT_TRUE(QFile::link(m_directory.filePath(QStringLiteral("not mounted/defaults.json")), path()));
    EXPECT_FALSE(store()->sources().has_value());
    EXPECT_FALSE(store()->setSources(m_new));
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_F(StoreOnAFaultyDisk, writesNothingWhenTheCopyOfADamagedListCannotBeKept)
{
    const QByteArray damaged = "{\"Other\":1,\"VeskDefaultRepos_v1\":\"https://only.one\"}";
    write(damaged);
    for (const QString& step : { QStringLiteral("open to write"), QStringLiteral("write"), QStringLiteral("fsync file"),
             QStringLiteral("close file"), QStringLiteral("rename") }) {
        m_disk->failing = QStringList(step);
        EXPECT_FALSE(store()->setSources(m_new)) << step.toStdString();
        EXPECT_EQ(contents(), damaged) << step.toStdString();
        EXPECT_EQ(filesThere(), QStringList(QStringLiteral("defaults.json"))) << step.toStdString();
    }
}

TEST_F(StoreOnAFaultyDisk, writesNothingOverADamagedFileThatCannotMakeWay)
{
    write("not JSON");
    m_disk->failing = QStringList(QStringLiteral("rename"));
    EXPECT_FALSE(store()->setSources(m_new));
    EXPECT_EQ(contents(), "not JSON");
    EXPECT_EQ(filesThere(), QStringList(QStringLiteral("defaults.json")));
}

TEST_F(StoreOnAFaultyDisk, keepsThePermissionsOfTheFile)
{
    // The second one is wider than what new files are given.
    const mode_t mask = ::umask(027);
    for (const mode_t mode : { 0640U, 0666U }) {
        ASSERT_EQ(::chmod(QFile::encodeName(path()).constData(), mode), 0);
        EXPECT_TRUE(store()->setSources(m_new));
        struct stat status
        {
        };
        ASSERT_EQ(::stat(QFile::encodeName(path()).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, mode);
    }
    ::umask(mask);
}

TEST_F(StoreOnAFaultyDisk, readsAFileOfExactlyTheLargestSizeAndNoneBeyond)
{
    constexpr qsizetype largest = qsizetype(8) * 1024 * 1024;
    write(m_oldContents + QByteArray(largest - m_oldContents.size(), ' '));
    EXPECT_EQ(store()->sources(), m_old);
    write(m_oldContents + QByteArray(largest + 1 - m_oldContents.size(), ' '));
    EXPECT_FALSE(store()->sources().has_value());
}
