#include "tests/catalog/CatalogFixture.h"

using namespace Qt::StringLiterals;

namespace {

QStringList describe(const std::vector<VeskRepositoryPtr>& repositories)
{
    QStringList lines;
    for (const VeskRepositoryPtr& repository : repositories)
        lines.append(
            repository->name() + u' ' + repository->urlString() + (repository->enabled() ? u" on"_s : u" off"_s));
    return lines;
}

const QStringList defaultLines{
    u"Chariz https://repo.chariz.com on"_s,
    u"Havoc https://havoc.app on"_s,
    u"ElleKit https://ellekit.space on"_s,
    u"Frida https://build.frida.re on"_s,
};

} // namespace

class RepositoryStore : public CatalogFixture
{
protected:
    // A manager that restores what the store holds.
    RepoManager& restore()
    {
        m_manager = std::make_unique<RepoManager>(world());
        return *m_manager;
    }

    QStringList storedLines() const
    {
        QStringList lines;
        for (const StoredSource& source : m_store->stored.value_or(std::vector<StoredSource>()))
            lines.append(source.name + u' ' + source.url + (source.enabled ? u" on"_s : u" off"_s));
        return lines;
    }
};

TEST_F(RepositoryStore, holdsTheFourDefaultsInOrderAfterAFirstLaunch)
{
    EXPECT_EQ(describe(restore().repositories()), defaultLines);
    EXPECT_EQ(storedLines(), defaultLines);
}

TEST_F(RepositoryStore, isWrittenTwiceByAFirstLaunch)
{
    restore();
    EXPECT_EQ(m_store->writes, 2);
}

TEST_F(RepositoryStore, holdsTheDefaultsAgainAfterALaunchWithAnEmptyList)
{
    m_store->stored = std::vector<StoredSource>();
    EXPECT_EQ(describe(restore().repositories()), defaultLines);
    EXPECT_EQ(storedLines(), defaultLines);
    EXPECT_EQ(m_store->writes, 2);
}

TEST_F(RepositoryStore, isOnlyReadWhenItHoldsAList)
{
    m_store->stored = std::vector<StoredSource>({ { u"https://b"_s, u"B"_s, false }, { u""_s, u""_s, false },
        { u"https://a"_s, u"A"_s, true }, { u"https://a"_s, u"A"_s, true } });
    RepoManager& manager = restore();
    EXPECT_EQ(describe(manager.repositories()),
        QStringList({ u"B https://b off"_s, u"  off"_s, u"A https://a on"_s, u"A https://a on"_s }));
    EXPECT_EQ(m_store->writes, 0);
    EXPECT_FALSE(manager.repositories()[1]->urlString().isNull());
    EXPECT_FALSE(manager.repositories()[1]->name().isNull());
    EXPECT_TRUE(manager.repositories()[0]->origin().isNull());
}

TEST_F(RepositoryStore, startsNothingButTheRestore)
{
    m_store->stored = std::vector<StoredSource>({ { m_server.url(), u"A"_s, true } });
    RepoManager& manager = restore();
    QTest::qWait(20);
    EXPECT_TRUE(m_server.requests().empty());
    EXPECT_TRUE(manager.packages().empty());
    EXPECT_FALSE(manager.isLoading());
    EXPECT_TRUE(manager.errorMessage().isNull());
}

TEST_F(RepositoryStore, keepsNullTextsAsEmptyOnes)
{
    manager().repositories().push_back(std::make_shared<VeskRepository>());
    manager().persistState();
    ASSERT_EQ(m_store->stored->size(), 1U);
    EXPECT_FALSE(m_store->stored->front().url.isNull());
    EXPECT_FALSE(m_store->stored->front().name.isNull());
    EXPECT_FALSE(m_store->stored->front().enabled);
}

TEST_F(RepositoryStore, makesNewDefaultRecordsForEveryCaller)
{
    const auto one = RepoManager::defaultRepositories();
    const auto other = RepoManager::defaultRepositories();
    ASSERT_EQ(describe(one), defaultLines);
    for (std::size_t index = 0; index < one.size(); ++index)
        EXPECT_NE(one[index], other[index]);
}

