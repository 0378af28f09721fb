#include "tests/catalog/CatalogFixture.h"

class AddSource : public CatalogFixture
{
protected:
    struct Answer
    {
        bool success = false;
        std::optional<RepositoryError> error;
    };

    // What was answered before the call returned, if anything was.
    std::optional<Answer> add(const QString& text)
    {
        std::optional<Answer> atOnce;
        const auto state = m_state = std::make_shared<std::optional<Answer>>();
        manager().addRepositoryWithURLString(text, [state](bool success, const std::optional<RepositoryError>& error) {
            EXPECT_FALSE(state->has_value()) << "completed twice";
            *state = Answer{ success, error };
        });
        return *state;
    }

    bool wait()
    {
        return QTest::qWaitFor([this] { return m_state->has_value(); }, patience);
    }

    void expectRefused(const QString& text)
    {
        const int writes = (manager(), m_store->writes);
        const std::size_t count = manager().repositories().size();
        const auto answer = add(text);
        ASSERT_TRUE(answer.has_value()) << text.toStdString();
        EXPECT_FALSE(answer->success);
        ASSERT_TRUE(answer->error.has_value());
        EXPECT_EQ(answer->error->domain, QStringLiteral("VeskApp"));
        EXPECT_EQ(answer->error->code, 1);
        EXPECT_EQ(answer->error->localizedDescription, QStringLiteral("Invalid URL"));
        EXPECT_EQ(manager().repositories().size(), count);
        EXPECT_EQ(m_store->writes, writes);
    }

    // What a text becomes when it is added; it is never fetched, for the event loop does not run.
    VeskRepositoryPtr added(const QString& text)
    {
        manager().repositories().clear();
        EXPECT_FALSE(add(text).has_value());
        EXPECT_EQ(manager().repositories().size(), 1U);
        const auto source = manager().repositories().empty() ? VeskRepositoryPtr() : manager().repositories().back();
        m_manager.reset();
        return source ? source : std::make_shared<VeskRepository>();
    }

    std::shared_ptr<std::optional<Answer>> m_state;
};

TEST_F(AddSource, refusesTextThatIsEmptyOrAllBlanks)
{
    for (const QString& text : { QString(), QStringLiteral(""), QStringLiteral("  \t\r\n ") })
        expectRefused(text);
}

TEST_F(AddSource, refusesTextThatIsNoUrl)
{
    expectRefused(QStringLiteral("https://exa mple.org"));
    expectRefused(QStringLiteral("exa mple.org"));
    expectRefused(QStringLiteral("https://h/%zz"));
}

TEST_F(AddSource, refusesAHostThatItselfBeginsWithTheFourLetters)
{
    expectRefused(QStringLiteral("httpbin.example"));
    expectRefused(QStringLiteral("http"));
}

TEST_F(AddSource, needsNoCompletionToRefuseOrToAcceptADuplicate)
{
    manager().addRepositoryWithURLString(QStringLiteral(""), nullptr);
    manager().addRepositoryWithURLString(QStringLiteral("a b"), nullptr);
    addSource(QStringLiteral("https://a.example"));
    manager().addRepositoryWithURLString(QStringLiteral("https://a.example"), nullptr);
    EXPECT_EQ(manager().repositories().size(), 1U);
}

TEST_F(AddSource, putsTheSchemeBeforeABareHostAndTrimsTheText)
{
    const auto source = added(QStringLiteral(" \t repo.example.org/ \n"));
    EXPECT_EQ(source->urlString(), QStringLiteral("https://repo.example.org/"));
    EXPECT_EQ(source->name(), QStringLiteral("repo.example.org"));
    EXPECT_TRUE(source->enabled());
}

TEST_F(AddSource, leavesTextInLowerCaseSchemesAsItIs)
{
    EXPECT_EQ(added(QStringLiteral("http://h.example/x"))->urlString(), QStringLiteral("http://h.example/x"));
    EXPECT_EQ(added(QStringLiteral("https://h.example"))->urlString(), QStringLiteral("https://h.example"));
}

TEST_F(AddSource, putsTheSchemeBeforeOtherAndUpperCaseSchemesToo)
{
    const auto upper = added(QStringLiteral("HTTPS://Repo.Example.org/"));
    EXPECT_EQ(upper->urlString(), QStringLiteral("https://HTTPS://Repo.Example.org/"));
    EXPECT_EQ(upper->name(), QStringLiteral("HTTPS"));
    EXPECT_EQ(added(QStringLiteral("ftp://h.example"))->urlString(), QStringLiteral("https://ftp://h.example"));
}

