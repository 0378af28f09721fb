#include "tests/catalog/CatalogFixture.h"

using namespace Qt::StringLiterals;

class CatalogQueries : public CatalogFixture
{
protected:
    VeskPackagePtr add(const QString& packageID, const QString& name, const QString& desc, const QString& author,
        const QString& section = u"Other"_s)
    {
        auto package = makePackage(packageID, name);
        package->setDesc(desc);
        package->setAuthor(author);
        package->setSection(section);
        manager().packages().push_back(package);
        return package;
    }

    QStringList search(const QString& query) { return idsOf(manager().filteredPackagesWithQuery(query)); }

    QStringList categoryLines()
    {
        QStringList lines;
        for (const VeskCategoryPtr& category : manager().categories())
            lines.append(category->name() + u' ' + QString::number(category->count()));
        return lines;
    }
};

TEST_F(CatalogQueries, giveTheCatalogItselfForAnEmptyQuery)
{
    add(u"b"_s, u"B"_s, QString(), QString());
    add(u"a"_s, u"A"_s, QString(), QString());
    EXPECT_EQ(&manager().filteredPackagesWithQuery(u""_s), &manager().packages().all());
    EXPECT_EQ(&manager().filteredPackagesWithQuery(QString()), &manager().packages().all());
    EXPECT_EQ(search(u""_s), QStringList({ u"b"_s, u"a"_s }));
}

TEST_F(CatalogQueries, searchNameIdentifierDescriptionAndAuthorInCatalogOrder)
{
    add(u"org.four"_s, u"Four"_s, u"none"_s, u"Needle Smith"_s);
    add(u"org.three"_s, u"Three"_s, u"a needle in hay"_s, u"none"_s);
    add(u"org.needle"_s, u"Two"_s, u"none"_s, u"none"_s);
    add(u"org.one"_s, u"The needle"_s, u"needle"_s, u"needle"_s);
    add(u"org.zero"_s, u"Zero"_s, u"none"_s, u"none"_s);
    EXPECT_EQ(search(u"needle"_s), QStringList({ u"org.four"_s, u"org.three"_s, u"org.needle"_s, u"org.one"_s }));
}

TEST_F(CatalogQueries, doNotSearchTheOtherFields)
{
    const auto package = add(u"a"_s, u"A"_s, QString(), QString(), u"needle"_s);
    package->setVersion(u"needle"_s);
    package->setMaintainer(u"needle"_s);
    package->setHomepageURLString(u"needle"_s);
    EXPECT_TRUE(search(u"needle"_s).isEmpty());
}

TEST_F(CatalogQueries, ignoreCaseInAllScripts)
{
    add(u"a"_s, u"Straße ÄÖÜ ΑΒΓ"_s, QString(), QString());
    EXPECT_EQ(search(u"STRA"_s).size(), 1);
    EXPECT_EQ(search(u"äöü"_s).size(), 1);
    EXPECT_EQ(search(u"ÄöÜ"_s).size(), 1);
    EXPECT_EQ(search(u"αβγ"_s).size(), 1);
    EXPECT_TRUE(search(u"aou"_s).isEmpty());
    EXPECT_TRUE(search(u"strasse"_s).isEmpty());
}

TEST_F(CatalogQueries, lowerCaseTheLettersThatGrowToo)
{
    add(u"a"_s, u"İstanbul"_s, QString(), QString());
    EXPECT_EQ(search(u"İSTANBUL"_s).size(), 1);
    EXPECT_EQ(search(u"i\u0307stanbul"_s).size(), 1);
}

TEST_F(CatalogQueries, takeBlanksForPartOfTheQuery)
{
    add(u"a"_s, u"Alpha beta"_s, QString(), QString());
    EXPECT_EQ(search(u" beta"_s).size(), 1);
    EXPECT_TRUE(search(u" alpha"_s).isEmpty());
    EXPECT_TRUE(search(u"beta "_s).isEmpty());
    EXPECT_TRUE(search(u"alpha  beta"_s).isEmpty());
}

TEST_F(CatalogQueries, doNotMatchAcrossFieldsOrPackages)
{
    add(u"ab"_s, u"cd"_s, u"ef"_s, u"gh"_s);
    add(u"ij"_s, u"kl"_s, u"mn"_s, u"op"_s);
    for (const QString& query : { u"da"_s, u"be"_s, u"fg"_s, u"hk"_s, u"cdab"_s, u"cd ab"_s, u"cd\nab"_s, u"\uffff"_s })
        EXPECT_TRUE(search(query).isEmpty()) << query.toStdString();
    EXPECT_TRUE(search(QString(QChar(u'\0'))).isEmpty());
    EXPECT_EQ(search(u"gh"_s), QStringList(u"ab"_s));
    EXPECT_EQ(search(u"op"_s), QStringList(u"ij"_s));
}

