#include "tests/catalog/CatalogFixture.h"

#include <QSemaphore>

namespace {

// Answers nothing, and notes who may stop what was asked.
class SilentNetwork : public http::Network
{
public:
    explicit SilentNetwork(std::vector<std::stop_token>& stops)
        : m_stops(stops)
    {
    }

    void start(const http::Request& /*request*/, std::shared_ptr<http::Receiver> /*receiver*/, Done /*done*/,
        std::stop_token stop) override
    {
        m_stops.push_back(std::move(stop));
    }

private:
    std::vector<std::stop_token>& m_stops;
};

} // namespace

class RefreshAll : public CatalogFixture
{
protected:
    VeskRepositoryPtr serve(const QString& path, const QByteArray& packageID)
    {
        m_server.serve(path.toLatin1() + "/Packages.bz2", stanza(packageID));
        return addServedSource(path);
    }

    void hold(const QByteArray& path, const QByteArray& body)
    {
        LoopbackServer::Reply held;
        held.body = body;
        held.timing = LoopbackServer::Timing::Held;
        m_server.setReply(path, held);
    }

    bool waitFor(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, patience); }
};

TEST_F(RefreshAll, completesAtOnceWithoutAnyRequestWhenNothingIsEnabled)
{
    serve(QStringLiteral("/1"), "a")->setEnabled(false);
    manager().packages().push_back(makePackage(QStringLiteral("old")));
    manager().setErrorMessage(QStringLiteral("old"));
    bool wasLoadingInCompletion = true;
    bool isDone = false;
    manager().refreshAllWithCompletion([&] {
        isDone = true;
        wasLoadingInCompletion = manager().isLoading();
    });
    EXPECT_TRUE(isDone);
    EXPECT_FALSE(wasLoadingInCompletion);
    EXPECT_FALSE(manager().isLoading());
    EXPECT_TRUE(manager().packages().empty());
    EXPECT_TRUE(manager().errorMessage().isNull());
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_server.requests().empty());
}

TEST_F(RefreshAll, isDroppedWhenTheApplicationQuitsInTheMiddleOfIt)
{
    hold("/1/Packages.bz2", stanza("a"));
    addServedSource(QStringLiteral("/1"));
    manager().refreshAllWithCompletion([] { FAIL() << "nobody is told of a refresh that was dropped"; });
    ASSERT_TRUE(waitFor([this] { return m_server.requests().size() == 1; }));
    EXPECT_NE(manager().findChild<QObject*>(), nullptr);
    QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit, Qt::QueuedConnection);
    QCoreApplication::exec();
    EXPECT_EQ(manager().findChild<QObject*>(), nullptr);
}

TEST_F(RefreshAll, stopsWhatItAskedTheNetworkForWhenItIsDropped)
{
    std::vector<std::stop_token> stops;
    CatalogWorld silent = world();
    silent.network = std::make_unique<SilentNetwork>(stops);
    m_store->stored = std::vector<StoredSource>({ { m_server.url(QStringLiteral("/1")), QStringLiteral("A"), true } });
    m_manager = std::make_unique<RepoManager>(std::move(silent));
    manager().refreshAllWithCompletion([] { FAIL() << "nobody is told of a refresh that was dropped"; });
    ASSERT_TRUE(waitFor([&] { return stops.size() == 1; }));
    EXPECT_FALSE(stops.front().stop_requested());
    m_manager.reset();
    EXPECT_TRUE(stops.front().stop_requested());
}

TEST_F(RefreshAll, leavesNothingBehindOnceItIsDone)
{
    serve(QStringLiteral("/1"), "a");
    ASSERT_TRUE(refreshAll());
    EXPECT_TRUE(waitFor([this] { return manager().findChild<QObject*>() == nullptr; }));
}

// It can be much, and who asks for a refresh is the thread that draws.
TEST_F(RefreshAll, letsGoOfTheOldCatalogOnAWorker)
{
    CatalogWorld own = world();
    own.workers = std::make_shared<Workers>(1);
    const std::shared_ptr<Workers> workers = own.workers;
    m_manager = std::make_unique<RepoManager>(std::move(own));
    manager().repositories().clear();
    auto package = makePackage(QStringLiteral("a"));
    const std::weak_ptr<VeskPackage> old = package;
    manager().packages().push_back(std::exchange(package, nullptr));
    QSemaphore mayGoOn;
    workers->post([&mayGoOn] { mayGoOn.acquire(); });
    ASSERT_TRUE(refreshAll());
    EXPECT_FALSE(old.expired());
    mayGoOn.release();
    EXPECT_TRUE(waitFor([&old] { return old.expired(); }));
}

