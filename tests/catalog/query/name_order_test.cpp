#include "catalog/query/NameKeys.h"
#include "catalog/text/TextDecoding.h"
#include "tests/catalog/CatalogFixture.h"

using namespace Qt::StringLiterals;

namespace {

QStringList sorted(const QString& locale, const QStringList& names)
{
    PackageVector packages;
    for (const QString& name : names)
        packages.push_back(makePackage(QString::number(packages.size()), name));
    sortPackagesByName(packages, NameOrder(locale));
    return namesOf(packages);
}

} // namespace

TEST(NameOrder, putsPlainNamesInTheOrderOfTheAlphabetWhateverTheirCase)
{
    EXPECT_EQ(sorted(u"en"_s, { u"banana"_s, u"Cherry"_s, u"apple"_s, u"Banana split"_s, u"10"_s }),
        QStringList({ u"10"_s, u"apple"_s, u"banana"_s, u"Banana split"_s, u"Cherry"_s }));
}

TEST(NameOrder, holdsInThePlainLocaleToo)
{
    for (const QString& locale : { u"C"_s, u""_s, QString(), u"en-US-POSIX"_s, u"en_US_POSIX"_s, u"no such locale"_s })
        EXPECT_EQ(sorted(locale, { u"Zebra"_s, u"éclair"_s, u"apple"_s }),
            QStringList({ u"apple"_s, u"éclair"_s, u"Zebra"_s }))
            << locale.toStdString();
}

TEST(NameOrder, isThatOfTheLanguage)
{
    const QStringList names{ u"zebra"_s, u"ähnlich"_s, u"apple"_s };
    EXPECT_EQ(sorted(u"de"_s, names), QStringList({ u"ähnlich"_s, u"apple"_s, u"zebra"_s }));
    EXPECT_EQ(sorted(u"sv_SE"_s, names), QStringList({ u"apple"_s, u"zebra"_s, u"ähnlich"_s }));
}

TEST(NameOrder, leavesEqualNamesAsTheyStood)
{
    EXPECT_EQ(sorted(u"en"_s, { u"b"_s, u"A"_s, u"a"_s, u"A"_s }), QStringList({ u"A"_s, u"a"_s, u"A"_s, u"b"_s }));
}

TEST(NameOrder, takesEmptyNullAndLongNames)
{
    const QString longName(100000, u'y');
    EXPECT_EQ(sorted(u"en"_s, { u"z"_s, longName, u""_s, u"a"_s }), QStringList({ u""_s, u"a"_s, longName, u"z"_s }));
    PackageVector packages{ makePackage(u"a"_s, u"a"_s), std::make_shared<VeskPackage>() };
    sortPackagesByName(packages, NameOrder(u"en"_s));
    EXPECT_TRUE(packages[0]->name().isNull());
}

TEST(NameOrder, leavesManyEqualNamesAsTheyStood)
{
    QStringList names;
    for (int number = 0; number < 1000; ++number)
        names << (number % 2 == 0 ? u"Same"_s : u"sAME"_s);
    EXPECT_EQ(sorted(u"en"_s, names), names);
}

TEST(NameOrder, keepsKeysShortHoweverLongANameIs)
{
    // One character whose key is eight times as long as itself.
    const QByteArray name = QByteArray("\xef\xb7\xba").repeated(1000 * 1000);
    const NameOrder order(u"en"_s);
    const std::string key = order.keyOf({ name.constData(), static_cast<std::size_t>(name.size()) });
    EXPECT_GT(key.size(), NameOrder::comparedCharacters);
    EXPECT_LT(key.size(), NameOrder::comparedCharacters * 3 * 16);
    EXPECT_EQ(key, order.keyOf(viewOf(name.left(3 * NameOrder::comparedCharacters))));
}

TEST(NameOrder, looksAtTheFirst64CharactersWhateverTheirSize)
{
    for (const QString& letter : { u"x"_s, u"ü"_s, u"漢"_s, u"😀"_s }) {
        const QString common = letter.repeated(63);
        EXPECT_EQ(
            sorted(u"en"_s, { common + u"b"_s, common + u"a"_s }), QStringList({ common + u"a"_s, common + u"b"_s }));
        EXPECT_EQ(sorted(u"en"_s, { common + u"xb"_s, common + u"xa"_s }),
            QStringList({ common + u"xb"_s, common + u"xa"_s }));
    }
}

TEST(NameOrder, tellsAccentsApartInWhicheverOrderTheNamesArrive)
{
    for (const QStringList& arrival : { QStringList{ u"Zoë"_s, u"zoe"_s }, QStringList{ u"zoe"_s, u"Zoë"_s } })
        EXPECT_EQ(sorted(u"en"_s, arrival), QStringList({ u"zoe"_s, u"Zoë"_s }));
}

class NameOrderOfTheCatalog : public CatalogFixture
{
};

TEST_F(NameOrderOfTheCatalog, isThatOfItsNamesEqualOnesInCatalogOrder)
{
    manager().setPackages({ makePackage(u"1"_s, u"b"_s), makePackage(u"2"_s, u"A"_s), makePackage(u"3"_s, u"B"_s),
        makePackage(u"4"_s, u"a"_s) });
    EXPECT_EQ(idsOf(manager().packagesSortedByName()), QStringList({ u"2"_s, u"4"_s, u"1"_s, u"3"_s }));
}

TEST_F(NameOrderOfTheCatalog, isWorkedOutOnceForEachStateOfIt)
{
    manager().setPackages({ makePackage(u"1"_s, u"b"_s), makePackage(u"2"_s, u"a"_s) });
    const VeskPackagePtr* data = manager().packagesSortedByName().data();
    EXPECT_EQ(manager().packagesSortedByName().data(), data);
    manager().packages()[0]->setName(u"0"_s);
    EXPECT_EQ(idsOf(manager().packagesSortedByName()), QStringList({ u"1"_s, u"2"_s }));
    manager().packages().clear();
    EXPECT_TRUE(manager().packagesSortedByName().empty());
}

TEST_F(NameOrderOfTheCatalog, holdsForAnyPartOfItAndForPackagesOutsideIt)
{
    manager().setPackages({ makePackage(u"1"_s, u"d"_s), makePackage(u"2"_s, u"B"_s), makePackage(u"3"_s, u"c"_s),
        makePackage(u"4"_s, u"a"_s) });
    PackageVector part{ manager().packages()[0], manager().packages()[3], manager().packages()[1] };
    manager().sortByName(part);
    EXPECT_EQ(idsOf(part), QStringList({ u"4"_s, u"2"_s, u"1"_s }));
    part.push_back(makePackage(u"5"_s, u"Aa"_s));
    manager().sortByName(part);
    EXPECT_EQ(idsOf(part), QStringList({ u"4"_s, u"5"_s, u"2"_s, u"1"_s }));
    PackageVector none;
    manager().sortByName(none);
    EXPECT_TRUE(none.empty());
}
