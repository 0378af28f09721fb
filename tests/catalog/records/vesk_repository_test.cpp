#include "catalog/records/VeskCategory.h"
#include "catalog/records/VeskRepository.h"

#include <gtest/gtest.h>

namespace {

QString nameMadeFrom(const QString& urlString)
{
    return VeskRepository::repositoryWithURLString(urlString, QString())->name();
}

} // namespace

TEST(VeskRepository, startsWithEveryTextNullAndDisabledWhenMadePlainly)
{
    const VeskRepository repository;
    EXPECT_TRUE(repository.name().isNull());
    EXPECT_TRUE(repository.urlString().isNull());
    EXPECT_TRUE(repository.origin().isNull());
    EXPECT_TRUE(repository.repoDescription().isNull());
    EXPECT_TRUE(repository.iconURLString().isNull());
    EXPECT_FALSE(repository.enabled());
    EXPECT_FALSE(repository.lastRefresh().isValid());
}

TEST(VeskRepository, keepsEachPropertyApartFromTheOthers)
{
    VeskRepository repository;
    const QDateTime now = QDateTime::currentDateTime();
    repository.setName(QStringLiteral("name"));
    repository.setUrlString(QStringLiteral("url"));
    repository.setOrigin(QStringLiteral("origin"));
    repository.setRepoDescription(QStringLiteral("description"));
    repository.setIconURLString(QStringLiteral("icon"));
    repository.setLastRefresh(now);
    repository.setEnabled(true);
    EXPECT_EQ(repository.name(), QStringLiteral("name"));
    EXPECT_EQ(repository.urlString(), QStringLiteral("url"));
    EXPECT_EQ(repository.origin(), QStringLiteral("origin"));
    EXPECT_EQ(repository.repoDescription(), QStringLiteral("description"));
    EXPECT_EQ(repository.iconURLString(), QStringLiteral("icon"));
    EXPECT_EQ(repository.lastRefresh(), now);
    EXPECT_TRUE(repository.enabled());
}

TEST(VeskRepository, isEnabledAndOtherwiseEmptyWhenMadeByTheFactory)
{
    const auto repository
        = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
    EXPECT_EQ(repository->urlString(), QStringLiteral("https://a.example"));
    EXPECT_EQ(repository->name(), QStringLiteral("A"));
    EXPECT_TRUE(repository->enabled());
    EXPECT_TRUE(repository->origin().isNull());
    EXPECT_TRUE(repository->repoDescription().isNull());
    EXPECT_TRUE(repository->iconURLString().isNull());
    EXPECT_FALSE(repository->lastRefresh().isValid());
}

TEST(VeskRepository, isNamedAfterItsHostWhenTheRootHasNoPathAndTheNameIsNull)
{
    EXPECT_EQ(nameMadeFrom(QStringLiteral("https://repo.example.org")), QStringLiteral("repo.example.org"));
    EXPECT_EQ(nameMadeFrom(QStringLiteral("https://repo.example.org/")), QStringLiteral("repo.example.org"));
}

TEST(VeskRepository, isNamedAfterTheLastSegmentWithOrWithoutASlashBehindIt)
{
    EXPECT_EQ(nameMadeFrom(QStringLiteral("https://example.org/apt/stable")), QStringLiteral("stable"));
    EXPECT_EQ(nameMadeFrom(QStringLiteral("https://example.org/apt/stable/")), QStringLiteral("stable"));
    EXPECT_EQ(nameMadeFrom(QStringLiteral("https://example.org/apt/stable///")), QStringLiteral("stable"));
}

TEST(VeskRepository, takesTheRestOfUnusualTextsForTheLastSegment)
{
    EXPECT_EQ(nameMadeFrom(QStringLiteral("http://")), QStringLiteral("http:"));
    EXPECT_EQ(nameMadeFrom(QStringLiteral("/")), QStringLiteral("/"));
    EXPECT_EQ(nameMadeFrom(QStringLiteral("//")), QStringLiteral("/"));
    EXPECT_EQ(nameMadeFrom(QStringLiteral("a/")), QStringLiteral("a"));
    EXPECT_EQ(nameMadeFrom(QStringLiteral("https://h/a?b=c")), QStringLiteral("a?b=c"));
    EXPECT_TRUE(nameMadeFrom(QStringLiteral("")).isEmpty());
}

TEST(VeskRepository, keepsAnEmptyNameAsItIs)
{
    const auto repository
        = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral(""));
    EXPECT_FALSE(repository->name().isNull());
    EXPECT_TRUE(repository->name().isEmpty());
}

TEST(VeskRepository, hasNoUrlWhenItsTextIsEmptyOrUnacceptable)
{
    EXPECT_FALSE(VeskRepository::repositoryWithURLString(QStringLiteral(""), QStringLiteral(""))->url().has_value());
    EXPECT_FALSE(
        VeskRepository::repositoryWithURLString(QStringLiteral("https://a b"), QStringLiteral(""))->url().has_value());
    EXPECT_FALSE(VeskRepository().url().has_value());
}

TEST(VeskRepository, parsesItsUrlAfreshWhenTheTextChanges)
{
    const auto repository
        = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral(""));
    EXPECT_EQ(repository->url()->absoluteString(), QStringLiteral("https://a.example"));
    repository->setUrlString(QStringLiteral("https://b.example/"));
    EXPECT_EQ(repository->url()->absoluteString(), QStringLiteral("https://b.example/"));
}

TEST(VeskRepository, keepsItsOwnCopyOfATextThatIsChangedLater)
{
    QString name = QStringLiteral("first");
    VeskRepository repository;
    repository.setName(name);
    name.append(QStringLiteral(" and more"));
    EXPECT_EQ(repository.name(), QStringLiteral("first"));
}

TEST(VeskCategory, holdsTheNameAndCountItWasMadeWith)
{
    const auto category = VeskCategory::categoryWithName(QStringLiteral("Games"), 18446744073709551615U);
    EXPECT_EQ(category->name(), QStringLiteral("Games"));
    EXPECT_EQ(category->count(), 18446744073709551615U);
    category->setName(QStringLiteral("Tools"));
    category->setCount(3);
    EXPECT_EQ(category->name(), QStringLiteral("Tools"));
    EXPECT_EQ(category->count(), 3U);
}