TEST_F(RefreshAll, isLoadingFromItsStartToItsCompletionInALaterTurn)
{
    serve(QStringLiteral("/1"), "a");
    int completions = 0;
    bool wasLoadingInCompletion = true;
    manager().refreshAllWithCompletion([&] {
        ++completions;
        wasLoadingInCompletion = manager().isLoading();
    });
    EXPECT_TRUE(manager().isLoading());
    EXPECT_EQ(completions, 0);
    EXPECT_TRUE(m_server.requests().empty());
    ASSERT_TRUE(waitFor([&] { return completions != 0; }));
    EXPECT_FALSE(wasLoadingInCompletion);
    EXPECT_FALSE(manager().isLoading());
    ASSERT_TRUE(refreshAll());
    EXPECT_EQ(completions, 1);
}

TEST_F(RefreshAll, replacesTheWholeCatalogWithNewRecords)
{
    serve(QStringLiteral("/1"), "a");
    ASSERT_TRUE(refreshAll());
    const VeskPackagePtr before = manager().packages()[0];
    ASSERT_TRUE(refreshAll());
    ASSERT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
    EXPECT_NE(manager().packages()[0], before);
}

TEST_F(RefreshAll, leavesDisabledSourcesAlone)
{
    serve(QStringLiteral("/1"), "a");
    serve(QStringLiteral("/2"), "b")->setEnabled(false);
    ASSERT_TRUE(refreshAll());
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
    EXPECT_EQ(m_server.requestedPaths(), std::vector<QByteArray>({ "/1/Packages.bz2" }));
}

TEST_F(RefreshAll, startsAllSourcesAtOnceAndMergesThemAsTheyCome)
{
    const auto slow = addServedSource(QStringLiteral("/slow"));
    hold("/slow/Packages.bz2", "Package: a\nVersion: slow\n\nPackage: s\n");
    m_server.serve("/fast/Packages.bz2", "Package: a\nVersion: fast\n");
    addServedSource(QStringLiteral("/fast"));
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    ASSERT_TRUE(waitFor([&] { return manager().packages().size() == 1; }));
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(manager().isLoading());
    EXPECT_FALSE(slow->lastRefresh().isValid());
    m_server.release("/slow/Packages.bz2");
    ASSERT_TRUE(waitFor([&isDone] { return isDone; }));
    EXPECT_EQ(packageIDs(), QStringList({ QStringLiteral("a"), QStringLiteral("s") }));
    EXPECT_EQ(manager().packages()[0]->version(), QStringLiteral("fast"));
}

