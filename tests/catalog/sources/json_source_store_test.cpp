#include "catalog/sources/JsonSourceStore.h"
#include "http/Client.h"
#include "tests/catalog/CatalogFixture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class JsonStore : public testing::Test
{
protected:
    QString path() const { return m_directory.filePath(QStringLiteral("vesk/defaults.json")); }

    void write(const QByteArray& contents) const
    {
        ASSERT_TRUE(QDir().mkpath(m_directory.filePath(QStringLiteral("vesk"))));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }

    QByteArray contents() const { return contentsOf(path()); }

    static QByteArray contentsOf(const QString& filePath)
    {
        QFile file(filePath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
    }

    QStringList otherFiles() const
    {
        QStringList names
            = QDir(m_directory.filePath(QStringLiteral("vesk"))).entryList(QDir::Files | QDir::System | QDir::Hidden);
        names.removeAll(QStringLiteral("defaults.json"));
        return names;
    }

    std::optional<std::vector<StoredSource>> read() const { return JsonSourceStore(path()).sources(); }
    bool save(const std::vector<StoredSource>& sources) const { return JsonSourceStore(path()).setSources(sources); }
    std::vector<StoredSource> readElements(const QByteArray& elements) const
    {
        write("{\"VeskDefaultRepos_v1\":[" + elements + "]}");
        return read().value_or(std::vector<StoredSource>());
    }

    QTemporaryDir m_directory;
    const std::vector<StoredSource> m_two{ { QStringLiteral("https://b"), QStringLiteral("B \"ü\""), false },
        { QStringLiteral(""), QStringLiteral(""), true } };
};

TEST_F(JsonStore, standsUnderTheConfigurationDirectory)
{
    EXPECT_TRUE(JsonSourceStore::standardPath().endsWith(QStringLiteral("/vesk/defaults.json")));
}

TEST_F(JsonStore, hasNoListBeforeTheFirstWrite)
{
    EXPECT_FALSE(read().has_value());
}

TEST_F(JsonStore, givesBackWhatWasWrittenInItsOrder)
{
    ASSERT_TRUE(save(m_two));
    EXPECT_EQ(read(), m_two);
    ASSERT_TRUE(save({}));
    ASSERT_TRUE(read().has_value());
    EXPECT_TRUE(read()->empty());
    EXPECT_TRUE(otherFiles().isEmpty());
}

TEST_F(JsonStore, holdsExactlyThreeEntriesASourceUnderItsOneKey)
{
    ASSERT_TRUE(save({ m_two[0] }));
    const QJsonObject root = QJsonDocument::fromJson(contents()).object();
    EXPECT_EQ(root.keys(), QStringList(QStringLiteral("VeskDefaultRepos_v1")));
    const QJsonObject entry{ { QStringLiteral("url"), QStringLiteral("https://b") },
        { QStringLiteral("name"), QStringLiteral("B \"ü\"") }, { QStringLiteral("enabled"), false } };
    EXPECT_EQ(root.value(QStringLiteral("VeskDefaultRepos_v1")).toArray(), QJsonArray({ entry }));
}

TEST_F(JsonStore, leavesOtherKeysAsTheyAre)
{
    write("{\"Other\":{\"x\":[1,2]},\"VeskDefaultRepos_v1\":[]}");
    ASSERT_TRUE(save(m_two));
    const QJsonObject root = QJsonDocument::fromJson(contents()).object();
    EXPECT_EQ(
        root.value(QStringLiteral("Other")).toObject().value(QStringLiteral("x")).toArray(), QJsonArray({ 1, 2 }));
    EXPECT_EQ(read(), m_two);
    EXPECT_TRUE(otherFiles().isEmpty());
}

TEST_F(JsonStore, givesMissingEntriesTheirDefaults)
{
    const auto sources = readElements("{\"url\":\"u\"},{\"name\":\"n\"},{\"enabled\":true},{}");
    EXPECT_EQ(sources,
        std::vector<StoredSource>(
            { { QStringLiteral("u"), QStringLiteral(""), false }, { QStringLiteral(""), QStringLiteral("n"), false },
                { QStringLiteral(""), QStringLiteral(""), true }, { QStringLiteral(""), QStringLiteral(""), false } }));
    for (const StoredSource& source : sources) {
        EXPECT_FALSE(source.url.isNull());
        EXPECT_FALSE(source.name.isNull());
    }
}

TEST_F(JsonStore, givesEntriesOfTheWrongKindTheirDefaults)
{
    const auto sources
        = readElements("{\"url\":1,\"name\":[\"n\"],\"enabled\":\"true\"},{\"url\":null,\"name\":{},\"enabled\":null}");
    EXPECT_EQ(sources,
        std::vector<StoredSource>(
            { { QStringLiteral(""), QStringLiteral(""), false }, { QStringLiteral(""), QStringLiteral(""), false } }));
    EXPECT_FALSE(sources[0].url.isNull());
}

TEST_F(JsonStore, takesNumbersForSwitchesAsTheyCount)
{
    const auto sources = readElements("{\"enabled\":1},{\"enabled\":0},{\"enabled\":-2.5}");
    ASSERT_EQ(sources.size(), 3U);
    EXPECT_TRUE(sources[0].enabled);
    EXPECT_FALSE(sources[1].enabled);
    EXPECT_TRUE(sources[2].enabled);
}

TEST_F(JsonStore, keepsThePlaceOfElementsThatAreNoDictionaries)
{
    const auto sources = readElements("{\"url\":\"u\",\"name\":\"n\",\"enabled\":true},5,\"x\",null,[1],true");
    ASSERT_EQ(sources.size(), 6U);
    EXPECT_EQ(sources[0], (StoredSource{ QStringLiteral("u"), QStringLiteral("n"), true }));
    for (std::size_t index = 1; index < sources.size(); ++index)
        EXPECT_EQ(sources[index], (StoredSource{ QStringLiteral(""), QStringLiteral(""), false }));
}

TEST_F(JsonStore, takesAKeyThatHoldsNoListForAbsentAndKeepsACopyBeforeItIsReplaced)
{
    const QByteArray damaged = "{\"Other\":1,\"VeskDefaultRepos_v1\":\"https://only.one\"}";
    write(damaged);
    EXPECT_FALSE(read().has_value());
    ASSERT_TRUE(save(m_two));
    EXPECT_EQ(read(), m_two);
    EXPECT_EQ(QJsonDocument::fromJson(contents()).object().value(QStringLiteral("Other")).toInt(), 1);
    ASSERT_EQ(otherFiles().size(), 1);
    EXPECT_EQ(contentsOf(m_directory.filePath(QStringLiteral("vesk/") + otherFiles().first())), damaged);
}

TEST_F(JsonStore, keepsAnUnreadableFileBesideItselfBeforeWriting)
{
    int kept = 0;
    for (const QByteArray& bad : { QByteArray("not JSON"), QByteArray(), QByteArray("[1,2]"), QByteArray("{\"a\":1"),
             QByteArray("\xff\xfe\0\1", 4), QByteArray("{\"VeskDefaultRepos_v1\":[]} trailing") }) {
        write(bad);
        EXPECT_FALSE(read().has_value());
        EXPECT_EQ(contents(), bad) << "reading alone must change nothing";
        ASSERT_TRUE(save(m_two));
        EXPECT_EQ(read(), m_two);
        EXPECT_EQ(otherFiles().size(), ++kept);
        const QStringList others = otherFiles();
        EXPECT_TRUE(std::any_of(others.begin(), others.end(), [&](const QString& name) {
            return contentsOf(m_directory.filePath(QStringLiteral("vesk/") + name)) == bad;
        }));
    }
}

TEST_F(JsonStore, numbersFromTwoOnTheFilesKeptInOneSecond)
{
    // The name without a number is taken, in whichever of the next seconds it will be.
    constexpr int seconds = 300;
    write("not JSON");
    const QDateTime now = QDateTime::currentDateTimeUtc();
    for (int second = 0; second < seconds; ++second) {
        const QString stamp = now.addSecs(second).toString(QStringLiteral("yyyyMMdd'T'HHmmss"));
        QFile taken(path() + QStringLiteral(".unreadable-") + stamp);
        ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    }
    ASSERT_TRUE(save(m_two));
    const QStringList others = otherFiles().filter(QRegularExpression(QStringLiteral("-\\d{8}T\\d{6}-")));
    ASSERT_EQ(others.size(), 1);
    EXPECT_TRUE(others.first().endsWith(QStringLiteral("-2"))) << others.first().toStdString();
}

TEST_F(JsonStore, doesNotReadAHugeFileAndKeepsItBeside)
{
    write("{}");
    QFile file(path());
    ASSERT_TRUE(file.resize(qint64(3) << 30));
    EXPECT_FALSE(read().has_value());
    ASSERT_TRUE(save(m_two));
    EXPECT_EQ(read(), m_two);
    EXPECT_EQ(otherFiles().size(), 1);
}

TEST_F(JsonStore, survivesNestingWithoutEnd)
{
    write(QByteArray("{\"VeskDefaultRepos_v1\":") + QByteArray(1000000, '['));
    EXPECT_FALSE(read().has_value());
    ASSERT_TRUE(save(m_two));
    EXPECT_EQ(read(), m_two);
}

TEST_F(JsonStore, doesNotBlockOnAPipeInItsPlace)
{
    ASSERT_TRUE(QDir().mkpath(m_directory.filePath(QStringLiteral("vesk"))));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    EXPECT_FALSE(read().has_value());
    ASSERT_TRUE(save(m_two));
    EXPECT_EQ(read(), m_two);
}

// Whoever starts the program may have closed it.
TEST_F(JsonStore, isReadAndWrittenWithoutAStandardInput)
{
    const int kept = fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(STDIN_FILENO);
    EXPECT_TRUE(save(m_two));
    EXPECT_EQ(read(), m_two);
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1);
    dup2(kept, STDIN_FILENO);
    close(kept);
}