TEST_F(CatalogQueries, findNothingForHalfACharacterPair)
{
    add(u"a"_s, u"\U0001F600 ?"_s, u"\ufffd"_s, QString());
    EXPECT_TRUE(search(QString(QChar(0xd83d))).isEmpty());
    EXPECT_EQ(search(u"\U0001F600"_s).size(), 1);
}

TEST_F(CatalogQueries, neverMatchAFieldThatIsNull)
{
    auto package = std::make_shared<VeskPackage>();
    manager().packages().push_back(package);
    EXPECT_TRUE(search(u"a"_s).isEmpty());
    EXPECT_EQ(search(u""_s).size(), 1);
}

TEST_F(CatalogQueries, findEachPackageOnceAndAllOfThem)
{
    for (int number = 0; number < 1000; ++number)
        add(u"x.%1.x"_s.arg(number), u"x x x"_s, u"xx"_s, u"x"_s);
    EXPECT_EQ(search(u"x"_s).size(), 1000);
    EXPECT_EQ(search(u"x.999"_s), QStringList(u"x.999.x"_s));
    EXPECT_EQ(search(u"x.0.x"_s), QStringList(u"x.0.x"_s));
}

TEST_F(CatalogQueries, keepTheLastResultWhileNothingChanges)
{
    add(u"a"_s, u"A"_s, QString(), QString());
    const PackageVector& first = manager().filteredPackagesWithQuery(u"a"_s);
    const VeskPackagePtr* data = first.data();
    EXPECT_EQ(manager().filteredPackagesWithQuery(u"a"_s).data(), data);
}

TEST_F(CatalogQueries, seeEveryChangeOfTheCatalog)
{
    const auto first = add(u"a1"_s, u"A1"_s, QString(), QString());
    EXPECT_EQ(search(u"a"_s).size(), 1);
    add(u"a2"_s, u"A2"_s, QString(), QString());
    EXPECT_EQ(search(u"a"_s).size(), 2);
    manager().packages().remove(first);
    EXPECT_EQ(search(u"a"_s), QStringList(u"a2"_s));
    manager().setPackages({ first });
    EXPECT_EQ(search(u"a"_s), QStringList(u"a1"_s));
    first->setName(u"changed"_s);
    EXPECT_EQ(search(u"change"_s).size(), 1);
    manager().packages().clear();
    EXPECT_TRUE(search(u"a"_s).isEmpty());
}

TEST_F(CatalogQueries, seeWhatARefreshBringsAndDropsWhatItReplaces)
{
    m_server.serve(
        "/1/Packages.bz2", "Package: one\nName: Alpha\n\nPackage: two\nName: Beta\n\nPackage: one\nName: Dropped\n");
    m_server.serve("/2/Packages.bz2", "Package: two\nName: Dropped\n\nPackage: three\nName: Alphabet\n");
    const auto first = addServedSource(u"/1"_s);
    const auto second = addServedSource(u"/2"_s);
    ASSERT_TRUE(refresh(first));
    EXPECT_EQ(search(u"ALPHA"_s), QStringList(u"one"_s));
    ASSERT_TRUE(refresh(second));
    EXPECT_EQ(search(u"ALPHA"_s), QStringList({ u"one"_s, u"three"_s }));
    EXPECT_TRUE(search(u"dropped"_s).isEmpty());
    EXPECT_EQ(namesOf(manager().packagesSortedByName()), QStringList({ u"Alpha"_s, u"Alphabet"_s, u"Beta"_s }));
    manager().packages().push_back(makePackage(u"hand"_s, u"Alpha by hand"_s));
    EXPECT_EQ(search(u"ALPHA"_s), QStringList({ u"one"_s, u"three"_s, u"hand"_s }));
    EXPECT_EQ(namesOf(manager().packagesSortedByName()),
        QStringList({ u"Alpha"_s, u"Alpha by hand"_s, u"Alphabet"_s, u"Beta"_s }));
    manager().packages().clear();
    ASSERT_TRUE(refresh(second));
    EXPECT_EQ(search(u"dropped"_s), QStringList(u"two"_s));
    EXPECT_EQ(namesOf(manager().packagesSortedByName()), QStringList({ u"Alphabet"_s, u"Dropped"_s }));
}

TEST_F(CatalogQueries, keepAPackageOfExactlyThatSection)
{
    add(u"a"_s, u"A"_s, QString(), QString(), u"Tools"_s);
    add(u"b"_s, u"B"_s, QString(), QString(), u"tools"_s);
    add(u"c"_s, u"C"_s, QString(), QString(), u"Tools"_s);
    add(u"d"_s, u"D"_s, QString(), QString(), u""_s);
    EXPECT_EQ(idsOf(manager().packagesForCategory(u"Tools"_s)), QStringList({ u"a"_s, u"c"_s }));
    EXPECT_EQ(idsOf(manager().packagesForCategory(u"tools"_s)), QStringList(u"b"_s));
    EXPECT_EQ(idsOf(manager().packagesForCategory(u""_s)), QStringList(u"d"_s));
    EXPECT_TRUE(manager().packagesForCategory(u"All"_s).empty());
    EXPECT_TRUE(manager().packagesForCategory(QString()).empty());
}

