// What is left of the stored list when the program that edits it ends in the middle: it is the old list or the new one,
// and never older than what the program was told to be stored.
#include "catalog/sources/JsonSourceStore.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <optional>
#include <random>
#include <unistd.h>

namespace {

constexpr int longestWait = 60000;
constexpr std::size_t listLength = 20;

// So many programs are killed; VESK_KILLS says another number.
int killCount()
{
    const int wanted = qEnvironmentVariableIntValue("VESK_KILLS");
    return wanted > 0 ? wanted : 50;
}

class StoredList : public testing::Test
{
protected:
    QString file() const { return m_directory.filePath(QStringLiteral("defaults.json")); }

    void start(int first, int last)
    {
        m_program.start(QStringLiteral(SOURCE_EDIT_PROBE), { file(), QString::number(first), QString::number(last) });
        ASSERT_TRUE(m_program.waitForStarted());
    }

    // The last generation of which the program was told that it is stored; none when there was no such.
    std::optional<int> lastToldOf()
    {
        const QByteArray printed = m_program.readAllStandardOutput();
        const QList<QByteArray> lines = printed.left(printed.lastIndexOf('\n') + 1).split('\n');
        return lines.size() < 2 ? std::nullopt : std::optional(lines[lines.size() - 2].toInt());
    }

    QStringList unfinishedFiles() const
    {
        return QDir(m_directory.path()).entryList({ QStringLiteral("defaults.json.new-*") });
    }

    // The generation of the list that is stored; none when it is not whole.
    std::optional<int> storedGeneration() const
    {
        const auto list = JsonSourceStore(file()).sources();
        if (!list || list->size() != listLength)
            return std::nullopt;
        for (const StoredSource& source : *list)
            if (source.name != list->front().name || !source.enabled
                || source.url != QStringLiteral("https://example.org/"))
                return std::nullopt;
        return list->front().name.toInt();
    }

    QTemporaryDir m_directory;
    QProcess m_program;
};

// Ends the program that stores the generations 2 and 3 over the first at each of its steps on the disk.
class StoredListCutShort : public StoredList, public testing::WithParamInterface<const char*>
{
protected:
    // False when the program came to its end before that step.
    bool endsAt(int step)
    {
        m_program.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
        start(1, 1);
        EXPECT_TRUE(m_program.waitForFinished(longestWait));
        m_program.readAllStandardOutput();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(CUT_DISK));
        environment.insert(QStringLiteral("CUT_DIRECTORY"), m_directory.path());
        environment.insert(QStringLiteral("CUT_AT"), QString::number(step));
        environment.insert(QStringLiteral("CUT_HOW"), QString::fromLatin1(GetParam()));
        m_program.setProcessEnvironment(environment);
        start(2, 3);
        EXPECT_TRUE(m_program.waitForFinished(longestWait));
        return m_program.exitStatus() == QProcess::CrashExit;
    }
};

} // namespace

TEST_F(StoredList, isWholeAndNoOlderThanToldAfterAKillAtAnyMoment)
{
    const auto seed = std::random_device()();
    std::mt19937 random(seed);
    std::uniform_int_distribution<useconds_t> moment(0, 4000);
    int generation = 0;
    for (int round = 0; round < killCount(); ++round) {
        start(generation + 1, 1000000000);
        ASSERT_TRUE(m_program.waitForReadyRead(longestWait));
        usleep(moment(random));
        m_program.kill();
        ASSERT_TRUE(m_program.waitForFinished(longestWait));
        const std::optional<int> told = lastToldOf();
        const std::optional<int> stored = storedGeneration();
        ASSERT_TRUE(told && stored) << "round " << round << " of seed " << seed;
        ASSERT_TRUE(*stored == *told || *stored == *told + 1) << *stored << " for " << *told << ", seed " << seed;
        generation = *stored;
    }
}

TEST_P(StoredListCutShort, isTheOldOneOrTheNewOneWhereverItsWritingEnds)
{
    int step = 1;
    for (; endsAt(step); ++step) {
        const int told = lastToldOf().value_or(1);
        const std::optional<int> stored = storedGeneration();
        ASSERT_TRUE(stored.has_value()) << "step " << step;
        EXPECT_TRUE(*stored == told || *stored == told + 1) << "step " << step << ": " << *stored << " for " << told;
    }
    EXPECT_EQ(m_program.exitCode(), 0);
    EXPECT_EQ(storedGeneration(), 3);
    // Each edit opens, writes in two steps, brings to the disk, closes, renames, and does three things to the
    // directory.
    EXPECT_GE(step, 2 * 9);
}

TEST_P(StoredListCutShort, keepsWhatWasLeftUnfinishedUntilTheNextEditAndNoLonger)
{
    int leftSometime = 0;
    for (int step = 1; endsAt(step); ++step) {
        leftSometime += static_cast<int>(unfinishedFiles().size());
        m_program.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
        start(4, 4);
        ASSERT_TRUE(m_program.waitForFinished(longestWait));
        ASSERT_EQ(unfinishedFiles(), QStringList()) << "step " << step;
    }
    EXPECT_GT(leftSometime, 0);
}

INSTANTIATE_TEST_SUITE_P(ByAKillOrByTheMachinesEnd, StoredListCutShort, testing::Values("killed", "power"));
