#include "tests/catalog/CatalogFixture.h"

class CatalogQueries : public CatalogFixture
{
protected:
    VeskPackagePtr add(const QString& packageID, const QString& name, const QString& desc, const QString& author,
        const QString& section = QStringLiteral("Other"))
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
    add(QStringLiteral("b"), QStringLiteral("B"), QString(), QString());
    add(QStringLiteral("a"), QStringLiteral("A"), QString(), QString());
    EXPECT_TRUE(manager().filteredPackagesWithQuery(QStringLiteral("")).isOf(manager().packages()));
    EXPECT_EQ(search(QString()), packageIDs());
    EXPECT_EQ(search(QStringLiteral("")), QStringList({ QStringLiteral("b"), QStringLiteral("a") }));
}

TEST_F(CatalogQueries, searchNameIdentifierDescriptionAndAuthorInCatalogOrder)
{
    add(QStringLiteral("org.four"), QStringLiteral("Four"), QStringLiteral("none"), QStringLiteral("Needle Smith"));
    add(QStringLiteral("org.three"), QStringLiteral("Three"), QStringLiteral("a needle in hay"),
        QStringLiteral("none"));
    add(QStringLiteral("org.needle"), QStringLiteral("Two"), QStringLiteral("none"), QStringLiteral("none"));
    add(QStringLiteral("org.one"), QStringLiteral("The needle"), QStringLiteral("needle"), QStringLiteral("needle"));
    add(QStringLiteral("org.zero"), QStringLiteral("Zero"), QStringLiteral("none"), QStringLiteral("none"));
    EXPECT_EQ(search(QStringLiteral("needle")),
        QStringList({ QStringLiteral("org.four"), QStringLiteral("org.three"), QStringLiteral("org.needle"),
            QStringLiteral("org.one") }));
}

TEST_F(CatalogQueries, doNotSearchTheOtherFields)
{
    const auto package = add(QStringLiteral("a"), QStringLiteral("A"), QString(), QString(), QStringLiteral("needle"));
    package->setVersion(QStringLiteral("needle"));
    package->setMaintainer(QStringLiteral("needle"));
    package->setHomepageURLString(QStringLiteral("needle"));
    EXPECT_TRUE(search(QStringLiteral("needle")).isEmpty());
}

TEST_F(CatalogQueries, ignoreCaseInAllScripts)
{
    add(QStringLiteral("a"), QStringLiteral("Straße ÄÖÜ ΑΒΓ"), QString(), QString());
    EXPECT_EQ(search(QStringLiteral("STRA")).size(), 1);
    EXPECT_EQ(search(QStringLiteral("äöü")).size(), 1);
    EXPECT_EQ(search(QStringLiteral("ÄöÜ")).size(), 1);
    EXPECT_EQ(search(QStringLiteral("αβγ")).size(), 1);
    EXPECT_TRUE(search(QStringLiteral("aou")).isEmpty());
    EXPECT_TRUE(search(QStringLiteral("strasse")).isEmpty());
}

TEST_F(CatalogQueries, lowerCaseTheLettersThatGrowToo)
{
    add(QStringLiteral("a"), QStringLiteral("İstanbul"), QString(), QString());
    EXPECT_EQ(search(QStringLiteral("İSTANBUL")).size(), 1);
    EXPECT_EQ(search(QStringLiteral("i\u0307stanbul")).size(), 1);
}

TEST_F(CatalogQueries, takeBlanksForPartOfTheQuery)
{
    add(QStringLiteral("a"), QStringLiteral("Alpha beta"), QString(), QString());
    EXPECT_EQ(search(QStringLiteral(" beta")).size(), 1);
    EXPECT_TRUE(search(QStringLiteral(" alpha")).isEmpty());
    EXPECT_TRUE(search(QStringLiteral("beta ")).isEmpty());
    EXPECT_TRUE(search(QStringLiteral("alpha  beta")).isEmpty());
}

TEST_F(CatalogQueries, doNotMatchAcrossFieldsOrPackages)
{
    add(QStringLiteral("ab"), QStringLiteral("cd"), QStringLiteral("ef"), QStringLiteral("gh"));
    add(QStringLiteral("ij"), QStringLiteral("kl"), QStringLiteral("mn"), QStringLiteral("op"));
    for (const QString& query :
        { QStringLiteral("da"), QStringLiteral("be"), QStringLiteral("fg"), QStringLiteral("hk"),
            QStringLiteral("cdab"), QStringLiteral("cd ab"), QStringLiteral("cd\nab"), QStringLiteral("\uffff") })
        EXPECT_TRUE(search(query).isEmpty()) << query.toStdString();
    EXPECT_TRUE(search(QString(QChar(u'\0'))).isEmpty());
    EXPECT_EQ(search(QStringLiteral("gh")), QStringList(QStringLiteral("ab")));
    EXPECT_EQ(search(QStringLiteral("op")), QStringList(QStringLiteral("ij")));
}

