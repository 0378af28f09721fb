#include "catalog/records/VeskCategory.h"
#include "catalog/records/VeskRepository.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
    repository.setName(u"name"_s);
    repository.setUrlString(u"url"_s);
    repository.setOrigin(u"origin"_s);
    repository.setRepoDescription(u"description"_s);
    repository.setIconURLString(u"icon"_s);
    repository.setLastRefresh(now);
    repository.setEnabled(true);
    EXPECT_EQ(repository.name(), u"name"_s);
    EXPECT_EQ(repository.urlString(), u"url"_s);
    EXPECT_EQ(repository.origin(), u"origin"_s);
    EXPECT_EQ(repository.repoDescription(), u"description"_s);
    EXPECT_EQ(repository.iconURLString(), u"icon"_s);
    EXPECT_EQ(repository.lastRefresh(), now);
    EXPECT_TRUE(repository.enabled());
}

TEST(VeskRepository, isEnabledAndOtherwiseEmptyWhenMadeByTheFactory)
{
    const auto repository = VeskRepository::repositoryWithURLString(u"https://a.example"_s, u"A"_s);
    EXPECT_EQ(repository->urlString(), u"https://a.example"_s);
    EXPECT_EQ(repository->name(), u"A"_s);
    EXPECT_TRUE(repository->enabled());
    EXPECT_TRUE(repository->origin().isNull());
    EXPECT_TRUE(repository->repoDescription().isNull());
    EXPECT_TRUE(repository->iconURLString().isNull());
    EXPECT_FALSE(repository->lastRefresh().isValid());
}

TEST(VeskRepository, isNamedAfterItsHostWhenTheRootHasNoPathAndTheNameIsNull)
{
    EXPECT_EQ(nameMadeFrom(u"https://repo.example.org"_s), u"repo.example.org"_s);
    EXPECT_EQ(nameMadeFrom(u"https://repo.example.org/"_s), u"repo.example.org"_s);
}

TEST(VeskRepository, isNamedAfterTheLastSegmentWithOrWithoutASlashBehindIt)
{
    EXPECT_EQ(nameMadeFrom(u"https://example.org/apt/stable"_s), u"stable"_s);
    EXPECT_EQ(nameMadeFrom(u"https://example.org/apt/stable/"_s), u"stable"_s);
    EXPECT_EQ(nameMadeFrom(u"https://example.org/apt/stable///"_s), u"stable"_s);
}

TEST(VeskRepository, takesTheRestOfUnusualTextsForTheLastSegment)
{
    EXPECT_EQ(nameMadeFrom(u"http://"_s), u"http:"_s);
    EXPECT_EQ(nameMadeFrom(u"/"_s), u"/"_s);
    EXPECT_EQ(nameMadeFrom(u"https://h/a?b=c"_s), u"a?b=c"_s);
    EXPECT_TRUE(nameMadeFrom(u""_s).isEmpty());
}

TEST(VeskRepository, keepsAnEmptyNameAsItIs)
{
    const auto repository = VeskRepository::repositoryWithURLString(u"https://a.example"_s, u""_s);
    EXPECT_FALSE(repository->name().isNull());
    EXPECT_TRUE(repository->name().isEmpty());
}

TEST(VeskRepository, hasNoUrlWhenItsTextIsEmptyOrUnacceptable)
{
    EXPECT_FALSE(VeskRepository::repositoryWithURLString(u""_s, u""_s)->url().has_value());
    EXPECT_FALSE(VeskRepository::repositoryWithURLString(u"https://a b"_s, u""_s)->url().has_value());
    EXPECT_FALSE(VeskRepository().url().has_value());
}

TEST(VeskRepository, parsesItsUrlAfreshWhenTheTextChanges)
{
    const auto repository = VeskRepository::repositoryWithURLString(u"https://a.example"_s, u""_s);
    EXPECT_EQ(repository->url()->absoluteString(), u"https://a.example"_s);
    repository->setUrlString(u"https://b.example/"_s);
    EXPECT_EQ(repository->url()->absoluteString(), u"https://b.example/"_s);
}

TEST(VeskRepository, keepsItsOwnCopyOfATextThatIsChangedLater)
{
    QString name = u"first"_s;
    VeskRepository repository;
    repository.setName(name);
    name.append(u" and more"_s);
    EXPECT_EQ(repository.name(), u"first"_s);
}

TEST(VeskCategory, holdsTheNameAndCountItWasMadeWith)
{
    const auto category = VeskCategory::categoryWithName(u"Games"_s, 18446744073709551615U);
    EXPECT_EQ(category->name(), u"Games"_s);
    EXPECT_EQ(category->count(), 18446744073709551615U);
    category->setName(u"Tools"_s);
    category->setCount(3);
    EXPECT_EQ(category->name(), u"Tools"_s);
    EXPECT_EQ(category->count(), 3U);
}