TEST_F(RefreshAll, isNotStoppedByASourceThatFails)
{
    addServedSource(QStringLiteral("/missing"));
    serve(QStringLiteral("/1"), "a");
    addSource(QStringLiteral(""));
    serve(QStringLiteral("/2"), "b");
    ASSERT_TRUE(refreshAll());
    QStringList ids = packageIDs();
    ids.sort();
    EXPECT_EQ(ids, QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
    EXPECT_EQ(manager().errorMessage(), QStringLiteral("Could not fetch repository packages"));
}

TEST_F(RefreshAll, completesInALaterTurnEvenWhenEverySourceFailsAtOnce)
{
    addSource(QStringLiteral(""));
    addSource(QStringLiteral("https://not a url"));
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(manager().isLoading());
    EXPECT_EQ(manager().errorMessage(), QStringLiteral("Invalid repository URL"));
    ASSERT_TRUE(waitFor([&isDone] { return isDone; }));
    EXPECT_FALSE(manager().isLoading());
}

TEST_F(RefreshAll, clearsTheLastFailure)
{
    serve(QStringLiteral("/1"), "a");
    manager().setErrorMessage(QStringLiteral("old"));
    ASSERT_TRUE(refreshAll());
    EXPECT_TRUE(manager().errorMessage().isNull());
}

TEST_F(RefreshAll, needsNoCompletion)
{
    serve(QStringLiteral("/1"), "a");
    manager().refreshAllWithCompletion(nullptr);
    ASSERT_TRUE(waitFor([&] { return !manager().isLoading(); }));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
    manager().repositories().clear();
    manager().refreshAllWithCompletion(nullptr);
    EXPECT_FALSE(manager().isLoading());
}

TEST_F(RefreshAll, mayBeStartedAgainWhileItRuns)
{
    serve(QStringLiteral("/1"), "a");
    serve(QStringLiteral("/2"), "b");
    int completions = 0;
    for (int run = 0; run < 3; ++run)
        manager().refreshAllWithCompletion([&completions] { ++completions; });
    ASSERT_TRUE(waitFor([&completions] { return completions == 3; }));
    QStringList ids = packageIDs();
    ids.sort();
    EXPECT_EQ(ids, QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
}

TEST_F(RefreshAll, mergesASourceRemovedMeanwhileAllTheSame)
{
    hold("/1/Packages.bz2", stanza("a"));
    const auto source = addServedSource(QStringLiteral("/1"));
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    ASSERT_TRUE(waitFor([&] { return !m_server.requests().empty(); }));
    manager().removeRepository(source);
    m_server.release("/1/Packages.bz2");
    ASSERT_TRUE(waitFor([&isDone] { return isDone; }));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
    EXPECT_EQ(manager().packages()[0]->repository(), source);
}

TEST_F(RefreshAll, mayBeStartedFromItsOwnCompletion)
{
    serve(QStringLiteral("/1"), "a");
    bool isDone = false;
    manager().refreshAllWithCompletion([&] { manager().refreshAllWithCompletion([&isDone] { isDone = true; }); });
    ASSERT_TRUE(waitFor([&isDone] { return isDone; }));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
}

TEST_F(RefreshAll, mayEndTheManagerByItsCompletion)
{
    serve(QStringLiteral("/1"), "a");
    serve(QStringLiteral("/2"), "b");
    bool isDone = false;
    manager().refreshAllWithCompletion([&] {
        m_manager.reset();
        isDone = true;
    });
    EXPECT_TRUE(waitFor([&isDone] { return isDone; }));
    EXPECT_EQ(m_manager, nullptr);
}

TEST_F(RefreshAll, isDroppedWhenTheManagerGoes)
{
    CatalogWorld other = world();
    std::shared_ptr<Workers> workers = other.workers;
    m_manager = std::make_unique<RepoManager>(std::move(other));
    hold("/1/Packages.bz2", stanza("a"));
    addServedSource(QStringLiteral("/1"));
    serve(QStringLiteral("/2"), "b");
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    ASSERT_TRUE(waitFor([&] { return m_server.requests().size() == 2; }));
    m_manager.reset();
    m_server.release("/1/Packages.bz2");
    // With the last of what could still deliver something.
    workers.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(isDone);
}

TEST_F(RefreshAll, dropsWhatAWorkerStillDeliversWhenTheManagerIsGone)
{
    serve(QStringLiteral("/1"), "a");
    auto busy = std::make_shared<Workers>(1);
    CatalogWorld other = world();
    other.workers = busy;
    m_store->stored = std::vector<StoredSource>({ { m_server.url(QStringLiteral("/1")), QStringLiteral("A"), true } });
    m_manager = std::make_unique<RepoManager>(std::move(other));
    QSemaphore gate;
    busy->post([&gate] { gate.acquire(); });
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    ASSERT_TRUE(waitFor([&] { return !m_server.requests().empty(); }));
    // Five answers later than the one that is to be read, but with nothing to read.
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/missing"))));
    m_manager.reset();
    gate.release();
    busy.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(isDone);
}

class RefreshOne : public RefreshAll
{
};

TEST_F(RefreshOne, failsAtOnceWithoutAUsableUrl)
{
    for (const QString& urlString : { QStringLiteral(""), QString(), QStringLiteral("https://not a url") }) {
        manager().setErrorMessage(QString());
        int completions = 0;
        manager().refreshRepository(addSource(urlString), [&completions] { ++completions; });
        EXPECT_EQ(completions, 1);
        EXPECT_EQ(manager().errorMessage(), QStringLiteral("Invalid repository URL"));
    }
    manager().refreshRepository(addSource(QStringLiteral("")), nullptr);
    EXPECT_TRUE(m_server.requests().empty());
}

TEST_F(RefreshOne, leavesTheCatalogAndTheLoadingStateAsTheyAre)
{
    const auto first = serve(QStringLiteral("/1"), "a");
    const auto second = serve(QStringLiteral("/2"), "b");
    ASSERT_TRUE(refresh(first));
    manager().setErrorMessage(QStringLiteral("kept"));
    manager().refreshRepository(second, nullptr);
    EXPECT_FALSE(manager().isLoading());
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
    ASSERT_TRUE(waitFor([&] { return manager().packages().size() == 2; }));
    EXPECT_EQ(manager().errorMessage(), QStringLiteral("kept"));
}

TEST_F(RefreshOne, fetchesADisabledSourceToo)
{
    const auto source = serve(QStringLiteral("/1"), "a");
    source->setEnabled(false);
    ASSERT_TRUE(refresh(source));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
}

TEST_F(RefreshOne, completesOnceForEachCall)
{
    const auto source = serve(QStringLiteral("/1"), "a");
    int completions = 0;
    manager().refreshRepository(source, [&completions] { ++completions; });
    manager().refreshRepository(source, [&completions] { ++completions; });
    EXPECT_EQ(completions, 0);
    ASSERT_TRUE(waitFor([&completions] { return completions == 2; }));
    ASSERT_TRUE(refresh(source));
    EXPECT_EQ(completions, 2);
}