TEST_F(CatalogQueries, findNothingForHalfACharacterPair)
{
    add(QStringLiteral("a"), QStringLiteral("\U0001F600 ?"), QStringLiteral("\ufffd"), QString());
    EXPECT_TRUE(search(QString(QChar(0xd83d))).isEmpty());
    EXPECT_EQ(search(QStringLiteral("\U0001F600")).size(), 1);
}

TEST_F(CatalogQueries, neverMatchAFieldThatIsNull)
{
    auto package = std::make_shared<VeskPackage>();
    manager().packages().push_back(package);
    EXPECT_TRUE(search(QStringLiteral("a")).isEmpty());
    EXPECT_EQ(search(QStringLiteral("")).size(), 1);
}

TEST_F(CatalogQueries, findEachPackageOnceAndAllOfThem)
{
    for (int number = 0; number < 1000; ++number)
        add(QStringLiteral("x.%1.x").arg(number), QStringLiteral("x x x"), QStringLiteral("xx"), QStringLiteral("x"));
    EXPECT_EQ(search(QStringLiteral("x")).size(), 1000);
    EXPECT_EQ(search(QStringLiteral("x.999")), QStringList(QStringLiteral("x.999.x")));
    EXPECT_EQ(search(QStringLiteral("x.0.x")), QStringList(QStringLiteral("x.0.x")));
}

TEST_F(CatalogQueries, keepTheLastResultWhileNothingChanges)
{
    add(QStringLiteral("a"), QStringLiteral("A"), QString(), QString());
    const auto places = manager().filteredPackagesWithQuery(QStringLiteral("a")).places();
    EXPECT_EQ(manager().filteredPackagesWithQuery(QStringLiteral("a")).places(), places);
}

TEST_F(CatalogQueries, seeEveryChangeOfTheCatalog)
{
    const auto first = add(QStringLiteral("a1"), QStringLiteral("A1"), QString(), QString());
    EXPECT_EQ(search(QStringLiteral("a")).size(), 1);
    add(QStringLiteral("a2"), QStringLiteral("A2"), QString(), QString());
    EXPECT_EQ(search(QStringLiteral("a")).size(), 2);
    manager().packages().remove(first);
    EXPECT_EQ(search(QStringLiteral("a")), QStringList(QStringLiteral("a2")));
    manager().setPackages({ first });
    EXPECT_EQ(search(QStringLiteral("a")), QStringList(QStringLiteral("a1")));
    first->setName(QStringLiteral("changed"));
    EXPECT_EQ(search(QStringLiteral("change")).size(), 1);
    manager().packages().clear();
    EXPECT_TRUE(search(QStringLiteral("a")).isEmpty());
}

TEST_F(CatalogQueries, seeWhatARefreshBringsAndDropsWhatItReplaces)
{
    m_server.serve(
        "/1/Packages.bz2", "Package: one\nName: Alpha\n\nPackage: two\nName: Beta\n\nPackage: one\nName: Dropped\n");
    m_server.serve("/2/Packages.bz2", "Package: two\nName: Dropped\n\nPackage: three\nName: Alphabet\n");
    const auto first = addServedSource(QStringLiteral("/1"));
    const auto second = addServedSource(QStringLiteral("/2"));
    ASSERT_TRUE(refresh(first));
    EXPECT_EQ(search(QStringLiteral("ALPHA")), QStringList(QStringLiteral("one")));
    ASSERT_TRUE(refresh(second));
    EXPECT_EQ(search(QStringLiteral("ALPHA")), QStringList({ QStringLiteral("one"), QStringLiteral("three") }));
    EXPECT_TRUE(search(QStringLiteral("dropped")).isEmpty());
    EXPECT_EQ(namesOf(manager().packagesSortedByName()),
        QStringList({ QStringLiteral("Alpha"), QStringLiteral("Alphabet"), QStringLiteral("Beta") }));
    manager().packages().push_back(makePackage(QStringLiteral("hand"), QStringLiteral("Alpha by hand")));
    EXPECT_EQ(search(QStringLiteral("ALPHA")),
        QStringList({ QStringLiteral("one"), QStringLiteral("three"), QStringLiteral("hand") }));
    EXPECT_EQ(namesOf(manager().packagesSortedByName()),
        QStringList({ QStringLiteral("Alpha"), QStringLiteral("Alpha by hand"), QStringLiteral("Alphabet"),
            QStringLiteral("Beta") }));
    manager().packages().clear();
    ASSERT_TRUE(refresh(second));
    EXPECT_EQ(search(QStringLiteral("dropped")), QStringList(QStringLiteral("two")));
    EXPECT_EQ(namesOf(manager().packagesSortedByName()),
        QStringList({ QStringLiteral("Alphabet"), QStringLiteral("Dropped") }));
}