TEST_F(RepositoryStore, loadsTheDefaultsOnlyIntoAnEmptyList)
{
    const auto source = addSource(u"https://a.example"_s);
    const int before = m_store->writes;
    manager().loadDefaults();
    EXPECT_EQ(manager().repositories(), std::vector<VeskRepositoryPtr>({ source }));
    EXPECT_EQ(m_store->writes, before);
    manager().repositories().clear();
    manager().loadDefaults();
    EXPECT_EQ(describe(manager().repositories()), defaultLines);
    EXPECT_EQ(m_store->writes, before + 1);
}

TEST_F(RepositoryStore, removesThatVeryRecordWhereverItStands)
{
    const auto source = addSource(u"https://a.example"_s);
    const auto twin = addSource(u"https://a.example"_s);
    manager().repositories().push_back(source);
    manager().removeRepository(source);
    EXPECT_EQ(manager().repositories(), std::vector<VeskRepositoryPtr>({ twin }));
    EXPECT_EQ(storedLines(), QStringList(u"Source https://a.example on"_s));
}

TEST_F(RepositoryStore, removesARecordGivenAsAnElementOfTheListItself)
{
    addSource(u"https://a.example"_s);
    const auto other = addSource(u"https://b.example"_s);
    manager().repositories().push_back(manager().repositories().front());
    manager().removeRepository(manager().repositories().front());
    EXPECT_EQ(manager().repositories(), std::vector<VeskRepositoryPtr>({ other }));
}

TEST_F(RepositoryStore, emptiesTheWholeCatalogWhenASourceIsRemoved)
{
    const auto source = addSource(u"https://a.example"_s);
    addSource(u"https://b.example"_s);
    manager().packages().push_back(makePackage(u"a"_s));
    manager().removeRepository(source);
    EXPECT_TRUE(manager().packages().empty());
    EXPECT_FALSE(manager().isLoading());
}

TEST_F(RepositoryStore, emptiesTheCatalogAndPersistsWhenTheRecordIsNotInTheList)
{
    addSource(u"https://a.example"_s);
    manager().packages().push_back(makePackage(u"a"_s));
    const int before = m_store->writes;
    manager().removeRepository(std::make_shared<VeskRepository>());
    EXPECT_EQ(manager().repositories().size(), 1U);
    EXPECT_TRUE(manager().packages().empty());
    EXPECT_EQ(m_store->writes, before + 1);
}

TEST_F(RepositoryStore, doesNothingWhenNoRecordIsRemoved)
{
    addSource(u"https://a.example"_s);
    manager().packages().push_back(makePackage(u"a"_s));
    const int before = m_store->writes;
    manager().removeRepository(nullptr);
    EXPECT_EQ(m_store->writes, before);
    EXPECT_EQ(manager().packages().size(), 1U);
}

TEST_F(RepositoryStore, persistsASwitchedSourceAndLeavesTheCatalogAlone)
{
    const auto source = addSource(u"https://a.example"_s);
    manager().packages().push_back(makePackage(u"a"_s));
    manager().toggleRepository(source, false);
    EXPECT_FALSE(source->enabled());
    EXPECT_EQ(storedLines(), QStringList(u"Source https://a.example off"_s));
    EXPECT_EQ(manager().packages().size(), 1U);
    manager().toggleRepository(source, true);
    EXPECT_EQ(storedLines(), QStringList(u"Source https://a.example on"_s));
    QTest::qWait(20);
    EXPECT_TRUE(m_server.requests().empty());
}

TEST_F(RepositoryStore, persistsWhenNoSourceIsSwitched)
{
    manager();
    const int before = m_store->writes;
    manager().toggleRepository(nullptr, true);
    EXPECT_EQ(m_store->writes, before + 1);
}

TEST_F(RepositoryStore, hasItsListsHandedOutLive)
{
    RepoManager& live = manager();
    std::vector<VeskRepositoryPtr>& repositories = live.repositories();
    const PackageList& packages = live.packages();
    live.loadDefaults();
    EXPECT_EQ(repositories.size(), 4U);
    live.setPackages({ makePackage(u"a"_s) });
    EXPECT_EQ(packages.size(), 1U);
    live.setRepositories({});
    EXPECT_TRUE(repositories.empty());
    live.setIsLoading(true);
    EXPECT_TRUE(live.isLoading());
}
