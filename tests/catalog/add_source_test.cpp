#include "tests/catalog/CatalogFixture.h"

using namespace Qt::StringLiterals;

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
        EXPECT_EQ(answer->error->domain, u"VeskApp"_s);
        EXPECT_EQ(answer->error->code, 1);
        EXPECT_EQ(answer->error->localizedDescription, u"Invalid URL"_s);
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
    for (const QString& text : { QString(), u""_s, u"  \t\r\n "_s })
        expectRefused(text);
}

TEST_F(AddSource, refusesTextThatIsNoUrl)
{
    expectRefused(u"https://exa mple.org"_s);
    expectRefused(u"exa mple.org"_s);
    expectRefused(u"https://h/%zz"_s);
}

TEST_F(AddSource, refusesAHostThatItselfBeginsWithTheFourLetters)
{
    expectRefused(u"httpbin.example"_s);
    expectRefused(u"http"_s);
}

TEST_F(AddSource, needsNoCompletionToRefuseOrToAcceptADuplicate)
{
    manager().addRepositoryWithURLString(u""_s, nullptr);
    manager().addRepositoryWithURLString(u"a b"_s, nullptr);
    addSource(u"https://a.example"_s);
    manager().addRepositoryWithURLString(u"https://a.example"_s, nullptr);
    EXPECT_EQ(manager().repositories().size(), 1U);
}

TEST_F(AddSource, putsTheSchemeBeforeABareHostAndTrimsTheText)
{
    const auto source = added(u" \t repo.example.org/ \n"_s);
    EXPECT_EQ(source->urlString(), u"https://repo.example.org/"_s);
    EXPECT_EQ(source->name(), u"repo.example.org"_s);
    EXPECT_TRUE(source->enabled());
}

TEST_F(AddSource, leavesTextInLowerCaseSchemesAsItIs)
{
    EXPECT_EQ(added(u"http://h.example/x"_s)->urlString(), u"http://h.example/x"_s);
    EXPECT_EQ(added(u"https://h.example"_s)->urlString(), u"https://h.example"_s);
}

TEST_F(AddSource, putsTheSchemeBeforeOtherAndUpperCaseSchemesToo)
{
    const auto upper = added(u"HTTPS://Repo.Example.org/"_s);
    EXPECT_EQ(upper->urlString(), u"https://HTTPS://Repo.Example.org/"_s);
    EXPECT_EQ(upper->name(), u"HTTPS"_s);
    EXPECT_EQ(added(u"ftp://h.example"_s)->urlString(), u"https://ftp://h.example"_s);
}

TEST_F(AddSource, namesTheSourceAfterItsHostEvenWhenItIsADefault)
{
    EXPECT_EQ(added(u"https://repo.chariz.com"_s)->name(), u"repo.chariz.com"_s);
    EXPECT_EQ(added(u"https://user@Host.example:8080/apt/"_s)->name(), u"Host.example"_s);
}

TEST_F(AddSource, namesASourceWithoutHostAfterTheEndOfItsText)
{
    EXPECT_EQ(added(u"https:///apt/stable/"_s)->name(), u"stable"_s);
}

TEST_F(AddSource, acceptsADuplicateAtOnceAndChangesNothing)
{
    const auto known = addSource(u"https://a.example"_s);
    known->setEnabled(false);
    const int writes = m_store->writes;
    for (const QString& text : { u"https://a.example"_s, u"a.example"_s, u"  https://a.example\n"_s }) {
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
    EXPECT_FALSE(add(m_server.url(u"/"_s)).has_value());
    EXPECT_EQ(manager().repositories().size(), 2U);
    ASSERT_TRUE(wait());
}

TEST_F(AddSource, tellsHostsInOtherLettersApart)
{
    addSource(u"http://LOCALHOST:%1"_s.arg(m_server.port()));
    EXPECT_FALSE(add(u"http://localhost:%1"_s.arg(m_server.port())).has_value());
    EXPECT_EQ(manager().repositories().size(), 2U);
}

TEST_F(AddSource, appendsAndStoresTheSourceBeforeAnythingIsFetched)
{
    addSource(u"https://a.example"_s);
    EXPECT_FALSE(add(m_server.url(u"/r"_s)).has_value());
    ASSERT_EQ(manager().repositories().size(), 2U);
    EXPECT_EQ(manager().repositories()[1]->urlString(), m_server.url(u"/r"_s));
    EXPECT_EQ(manager().repositories()[1]->name(), u"127.0.0.1"_s);
    ASSERT_EQ(m_store->stored->size(), 2U);
    EXPECT_EQ((*m_store->stored)[1], (StoredSource{ m_server.url(u"/r"_s), u"127.0.0.1"_s, true }));
    EXPECT_TRUE(m_server.requests().empty());
    ASSERT_TRUE(wait());
}

TEST_F(AddSource, fetchesThatSourceAloneAndThenReportsSuccess)
{
    m_server.serve("/r/Packages.gz", gzipped(stanza("a")));
    addServedSource(u"/other"_s);
    EXPECT_FALSE(add(m_server.url(u"/r"_s)).has_value());
    ASSERT_TRUE(wait());
    EXPECT_TRUE((*m_state)->success);
    EXPECT_FALSE((*m_state)->error.has_value());
    EXPECT_EQ(packageIDs(), QStringList(u"a"_s));
    EXPECT_EQ(m_server.requestedPaths(), std::vector<QByteArray>({ "/r/Packages.bz2", "/r/Packages.gz" }));
    EXPECT_FALSE(manager().isLoading());
}

TEST_F(AddSource, reportsSuccessEvenWhenNothingCanBeFetched)
{
    EXPECT_FALSE(add(m_server.url(u"/missing"_s)).has_value());
    ASSERT_TRUE(wait());
    EXPECT_TRUE((*m_state)->success);
    EXPECT_FALSE((*m_state)->error.has_value());
    EXPECT_EQ(manager().errorMessage(), u"Could not fetch repository packages"_s);
    EXPECT_EQ(manager().repositories().size(), 1U);
    EXPECT_EQ(m_store->stored->size(), 1U);
}

TEST_F(AddSource, fetchesWithoutACompletionToo)
{
    m_server.serve("/r/Packages.bz2", stanza("a"));
    manager().addRepositoryWithURLString(m_server.url(u"/r"_s), nullptr);
    ASSERT_TRUE(QTest::qWaitFor([this] { return manager().packages().size() == 1; }, patience));
}