TEST_F(CatalogQueries, giveTheFirstByNameAnewWhenTheCatalogHasChanged)
{
    manager().packages().push_back(makePackage(QStringLiteral("b"), QStringLiteral("B")));
    EXPECT_EQ(idsOf(manager().firstPackagesByName(1)), QStringList(QStringLiteral("b")));
    manager().packages().push_back(makePackage(QStringLiteral("a"), QStringLiteral("A")));
    EXPECT_EQ(idsOf(manager().firstPackagesByName(1)), QStringList(QStringLiteral("a")));
    manager().packages().clear();
    EXPECT_TRUE(manager().firstPackagesByName(1).empty());
}

TEST_F(CatalogQueries, findWhatIsInstalledInTheOrderOfNames)
{
    for (const QString& name : { QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("A") })
        manager().packages().push_back(makePackage(name, name));
    EXPECT_TRUE(manager().installedPackagesSortedByName().empty());
    manager().packages()[0]->setInstalledVersion(QStringLiteral("1"));
    manager().packages()[2]->setInstalledVersion(QStringLiteral("1"));
    EXPECT_EQ(
        namesOf(manager().installedPackagesSortedByName()), QStringList({ QStringLiteral("A"), QStringLiteral("b") }));
}

TEST_F(CatalogQueries, lookForWhatIsInstalledOnceForEachStateOfTheCatalog)
{
    const auto first = makePackage(QStringLiteral("1"), QStringLiteral("b"));
    first->setInstalledVersion(QStringLiteral("1"));
    manager().packages().push_back(first);
    const auto places = manager().installedPackagesSortedByName().places();
    EXPECT_EQ(manager().installedPackagesSortedByName().places(), places);
    const auto second = makePackage(QStringLiteral("2"), QStringLiteral("a"));
    second->setInstalledVersion(QStringLiteral("1"));
    manager().packages().push_back(second);
    EXPECT_EQ(
        idsOf(manager().installedPackagesSortedByName()), QStringList({ QStringLiteral("2"), QStringLiteral("1") }));
    first->setName(QStringLiteral("0"));
    EXPECT_EQ(
        idsOf(manager().installedPackagesSortedByName()), QStringList({ QStringLiteral("1"), QStringLiteral("2") }));
    manager().packages().remove(second);
    EXPECT_EQ(idsOf(manager().installedPackagesSortedByName()), QStringList(QStringLiteral("1")));
    manager().packages().clear();
    EXPECT_TRUE(manager().installedPackagesSortedByName().empty());
}

TEST_F(CatalogQueries, findWhatIsInstalledAnewAfterARefresh)
{
    writeStatus("Package: one\nStatus: install ok installed\nVersion: 1\n");
    m_server.serve("/1/Packages.bz2", "Package: one\nVersion: 1\n\nPackage: two\nVersion: 1\n");
    addServedSource(QStringLiteral("/1"));
    ASSERT_TRUE(refreshAll());
    EXPECT_EQ(idsOf(manager().installedPackagesSortedByName()), QStringList(QStringLiteral("one")));
    writeStatus("Package: two\nStatus: install ok installed\nVersion: 1\n");
    EXPECT_EQ(idsOf(manager().installedPackagesSortedByName()), QStringList(QStringLiteral("one")));
    ASSERT_TRUE(refreshAll());
    EXPECT_EQ(idsOf(manager().installedPackagesSortedByName()), QStringList(QStringLiteral("two")));
}

TEST_F(CatalogQueries, keepAPackageOfExactlyThatSection)
{
    add(QStringLiteral("a"), QStringLiteral("A"), QString(), QString(), QStringLiteral("Tools"));
    add(QStringLiteral("b"), QStringLiteral("B"), QString(), QString(), QStringLiteral("tools"));
    add(QStringLiteral("c"), QStringLiteral("C"), QString(), QString(), QStringLiteral("Tools"));
    add(QStringLiteral("d"), QStringLiteral("D"), QString(), QString(), QStringLiteral(""));
    EXPECT_EQ(idsOf(manager().packagesForCategory(QStringLiteral("Tools"))),
        QStringList({ QStringLiteral("a"), QStringLiteral("c") }));
    EXPECT_EQ(idsOf(manager().packagesForCategory(QStringLiteral("tools"))), QStringList(QStringLiteral("b")));
    EXPECT_EQ(idsOf(manager().packagesForCategory(QStringLiteral(""))), QStringList(QStringLiteral("d")));
    EXPECT_TRUE(manager().packagesForCategory(QStringLiteral("All")).empty());
    EXPECT_TRUE(manager().packagesForCategory(QString()).empty());
}

