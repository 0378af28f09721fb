#include "tests/catalog/CatalogFixture.h"

namespace {

QStringList describe(const std::vector<VeskRepositoryPtr>& repositories)
{
    QStringList lines;
    for (const VeskRepositoryPtr& repository : repositories)
        lines.append(repository->name() + u' ' + repository->urlString()
            + (repository->enabled() ? QStringLiteral(" on") : QStringLiteral(" off")));
    return lines;
}

const QStringList defaultLines{
    QStringLiteral("Chariz https://repo.chariz.com on"),
    QStringLiteral("Havoc https://havoc.app on"),
    QStringLiteral("ElleKit https://ellekit.space on"),
    QStringLiteral("Frida https://build.frida.re on"),
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
            lines.append(
                source.name + u' ' + source.url + (source.enabled ? QStringLiteral(" on") : QStringLiteral(" off")));
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
    m_store->stored = std::vector<StoredSource>({ { QStringLiteral("https://b"), QStringLiteral("B"), false },
        { QStringLiteral(""), QStringLiteral(""), false }, { QStringLiteral("https://a"), QStringLiteral("A"), true },
        { QStringLiteral("https://a"), QStringLiteral("A"), true } });
    RepoManager& manager = restore();
    EXPECT_EQ(describe(manager.repositories()),
        QStringList({ QStringLiteral("B https://b off"), QStringLiteral("  off"), QStringLiteral("A https://a on"),
            QStringLiteral("A https://a on") }));
    EXPECT_EQ(m_store->writes, 0);
    EXPECT_FALSE(manager.repositories()[1]->urlString().isNull());
    EXPECT_FALSE(manager.repositories()[1]->name().isNull());
    EXPECT_TRUE(manager.repositories()[0]->origin().isNull());
}

TEST_F(RepositoryStore, startsNothingButTheRestore)
{
    m_store->stored = std::vector<StoredSource>({ { m_server.url(), QStringLiteral("A"), true } });
    RepoManager& manager = restore();
    EXPECT_TRUE(manager.packages().empty());
    EXPECT_FALSE(manager.isLoading());
    EXPECT_TRUE(manager.errorMessage().isNull());
    // Whatever the restore had asked for would be there before what is asked for now.
    m_server.serve("/Packages.bz2", stanza("a"));
    ASSERT_TRUE(refreshAll());
    EXPECT_EQ(m_server.requestedPaths(), std::vector<QByteArray>{ "/Packages.bz2" });
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
    const auto source = addSource(QStringLiteral("https://a.example"));
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
    const auto source = addSource(QStringLiteral("https://a.example"));
    const auto twin = addSource(QStringLiteral("https://a.example"));
    manager().repositories().push_back(source);
    manager().removeRepository(source);
    EXPECT_EQ(manager().repositories(), std::vector<VeskRepositoryPtr>({ twin }));
    EXPECT_EQ(storedLines(), QStringList(QStringLiteral("Source https://a.example on")));
}

TEST_F(RepositoryStore, removesARecordGivenAsAnElementOfTheListItself)
{
    addSource(QStringLiteral("https://a.example"));
    const auto other = addSource(QStringLiteral("https://b.example"));
    manager().repositories().push_back(manager().repositories().front());
    manager().removeRepository(manager().repositories().front());
    EXPECT_EQ(manager().repositories(), std::vector<VeskRepositoryPtr>({ other }));
}

TEST_F(RepositoryStore, emptiesTheWholeCatalogWhenASourceIsRemoved)
{
    const auto source = addSource(QStringLiteral("https://a.example"));
    addSource(QStringLiteral("https://b.example"));
    manager().packages().push_back(makePackage(QStringLiteral("a")));
    manager().removeRepository(source);
    EXPECT_TRUE(manager().packages().empty());
    EXPECT_FALSE(manager().isLoading());
}

TEST_F(RepositoryStore, emptiesTheCatalogAndPersistsWhenTheRecordIsNotInTheList)
{
    addSource(QStringLiteral("https://a.example"));
    manager().packages().push_back(makePackage(QStringLiteral("a")));
    const int before = m_store->writes;
    manager().removeRepository(std::make_shared<VeskRepository>());
    EXPECT_EQ(manager().repositories().size(), 1U);
    EXPECT_TRUE(manager().packages().empty());
    EXPECT_EQ(m_store->writes, before + 1);
}

TEST_F(RepositoryStore, doesNothingWhenNoRecordIsRemoved)
{
    addSource(QStringLiteral("https://a.example"));
    manager().packages().push_back(makePackage(QStringLiteral("a")));
    const int before = m_store->writes;
    manager().removeRepository(nullptr);
    EXPECT_EQ(m_store->writes, before);
    EXPECT_EQ(manager().packages().size(), 1U);
}

TEST_F(RepositoryStore, persistsASwitchedSourceAndLeavesTheCatalogAlone)
{
    const auto source = addServedSource(QStringLiteral("/r"));
    const QString line = QStringLiteral("Source ") + source->urlString();
    manager().packages().push_back(makePackage(QStringLiteral("a")));
    manager().toggleRepository(source, false);
    EXPECT_FALSE(source->enabled());
    EXPECT_EQ(storedLines(), QStringList(line + QStringLiteral(" off")));
    EXPECT_EQ(manager().packages().size(), 1U);
    manager().toggleRepository(source, true);
    EXPECT_EQ(storedLines(), QStringList(line + QStringLiteral(" on")));
    // Whatever the switch had asked for would be there before what is asked for now.
    m_server.serve("/r/Packages.bz2", stanza("a"));
    ASSERT_TRUE(refresh(source));
    EXPECT_EQ(m_server.requestedPaths(), std::vector<QByteArray>{ "/r/Packages.bz2" });
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
    live.setPackages({ makePackage(QStringLiteral("a")) });
    EXPECT_EQ(packages.size(), 1U);
    live.setRepositories({});
    EXPECT_TRUE(repositories.empty());
    live.setIsLoading(true);
    EXPECT_TRUE(live.isLoading());
}