TEST_F(CatalogQueries, countCategoriesAndSortThemByName)
{
    for (const QString& section : { u"zebra"_s, u"Apple"_s, u"zebra"_s, u"éclair"_s, u"Other"_s, u"banana"_s })
        add(section, section, QString(), QString(), section);
    EXPECT_EQ(categoryLines(), QStringList({ u"Apple 1"_s, u"banana 1"_s, u"éclair 1"_s, u"Other 1"_s, u"zebra 2"_s }));
}

TEST_F(CatalogQueries, makeTwoCategoriesOfSectionsThatDifferOnlyInCase)
{
    add(u"a"_s, u"A"_s, QString(), QString(), u"Tools"_s);
    add(u"b"_s, u"B"_s, QString(), QString(), u"tools"_s);
    QStringList lines = categoryLines();
    lines.sort();
    EXPECT_EQ(lines, QStringList({ u"Tools 1"_s, u"tools 1"_s }));
}

TEST_F(CatalogQueries, giveNoCategoryForAnEmptyCatalog)
{
    EXPECT_TRUE(manager().categories().empty());
}

TEST_F(CatalogQueries, countTheCategoriesAnewWhenTheCatalogOrARecordHasChanged)
{
    add(u"a"_s, u"A"_s, QString(), QString(), u"Tools"_s);
    EXPECT_EQ(categoryLines(), QStringList({ u"Tools 1"_s }));
    add(u"b"_s, u"B"_s, QString(), QString(), u"Tools"_s);
    EXPECT_EQ(categoryLines(), QStringList({ u"Tools 2"_s }));
    manager().packages()[0]->setSection(u"Games"_s);
    EXPECT_EQ(categoryLines(), QStringList({ u"Games 1"_s, u"Tools 1"_s }));
}

TEST_F(CatalogQueries, giveOneCategoryByItsRow)
{
    for (const QString& section : { u"zebra"_s, u"Apple"_s, u"zebra"_s })
        add(section, section, QString(), QString(), section);
    ASSERT_EQ(manager().categoryCount(), 2U);
    EXPECT_EQ(manager().categoryAt(0)->name(), u"Apple"_s);
    EXPECT_EQ(manager().categoryAt(1)->name(), u"zebra"_s);
    EXPECT_EQ(manager().categoryAt(1)->count(), 2U);
    EXPECT_EQ(manager().categoryAt(2), nullptr);
    EXPECT_NE(manager().categoryAt(0), manager().categoryAt(0));
    manager().packages().clear();
    EXPECT_EQ(manager().categoryCount(), 0U);
    EXPECT_EQ(manager().categoryAt(0), nullptr);
}

TEST_F(CatalogQueries, countASectionOfSeveralSourcesOnceAndNoPackageThatWasDroppedAsADuplicate)
{
    m_server.serve(
        "/1/Packages.bz2", "Package: a\nSection: Tools\n\nPackage: b\nSection: zebra\n\nPackage: a\nSection: Games\n");
    m_server.serve("/2/Packages.bz2",
        "Package: c\nSection: Tools\n\nPackage: b\nSection: Tools\n\nPackage: a\nSection: Apples\n\nPackage: d\n");
    m_server.serve("/3/Packages.bz2", "Package: e\nSection: apples\n\nPackage: f\nSection: zebra\n");
    for (const QString& path : { u"/1"_s, u"/2"_s, u"/3"_s })
        ASSERT_TRUE(refresh(addServedSource(path)));
    EXPECT_EQ(categoryLines(), QStringList({ u"apples 1"_s, u"Other 1"_s, u"Tools 2"_s, u"zebra 2"_s }));
    EXPECT_EQ(manager().categoryCount(), 4U);
}

TEST_F(CatalogQueries, takeHundredsOfThousandsOfSections)
{
    constexpr int count = 200000;
    QByteArray index;
    for (int number = count; number > 0; --number) {
        const QByteArray digits = QByteArray::number(number).rightJustified(7, '0');
        index += "Package: p" + digits + "\nSection: s" + digits + "\n\n";
    }
    m_server.serve("/1/Packages.bz2", index);
    m_server.serve("/2/Packages.bz2", index);
    ASSERT_TRUE(refresh(addServedSource(u"/1"_s)));
    ASSERT_TRUE(refresh(addServedSource(u"/2"_s)));
    ASSERT_EQ(manager().categoryCount(), std::size_t(count));
    for (const int row : { 0, 1, count / 2, count - 1 }) {
        EXPECT_EQ(manager().categoryAt(std::size_t(row))->name(), u"s%1"_s.arg(row + 1, 7, 10, QChar(u'0')));
        EXPECT_EQ(manager().categoryAt(std::size_t(row))->count(), 1U);
    }
}

TEST_F(CatalogQueries, makeNewCategoryRecordsEachTime)
{
    add(u"a"_s, u"A"_s, QString(), QString());
    EXPECT_NE(manager().categories()[0], manager().categories()[0]);
}