TEST_F(AddSource, namesTheSourceAfterItsHostEvenWhenItIsADefault)
{
    EXPECT_EQ(added(QStringLiteral("https://repo.chariz.com"))->name(), QStringLiteral("repo.chariz.com"));
    EXPECT_EQ(added(QStringLiteral("https://user@Host.example:8080/apt/"))->name(), QStringLiteral("Host.example"));
}

TEST_F(AddSource, namesASourceWithoutHostAfterTheEndOfItsText)
{
    EXPECT_EQ(added(QStringLiteral("https:///apt/stable/"))->name(), QStringLiteral("stable"));
}

TEST_F(AddSource, acceptsADuplicateAtOnceAndChangesNothing)
{
    const auto known = addSource(QStringLiteral("https://a.example"));
    known->setEnabled(false);
    const int writes = m_store->writes;
    for (const QString& text :
        { QStringLiteral("https://a.example"), QStringLiteral("a.example"), QStringLiteral("  https://a.example\n") }) {
        const auto answer = add(text);
        ASSERT_TRUE(answer.has_value());
        EXPECT_TRUE(answer->success);
        EXPECT_FALSE(answer->error.has_value());
    }
    EXPECT_EQ(manager().repositories().size(), 1U);
    EXPECT_EQ(m_store->writes, writes);
    EXPECT_FALSE(known->enabled());
}

TEST_F(AddSource, tellsTheSameRootWithAndWithoutASlashApart)
{
    addSource(m_server.url());
    EXPECT_FALSE(add(m_server.url(QStringLiteral("/"))).has_value());
    EXPECT_EQ(manager().repositories().size(), 2U);
    ASSERT_TRUE(wait());
}

TEST_F(AddSource, tellsHostsInOtherLettersApart)
{
    addSource(QStringLiteral("http://LOCALHOST:%1").arg(m_server.port()));
    EXPECT_FALSE(add(QStringLiteral("http://localhost:%1").arg(m_server.port())).has_value());
    EXPECT_EQ(manager().repositories().size(), 2U);
}

TEST_F(AddSource, appendsAndStoresTheSourceBeforeAnythingIsFetched)
{
    addSource(QStringLiteral("https://a.example"));
    EXPECT_FALSE(add(m_server.url(QStringLiteral("/r"))).has_value());
    ASSERT_EQ(manager().repositories().size(), 2U);
    EXPECT_EQ(manager().repositories()[1]->urlString(), m_server.url(QStringLiteral("/r")));
    EXPECT_EQ(manager().repositories()[1]->name(), QStringLiteral("127.0.0.1"));
    ASSERT_EQ(m_store->stored->size(), 2U);
    EXPECT_EQ(
        (*m_store->stored)[1], (StoredSource{ m_server.url(QStringLiteral("/r")), QStringLiteral("127.0.0.1"), true }));
    EXPECT_TRUE(m_server.requests().empty());
    ASSERT_TRUE(wait());
}

TEST_F(AddSource, fetchesThatSourceAloneAndThenReportsSuccess)
{
    m_server.serve("/r/Packages.gz", gzipped(stanza("a")));
    addServedSource(QStringLiteral("/other"));
    EXPECT_FALSE(add(m_server.url(QStringLiteral("/r"))).has_value());
    ASSERT_TRUE(wait());
    EXPECT_TRUE((*m_state)->success);
    EXPECT_FALSE((*m_state)->error.has_value());
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
    EXPECT_EQ(m_server.requestedPaths(), std::vector<QByteArray>({ "/r/Packages.bz2", "/r/Packages.gz" }));
    EXPECT_FALSE(manager().isLoading());
}

TEST_F(AddSource, reportsSuccessEvenWhenNothingCanBeFetched)
{
    EXPECT_FALSE(add(m_server.url(QStringLiteral("/missing"))).has_value());
    ASSERT_TRUE(wait());
    EXPECT_TRUE((*m_state)->success);
    EXPECT_FALSE((*m_state)->error.has_value());
    EXPECT_EQ(manager().errorMessage(), QStringLiteral("Could not fetch repository packages"));
    EXPECT_EQ(manager().repositories().size(), 1U);
    EXPECT_EQ(m_store->stored->size(), 1U);
}

TEST_F(AddSource, fetchesWithoutACompletionToo)
{
    m_server.serve("/r/Packages.bz2", stanza("a"));
    manager().addRepositoryWithURLString(m_server.url(QStringLiteral("/r")), nullptr);
    ASSERT_TRUE(QTest::qWaitFor([this] { return manager().packages().size() == 1; }, patience));
}
