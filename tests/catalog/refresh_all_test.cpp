#include "tests/catalog/CatalogFixture.h"

#include <QSemaphore>

using namespace Qt::StringLiterals;

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
    serve(u"/1"_s, "a")->setEnabled(false);
    manager().packages().push_back(makePackage(u"old"_s));
    manager().setErrorMessage(u"old"_s);
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
    addServedSource(u"/1"_s);
    manager().refreshAllWithCompletion([] { FAIL() << "nobody is told of a refresh that was dropped"; });
    ASSERT_TRUE(waitFor([this] { return m_server.requests().size() == 1; }));
    EXPECT_NE(manager().findChild<QObject*>(), nullptr);
    QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit, Qt::QueuedConnection);
    QCoreApplication::exec();
    EXPECT_EQ(manager().findChild<QObject*>(), nullptr);
}

TEST_F(RefreshAll, isLoadingFromItsStartToItsCompletionInALaterTurn)
{
    serve(u"/1"_s, "a");
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
    QTest::qWait(20);
    EXPECT_EQ(completions, 1);
}

TEST_F(RefreshAll, replacesTheWholeCatalogWithNewRecords)
{
    serve(u"/1"_s, "a");
    ASSERT_TRUE(refreshAll());
    const VeskPackagePtr before = manager().packages()[0];
    ASSERT_TRUE(refreshAll());
    ASSERT_EQ(packageIDs(), QStringList(u"a"_s));
    EXPECT_NE(manager().packages()[0], before);
}

TEST_F(RefreshAll, leavesDisabledSourcesAlone)
{
    serve(u"/1"_s, "a");
    serve(u"/2"_s, "b")->setEnabled(false);
    ASSERT_TRUE(refreshAll());
    EXPECT_EQ(packageIDs(), QStringList(u"a"_s));
    EXPECT_EQ(m_server.requestedPaths(), std::vector<QByteArray>({ "/1/Packages.bz2" }));
}

TEST_F(RefreshAll, startsAllSourcesAtOnceAndMergesThemAsTheyCome)
{
    const auto slow = addServedSource(u"/slow"_s);
    hold("/slow/Packages.bz2", "Package: a\nVersion: slow\n\nPackage: s\n");
    m_server.serve("/fast/Packages.bz2", "Package: a\nVersion: fast\n");
    addServedSource(u"/fast"_s);
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    ASSERT_TRUE(waitFor([&] { return manager().packages().size() == 1; }));
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(manager().isLoading());
    EXPECT_FALSE(slow->lastRefresh().isValid());
    m_server.release("/slow/Packages.bz2");
    ASSERT_TRUE(waitFor([&isDone] { return isDone; }));
    EXPECT_EQ(packageIDs(), QStringList({ u"a"_s, u"s"_s }));
    EXPECT_EQ(manager().packages()[0]->version(), u"fast"_s);
}

TEST_F(RefreshAll, isNotStoppedByASourceThatFails)
{
    addServedSource(u"/missing"_s);
    serve(u"/1"_s, "a");
    addSource(u""_s);
    serve(u"/2"_s, "b");
    ASSERT_TRUE(refreshAll());
    QStringList ids = packageIDs();
    ids.sort();
    EXPECT_EQ(ids, QStringList({ u"a"_s, u"b"_s }));
    EXPECT_EQ(manager().errorMessage(), u"Could not fetch repository packages"_s);
}

TEST_F(RefreshAll, completesInALaterTurnEvenWhenEverySourceFailsAtOnce)
{
    addSource(u""_s);
    addSource(u"https://not a url"_s);
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(manager().isLoading());
    EXPECT_EQ(manager().errorMessage(), u"Invalid repository URL"_s);
    ASSERT_TRUE(waitFor([&isDone] { return isDone; }));
    EXPECT_FALSE(manager().isLoading());
}

TEST_F(RefreshAll, clearsTheLastFailure)
{
    serve(u"/1"_s, "a");
    manager().setErrorMessage(u"old"_s);
    ASSERT_TRUE(refreshAll());
    EXPECT_TRUE(manager().errorMessage().isNull());
}

TEST_F(RefreshAll, needsNoCompletion)
{
    serve(u"/1"_s, "a");
    manager().refreshAllWithCompletion(nullptr);
    ASSERT_TRUE(waitFor([&] { return !manager().isLoading(); }));
    EXPECT_EQ(packageIDs(), QStringList(u"a"_s));
    manager().repositories().clear();
    manager().refreshAllWithCompletion(nullptr);
    EXPECT_FALSE(manager().isLoading());
}