TEST_F(CatalogQueries, countCategoriesAndSortThemByName)
{
    for (const QString& section : { QStringLiteral("zebra"), QStringLiteral("Apple"), QStringLiteral("zebra"),
             QStringLiteral("éclair"), QStringLiteral("Other"), QStringLiteral("banana") })
        add(section, section, QString(), QString(), section);
    EXPECT_EQ(categoryLines(),
        QStringList({ QStringLiteral("Apple 1"), QStringLiteral("banana 1"), QStringLiteral("éclair 1"),
            QStringLiteral("Other 1"), QStringLiteral("zebra 2") }));
}

TEST_F(CatalogQueries, makeTwoCategoriesOfSectionsThatDifferOnlyInCase)
{
    add(QStringLiteral("a"), QStringLiteral("A"), QString(), QString(), QStringLiteral("Tools"));
    add(QStringLiteral("b"), QStringLiteral("B"), QString(), QString(), QStringLiteral("tools"));
    QStringList lines = categoryLines();
    lines.sort();
    EXPECT_EQ(lines, QStringList({ QStringLiteral("Tools 1"), QStringLiteral("tools 1") }));
}

TEST_F(CatalogQueries, giveNoCategoryForAnEmptyCatalog)
{
    EXPECT_TRUE(manager().categories().empty());
}

TEST_F(CatalogQueries, countTheCategoriesAnewWhenTheCatalogOrARecordHasChanged)
{
    add(QStringLiteral("a"), QStringLiteral("A"), QString(), QString(), QStringLiteral("Tools"));
    EXPECT_EQ(categoryLines(), QStringList({ QStringLiteral("Tools 1") }));
    add(QStringLiteral("b"), QStringLiteral("B"), QString(), QString(), QStringLiteral("Tools"));
    EXPECT_EQ(categoryLines(), QStringList({ QStringLiteral("Tools 2") }));
    manager().packages()[0]->setSection(QStringLiteral("Games"));
    EXPECT_EQ(categoryLines(), QStringList({ QStringLiteral("Games 1"), QStringLiteral("Tools 1") }));
}

TEST_F(CatalogQueries, giveOneCategoryByItsRow)
{
    for (const QString& section : { QStringLiteral("zebra"), QStringLiteral("Apple"), QStringLiteral("zebra") })
        add(section, section, QString(), QString(), section);
    ASSERT_EQ(manager().categoryCount(), 2U);
    EXPECT_EQ(manager().categoryAt(0)->name(), QStringLiteral("Apple"));
    EXPECT_EQ(manager().categoryAt(1)->name(), QStringLiteral("zebra"));
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
    for (const QString& path : { QStringLiteral("/1"), QStringLiteral("/2"), QStringLiteral("/3") })
        ASSERT_TRUE(refresh(addServedSource(path)));
    EXPECT_EQ(categoryLines(),
        QStringList({ QStringLiteral("apples 1"), QStringLiteral("Other 1"), QStringLiteral("Tools 2"),
            QStringLiteral("zebra 2") }));
    EXPECT_EQ(manager().categoryCount(), 4U);
}

TEST_F(CatalogQueries, countSectionsThatDifferOnlyInCaseOnceEachThoughSeveralSourcesHaveThem)
{
    for (const QString& path : { QStringLiteral("/1"), QStringLiteral("/2") }) {
        m_server.serve(path.toUtf8() + "/Packages.bz2",
            "Package: a" + path.mid(1).toUtf8() + "\nSection: Games\n\nPackage: b" + path.mid(1).toUtf8()
                + "\nSection: games\n");
        ASSERT_TRUE(refresh(addServedSource(path)));
    }
    EXPECT_EQ(categoryLines(), QStringList({ QStringLiteral("Games 2"), QStringLiteral("games 2") }));
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
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/1"))));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/2"))));
    ASSERT_EQ(manager().categoryCount(), std::size_t(count));
    for (const int row : { 0, 1, count / 2, count - 1 }) {
        EXPECT_EQ(
            manager().categoryAt(std::size_t(row))->name(), QStringLiteral("s%1").arg(row + 1, 7, 10, QChar(u'0')));
        EXPECT_EQ(manager().categoryAt(std::size_t(row))->count(), 1U);
    }
}

TEST_F(CatalogQueries, makeNewCategoryRecordsEachTime)
{
    add(QStringLiteral("a"), QStringLiteral("A"), QString(), QString());
    EXPECT_NE(manager().categories()[0], manager().categories()[0]);
}
