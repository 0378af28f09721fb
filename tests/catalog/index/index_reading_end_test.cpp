// When a reading tells what came of it, and how it ends without.
#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/index/ReadIndex.h"

#include <atomic>
#include <future>

class TheEndOfReading : public testing::Test
{
protected:
    IndexJob jobFor(Compression compression) const
    {
        IndexJob job;
        job.compression = compression;
        job.repository
            = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
        job.nameOrder = std::make_shared<const NameOrder>(QStringLiteral("en"));
        return job;
    }

    std::unique_ptr<IndexReading> makeReading(Compression compression)
    {
        const auto done = [this](const ParsedIndex& index) {
            ++m_doneCount;
            m_done.set_value(idsOf(index.packages));
        };
        return std::make_unique<IndexReading>(jobFor(compression), *m_workers, m_stop.get_token(), done);
    }

    // All that has been posted by now is done.
    void finishWorkers() const
    {
        std::promise<void> promise;
        m_workers->post([&promise] { promise.set_value(); });
        promise.get_future().wait();
    }

    // And all that comes of it, be it posted in turn.
    void finishAllWork() const
    {
        for (int turn = 0; turn < 100; ++turn)
            finishWorkers();
    }

    // The body ends and the reading goes while the one worker is busy.
    void finishAndDrop(std::unique_ptr<IndexReading> reading) const
    {
        std::promise<void> mayGoOn;
        m_workers->post([future = mayGoOn.get_future().share()] { future.wait(); });
        reading->finish();
        reading.reset();
        mayGoOn.set_value();
        finishAllWork();
    }

    std::stop_source m_stop;
    std::promise<QStringList> m_done;
    std::atomic<int> m_doneCount = 0;
    // One: what is posted later runs later.
    std::unique_ptr<Workers> m_workers = std::make_unique<Workers>(1);
};

TEST_F(TheEndOfReading, isToldOnceTheBodyIsWholeAndNotBefore)
{
    const QByteArray packed = gzipped(stanza("a"));
    const auto reading = makeReading(Compression::Gzip);
    reading->receive({ packed.constData(), static_cast<std::size_t>(packed.size()) });
    finishAllWork();
    EXPECT_EQ(m_doneCount, 0);
    reading->finish();
    EXPECT_EQ(m_done.get_future().get(), QStringList(QStringLiteral("a")));
    EXPECT_EQ(m_doneCount, 1);
}

// What was installed then is in the packages.
TEST_F(TheEndOfReading, comesOfWorkThatIsDoneWhileTheBodyArrives)
{
    QTemporaryDir directory;
    IndexJob job = jobFor(Compression::None);
    job.statusPaths = QStringList(directory.filePath(QStringLiteral("status")));
    QFile status(job.statusPaths.front());
    ASSERT_TRUE(status.open(QIODevice::WriteOnly));
    status.write("Package: a\nStatus: install ok installed\nVersion: 7\n\n");
    status.close();
    std::promise<QString> installed;
    IndexReading reading(job, *m_workers, m_stop.get_token(),
        [&](const ParsedIndex& index) { installed.set_value(index.packages.front()->installedVersion()); });
    reading.receive("Package: a\n");
    finishAllWork();
    ASSERT_TRUE(status.remove());
    reading.finish();
    EXPECT_EQ(installed.get_future().get(), QStringLiteral("7"));
}

TEST_F(TheEndOfReading, isToldWhenNothingCameAtAll)
{
    for (const Compression compression : { Compression::None, Compression::Bzip2, Compression::Gzip }) {
        m_done = {};
        const auto reading = makeReading(compression);
        reading->finish();
        EXPECT_TRUE(m_done.get_future().get().isEmpty());
        finishWorkers();
    }
}

TEST_F(TheEndOfReading, isNotToldOnceItIsDropped)
{
    auto reading = makeReading(Compression::None);
    reading->receive("Package: a\n\n");
    finishAndDrop(std::move(reading));
    EXPECT_EQ(m_doneCount, 0);
}

TEST_F(TheEndOfReading, isNotToldOnceItIsDroppedThoughAllHadBeenRead)
{
    auto reading = makeReading(Compression::Gzip);
    const QByteArray packed = gzipped(stanza("a"));
    reading->receive({ packed.constData(), static_cast<std::size_t>(packed.size()) });
    finishAllWork();
    finishAndDrop(std::move(reading));
    EXPECT_EQ(m_doneCount, 0);
}

TEST_F(TheEndOfReading, isNotToldOnceAStopIsAskedFor)
{
    const auto reading = makeReading(Compression::Gzip);
    const QByteArray packed = gzipped(stanza("a"));
    std::promise<void> mayGoOn;
    m_workers->post([future = mayGoOn.get_future().share()] { future.wait(); });
    reading->receive({ packed.constData(), static_cast<std::size_t>(packed.size()) });
    reading->finish();
    m_stop.request_stop();
    mayGoOn.set_value();
    finishAllWork();
    EXPECT_EQ(m_doneCount, 0);
}

TEST_F(TheEndOfReading, isNotToldWhenTheStopWasAskedForBefore)
{
    m_stop.request_stop();
    const auto reading = makeReading(Compression::None);
    reading->receive("Package: a\n\n");
    reading->finish();
    finishAllWork();
    EXPECT_EQ(m_doneCount, 0);
}

TEST_F(TheEndOfReading, mayComeAtAnyMoment)
{
    QByteArray text;
    for (int number = 0; number < 20000; ++number)
        text += stanza("p" + QByteArray::number(number));
    Workers workers(3);
    for (const QByteArray& body : { text, gzipped(text), bzipped(text) }) {
        for (const Compression compression : { Compression::None, Compression::Bzip2, Compression::Gzip }) {
            for (int turns = 0; turns < 20; ++turns) {
                IndexReading reading(jobFor(compression), workers, {}, [](const ParsedIndex&) {});
                reading.receive({ body.constData(), static_cast<std::size_t>(body.size()) });
                for (int turn = 0; turn < turns * turns; ++turn)
                    std::this_thread::yield();
            }
        }
    }
}

// Who stands on the reading's own packages must not be held by what the reading leaves behind.
TEST_F(TheEndOfReading, leavesNothingBehind)
{
    const auto source
        = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
    const std::weak_ptr<VeskRepository> weak = source;
    IndexJob job = jobFor(Compression::Bzip2);
    job.repository = source;
    const long countBefore = source.use_count();
    {
        IndexReading reading(job, *m_workers, {}, [](const ParsedIndex&) {});
        reading.receive("Package: a\n\n");
    }
    m_workers.reset();
    EXPECT_EQ(source.use_count(), countBefore);
}

// It can be much, and who drops the reading is the thread that draws.
TEST_F(TheEndOfReading, letsGoOfWhatWasReadOnAWorker)
{
    IndexJob job = jobFor(Compression::None);
    job.repository = VeskRepository::repositoryWithURLString(QStringLiteral("https://b.example"), QStringLiteral("B"));
    const long countBefore = job.repository.use_count();
    auto reading = std::make_unique<IndexReading>(job, *m_workers, m_stop.get_token(), [](const ParsedIndex&) {});
    reading->receive("Package: a\n\n");
    std::promise<void> mayGoOn;
    m_workers->post([future = mayGoOn.get_future().share()] { future.wait(); });
    reading.reset();
    EXPECT_GT(job.repository.use_count(), countBefore);
    mayGoOn.set_value();
    finishAllWork();
    EXPECT_EQ(job.repository.use_count(), countBefore);
}
