#include "catalog/records/VeskPackage.h"

#include <gtest/gtest.h>

namespace {

struct Property
{
    const char* name;
    QString (VeskPackage::*get)() const;
    void (VeskPackage::*set)(const QString&);
};

const Property properties[] = {
    { "packageID", &VeskPackage::packageID, &VeskPackage::setPackageID },
    { "name", &VeskPackage::name, &VeskPackage::setName },
    { "version", &VeskPackage::version, &VeskPackage::setVersion },
    { "desc", &VeskPackage::desc, &VeskPackage::setDesc },
    { "author", &VeskPackage::author, &VeskPackage::setAuthor },
    { "maintainer", &VeskPackage::maintainer, &VeskPackage::setMaintainer },
    { "section", &VeskPackage::section, &VeskPackage::setSection },
    { "iconURLString", &VeskPackage::iconURLString, &VeskPackage::setIconURLString },
    { "depictionURLString", &VeskPackage::depictionURLString, &VeskPackage::setDepictionURLString },
    { "homepageURLString", &VeskPackage::homepageURLString, &VeskPackage::setHomepageURLString },
    { "installedVersion", &VeskPackage::installedVersion, &VeskPackage::setInstalledVersion },
};

} // namespace

TEST(VeskPackage, startsWithEveryTextNullAndNoSourceWhenMadePlainly)
{
    const VeskPackage package;
    for (const Property& property : properties)
        EXPECT_TRUE((package.*property.get)().isNull()) << property.name;
    EXPECT_EQ(package.repository(), nullptr);
    EXPECT_FALSE(package.installed());
    EXPECT_FALSE(package.hasUpdate());
}

TEST(VeskPackage, keepsEachTextApartFromTheOthers)
{
    VeskPackage package;
    for (const Property& property : properties)
        (package.*property.set)(QString::fromLatin1(property.name));
    for (const Property& property : properties)
        EXPECT_EQ((package.*property.get)(), QString::fromLatin1(property.name));
}

TEST(VeskPackage, tellsNullFromEmptyInEveryText)
{
    VeskPackage package;
    for (const Property& property : properties) {
        (package.*property.set)(QStringLiteral(""));
        EXPECT_FALSE((package.*property.get)().isNull()) << property.name;
        EXPECT_TRUE((package.*property.get)().isEmpty()) << property.name;
        (package.*property.set)(QString());
        EXPECT_TRUE((package.*property.get)().isNull()) << property.name;
    }
}

TEST(VeskPackage, givesBackTextsOfAllScriptsAndWithNulCharactersUnchanged)
{
    VeskPackage package;
    const QString text = QStringLiteral("Ünï → 漢字 \U0001F600 e\u0301") + QChar(u'\0') + QStringLiteral("x");
    package.setName(text);
    EXPECT_EQ(package.name(), text);
}

TEST(VeskPackage, keepsItsSourceAlive)
{
    VeskPackage package;
    std::weak_ptr<VeskRepository> source;
    {
        const auto repository
            = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
        source = repository;
        package.setRepository(repository);
    }
    ASSERT_FALSE(source.expired());
    EXPECT_EQ(package.repository()->name(), QStringLiteral("A"));
}

TEST(VeskPackage, countsAsInstalledWithAnyVersionEvenAnEmptyOne)
{
    VeskPackage package;
    package.setInstalledVersion(QStringLiteral(""));
    EXPECT_TRUE(package.installed());
    package.setInstalledVersion(QString());
    EXPECT_FALSE(package.installed());
}

TEST(VeskPackage, hasAnUpdateWhenTheInstalledVersionIsAnyOtherText)
{
    VeskPackage package;
    package.setVersion(QStringLiteral("1.0"));
    EXPECT_FALSE(package.hasUpdate());
    package.setInstalledVersion(QStringLiteral("1.0"));
    EXPECT_FALSE(package.hasUpdate());
    package.setInstalledVersion(QStringLiteral("0.9"));
    EXPECT_TRUE(package.hasUpdate());
}

TEST(VeskPackage, offersADowngradeAsAnUpdateAndAnEpochToo)
{
    VeskPackage package;
    package.setVersion(QStringLiteral("1.0"));
    package.setInstalledVersion(QStringLiteral("1.1"));
    EXPECT_TRUE(package.hasUpdate());
    package.setInstalledVersion(QStringLiteral("0:1.0"));
    EXPECT_TRUE(package.hasUpdate());
}

TEST(VeskPackage, isNoOtherRecordForHavingTheSameIdentifier)
{
    const auto one = std::make_shared<VeskPackage>();
    const auto other = std::make_shared<VeskPackage>();
    one->setPackageID(QStringLiteral("a"));
    other->setPackageID(QStringLiteral("a"));
    EXPECT_NE(one, other);
}

TEST(VeskPackage, leavesItsNeighboursAloneWhenItIsChanged)
{
    const auto origin = std::make_shared<PackageOrigin>();
    origin->repository
        = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
    VeskPackage::TextHandles texts;
    texts[VeskPackage::Text::PackageID] = origin->texts.add("shared");
    VeskPackage one(origin, texts);
    const VeskPackage other(origin, texts);
    one.setRepository(nullptr);
    EXPECT_EQ(one.packageID(), QStringLiteral("shared"));
    one.setPackageID(QStringLiteral("changed"));
    EXPECT_EQ(one.packageID(), QStringLiteral("changed"));
    EXPECT_EQ(one.repository(), nullptr);
    EXPECT_EQ(other.packageID(), QStringLiteral("shared"));
    EXPECT_EQ(other.repository(), origin->repository);
}