TEST_F(RefreshAll, mayBeStartedAgainWhileItRuns)
{
    serve(u"/1"_s, "a");
    serve(u"/2"_s, "b");
    int completions = 0;
    for (int run = 0; run < 3; ++run)
        manager().refreshAllWithCompletion([&completions] { ++completions; });
    ASSERT_TRUE(waitFor([&completions] { return completions == 3; }));
    QStringList ids = packageIDs();
    ids.sort();
    EXPECT_EQ(ids, QStringList({ u"a"_s, u"b"_s }));
}

TEST_F(RefreshAll, mergesASourceRemovedMeanwhileAllTheSame)
{
    hold("/1/Packages.bz2", stanza("a"));
    const auto source = addServedSource(u"/1"_s);
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    ASSERT_TRUE(waitFor([&] { return !m_server.requests().empty(); }));
    manager().removeRepository(source);
    m_server.release("/1/Packages.bz2");
    ASSERT_TRUE(waitFor([&isDone] { return isDone; }));
    EXPECT_EQ(packageIDs(), QStringList(u"a"_s));
    EXPECT_EQ(manager().packages()[0]->repository(), source);
}

TEST_F(RefreshAll, mayBeStartedFromItsOwnCompletion)
{
    serve(u"/1"_s, "a");
    bool isDone = false;
    manager().refreshAllWithCompletion([&] { manager().refreshAllWithCompletion([&isDone] { isDone = true; }); });
    ASSERT_TRUE(waitFor([&isDone] { return isDone; }));
    EXPECT_EQ(packageIDs(), QStringList(u"a"_s));
}

TEST_F(RefreshAll, mayEndTheManagerByItsCompletion)
{
    serve(u"/1"_s, "a");
    serve(u"/2"_s, "b");
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
    hold("/1/Packages.bz2", stanza("a"));
    addServedSource(u"/1"_s);
    serve(u"/2"_s, "b");
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    ASSERT_TRUE(waitFor([&] { return m_server.requests().size() == 2; }));
    m_manager.reset();
    m_server.release("/1/Packages.bz2");
    QTest::qWait(20);
    EXPECT_FALSE(isDone);
}

TEST_F(RefreshAll, dropsWhatAWorkerStillDeliversWhenTheManagerIsGone)
{
    serve(u"/1"_s, "a");
    auto busy = std::make_shared<Workers>(1);
    CatalogWorld other = world();
    other.workers = busy;
    m_store->stored = std::vector<StoredSource>({ { m_server.url(u"/1"_s), u"A"_s, true } });
    m_manager = std::make_unique<RepoManager>(std::move(other));
    QSemaphore gate;
    busy->post([&gate] { gate.acquire(); });
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    ASSERT_TRUE(waitFor([&] { return !m_server.requests().empty(); }));
    QTest::qWait(20);
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
    for (const QString& urlString : { u""_s, QString(), u"https://not a url"_s }) {
        manager().setErrorMessage(QString());
        int completions = 0;
        manager().refreshRepository(addSource(urlString), [&completions] { ++completions; });
        EXPECT_EQ(completions, 1);
        EXPECT_EQ(manager().errorMessage(), u"Invalid repository URL"_s);
    }
    manager().refreshRepository(addSource(u""_s), nullptr);
    EXPECT_TRUE(m_server.requests().empty());
}

TEST_F(RefreshOne, leavesTheCatalogAndTheLoadingStateAsTheyAre)
{
    const auto first = serve(u"/1"_s, "a");
    const auto second = serve(u"/2"_s, "b");
    ASSERT_TRUE(refresh(first));
    manager().setErrorMessage(u"kept"_s);
    manager().refreshRepository(second, nullptr);
    EXPECT_FALSE(manager().isLoading());
    EXPECT_EQ(packageIDs(), QStringList(u"a"_s));
    ASSERT_TRUE(waitFor([&] { return manager().packages().size() == 2; }));
    EXPECT_EQ(manager().errorMessage(), u"kept"_s);
}

TEST_F(RefreshOne, fetchesADisabledSourceToo)
{
    const auto source = serve(u"/1"_s, "a");
    source->setEnabled(false);
    ASSERT_TRUE(refresh(source));
    EXPECT_EQ(packageIDs(), QStringList(u"a"_s));
}

TEST_F(RefreshOne, completesOnceForEachCall)
{
    const auto source = serve(u"/1"_s, "a");
    int completions = 0;
    manager().refreshRepository(source, [&completions] { ++completions; });
    manager().refreshRepository(source, [&completions] { ++completions; });
    EXPECT_EQ(completions, 0);
    ASSERT_TRUE(waitFor([&completions] { return completions == 2; }));
    QTest::qWait(20);
    EXPECT_EQ(completions, 2);
}