TEST_F(JsonStore, movesADirectoryInItsPlaceAway)
{
    ASSERT_TRUE(QDir().mkpath(path() + QStringLiteral("/inner")));
    EXPECT_FALSE(read().has_value());
    ASSERT_TRUE(save(m_two));
    EXPECT_EQ(read(), m_two);
    EXPECT_EQ(
        QDir(m_directory.filePath(QStringLiteral("vesk"))).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
}

TEST_F(JsonStore, writesThroughASymbolicLink)
{
    write("{}");
    const QString target = m_directory.filePath(QStringLiteral("elsewhere.json"));
    ASSERT_TRUE(QFile::rename(path(), target));
    ASSERT_TRUE(QFile::link(target, path()));
    ASSERT_TRUE(save(m_two));
    EXPECT_EQ(JsonSourceStore(target).sources(), m_two);
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_F(JsonStore, saysSoWhenItCannotBeWritten)
{
    // A file in the directory's place stops every user, the superuser too.
    QFile file(m_directory.filePath(QStringLiteral("vesk")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_FALSE(save(m_two));
    EXPECT_FALSE(read().has_value());
}

TEST_F(JsonStore, thatCannotBeWrittenLosesNoSourceInMemory)
{
    QFile file(m_directory.filePath(QStringLiteral("vesk")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    CatalogWorld world;
    world.store = std::make_unique<JsonSourceStore>(path());
    world.network = std::make_unique<http::Client>();
    RepoManager manager(std::move(world));
    EXPECT_EQ(manager.repositories().size(), 4U);
    manager.toggleRepository(manager.repositories()[0], false);
    EXPECT_FALSE(manager.repositories()[0]->enabled());
}

TEST_F(JsonStore, leavesNothingHalfWrittenBehind)
{
    for (int round = 0; round < 20; ++round)
        ASSERT_TRUE(save(std::vector<StoredSource>(static_cast<std::size_t>(round), m_two[0])));
    EXPECT_TRUE(otherFiles().isEmpty());
    EXPECT_EQ(read()->size(), 19U);
}

TEST_F(JsonStore, keepsNoFileOpenAfterRemovingWhatWasAbandoned)
{
    const auto openFiles
        = [] { return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::System | QDir::Files).size(); };
    ASSERT_TRUE(save(m_two));
    const qsizetype before = openFiles();
    for (int round = 0; round < 5; ++round) {
        QFile abandoned(path() + QStringLiteral(".new-") + QString::number(round));
        ASSERT_TRUE(abandoned.open(QIODevice::WriteOnly));
        abandoned.close();
        ASSERT_TRUE(save(m_two));
    }
    EXPECT_EQ(openFiles(), before);
    EXPECT_TRUE(otherFiles().isEmpty());
}

TEST_F(JsonStore, bringsAnEditBackAfterARestartOfTheManager)
{
    const auto restart = [this] {
        CatalogWorld world;
        world.store = std::make_unique<JsonSourceStore>(path());
        world.network = std::make_unique<http::Client>();
        return std::make_unique<RepoManager>(std::move(world));
    };
    auto manager = restart();
    manager->toggleRepository(manager->repositories()[1], false);
    manager->removeRepository(manager->repositories()[0]);
    manager = restart();
    ASSERT_EQ(manager->repositories().size(), 3U);
    EXPECT_EQ(manager->repositories()[0]->name(), QStringLiteral("Havoc"));
    EXPECT_FALSE(manager->repositories()[0]->enabled());
    EXPECT_TRUE(manager->repositories()[1]->enabled());
    EXPECT_FALSE(manager->repositories()[0]->lastRefresh().isValid());
}

TEST_F(JsonStore, writesAFileOfExactlyTheLargestSizeAndNoneBeyond)
{
    constexpr qsizetype largest = qsizetype(8) * 1024 * 1024;
    ASSERT_TRUE(save({ m_two[1] }));
    StoredSource wide = m_two[1];
    wide.name = QString(largest - contents().size(), u'x');
    EXPECT_TRUE(save({ wide }));
    EXPECT_EQ(contents().size(), largest);
    EXPECT_EQ(read(), std::vector{ wide });
    StoredSource wider = wide;
    wider.name += u'x';
    EXPECT_FALSE(save({ wider }));
    EXPECT_EQ(read(), std::vector{ wide });
}

TEST_F(JsonStore, readsAMillionEntriesAndWritesNoFileThatItWouldNotReadAgain)
{
    constexpr qsizetype million = 1000000;
    const QByteArray many = "{\"VeskDefaultRepos_v1\":[{}" + QByteArray(",{}").repeated(million - 1) + "]}";
    write(many);
    auto sources = read();
    ASSERT_TRUE(sources.has_value());
    EXPECT_EQ(sources->size(), std::size_t(million));
    sources->front().enabled = true;
    EXPECT_FALSE(save(*sources));
    EXPECT_EQ(contents(), many);
    sources->resize(3);
    EXPECT_TRUE(save(*sources));
    EXPECT_EQ(read(), sources);
    EXPECT_TRUE(otherFiles().isEmpty());
}
