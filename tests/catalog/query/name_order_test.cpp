#include "catalog/query/NameKeys.h"
#include "catalog/text/TextDecoding.h"
#include "tests/catalog/CatalogFixture.h"

#include <QCollator>

#include <random>

namespace {

QStringList sorted(const QString& locale, const QStringList& names)
{
    PackageVector packages;
    for (const QString& name : names)
        packages.push_back(makePackage(QString::number(packages.size()), name));
    return namesOf(packagesByName(packages, NameOrder(locale)));
}

// Half of them are of ASCII alone, and most are short.
QString randomName(std::mt19937& random)
{
    static const QStringList pieces{ QStringLiteral("c"), QStringLiteral("H"), QStringLiteral("a"), QStringLiteral("A"),
        QStringLiteral("d"), QStringLiteral("z"), QStringLiteral("i"), QStringLiteral("I"), QStringLiteral("l"),
        QStringLiteral("1"), QStringLiteral("-"), QStringLiteral("."), QStringLiteral("~"), QStringLiteral(" "),
        QString(QChar(u'\0')), QStringLiteral("č"), QStringLiteral("Å") };
    const auto kinds = static_cast<std::size_t>(pieces.size()) - (random() % 2 == 0 ? 2 : 0);
    QString name;
    for (std::size_t left = 1 + random() % (random() % 8 == 0 ? NameOrder::comparedCharacters : 6); left > 0; --left)
        name += pieces[static_cast<qsizetype>(random() % kinds)];
    return name;
}

int signOf(int compared)
{
    return (compared > 0 ? 1 : 0) - (compared < 0 ? 1 : 0);
}

} // namespace

TEST(NameOrder, putsPlainNamesInTheOrderOfTheAlphabetWhateverTheirCase)
{
    EXPECT_EQ(sorted(QStringLiteral("en"),
                  { QStringLiteral("banana"), QStringLiteral("Cherry"), QStringLiteral("apple"),
                      QStringLiteral("Banana split"), QStringLiteral("10") }),
        QStringList({ QStringLiteral("10"), QStringLiteral("apple"), QStringLiteral("banana"),
            QStringLiteral("Banana split"), QStringLiteral("Cherry") }));
}

TEST(NameOrder, holdsInThePlainLocaleToo)
{
    for (const QString& locale : { QStringLiteral("C"), QStringLiteral(""), QString(), QStringLiteral("en-US-POSIX"),
             QStringLiteral("en_US_POSIX"), QStringLiteral("no such locale") })
        EXPECT_EQ(sorted(locale, { QStringLiteral("Zebra"), QStringLiteral("éclair"), QStringLiteral("apple") }),
            QStringList({ QStringLiteral("apple"), QStringLiteral("éclair"), QStringLiteral("Zebra") }))
            << locale.toStdString();
}

TEST(NameOrder, isThatOfTheLanguage)
{
    const QStringList names{ QStringLiteral("zebra"), QStringLiteral("ähnlich"), QStringLiteral("apple") };
    EXPECT_EQ(sorted(QStringLiteral("de"), names),
        QStringList({ QStringLiteral("ähnlich"), QStringLiteral("apple"), QStringLiteral("zebra") }));
    EXPECT_EQ(sorted(QStringLiteral("sv_SE"), names),
        QStringList({ QStringLiteral("apple"), QStringLiteral("zebra"), QStringLiteral("ähnlich") }));
}

TEST(NameOrder, leavesEqualNamesAsTheyStood)
{
    EXPECT_EQ(sorted(QStringLiteral("en"),
                  { QStringLiteral("b"), QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("A") }),
        QStringList({ QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("A"), QStringLiteral("b") }));
}

TEST(NameOrder, takesEmptyNullAndLongNames)
{
    const QString longName(100000, u'y');
    EXPECT_EQ(sorted(QStringLiteral("en"), { QStringLiteral("z"), longName, QStringLiteral(""), QStringLiteral("a") }),
        QStringList({ QStringLiteral(""), QStringLiteral("a"), longName, QStringLiteral("z") }));
    PackageVector packages{ makePackage(QStringLiteral("a"), QStringLiteral("a")), std::make_shared<VeskPackage>() };
    EXPECT_TRUE(packagesByName(packages, NameOrder(QStringLiteral("en")))[0]->name().isNull());
}

TEST(NameOrder, leavesManyEqualNamesAsTheyStood)
{
    QStringList names;
    for (int number = 0; number < 1000; ++number)
        names << (number % 2 == 0 ? QStringLiteral("Same") : QStringLiteral("sAME"));
    EXPECT_EQ(sorted(QStringLiteral("en"), names), names);
}

TEST(NameOrder, keepsKeysShortHoweverLongANameIs)
{
    // One character whose key is eight times as long as itself.
    const QByteArray name = QByteArray("\xef\xb7\xba").repeated(1000 * 1000);
    const NameOrder order(QStringLiteral("en"));
    const std::string key = order.keyOf({ name.constData(), static_cast<std::size_t>(name.size()) });
    EXPECT_GT(key.size(), NameOrder::comparedCharacters);
    EXPECT_LT(key.size(), NameOrder::comparedCharacters * 3 * 16);
    EXPECT_EQ(key, order.keyOf(viewOf(name.left(3 * NameOrder::comparedCharacters))));
}

TEST(NameOrder, looksAtTheFirst64CharactersWhateverTheirSize)
{
    for (const QString& letter :
        { QStringLiteral("x"), QStringLiteral("ü"), QStringLiteral("漢"), QStringLiteral("😀") }) {
        const QString common = letter.repeated(63);
        EXPECT_EQ(sorted(QStringLiteral("en"), { common + QStringLiteral("b"), common + QStringLiteral("a") }),
            QStringList({ common + QStringLiteral("a"), common + QStringLiteral("b") }));
        EXPECT_EQ(sorted(QStringLiteral("en"), { common + QStringLiteral("xb"), common + QStringLiteral("xa") }),
            QStringList({ common + QStringLiteral("xb"), common + QStringLiteral("xa") }));
    }
}

TEST(NameOrder, tellsAccentsApartInWhicheverOrderTheNamesArrive)
{
    for (const QStringList& arrival : { QStringList{ QStringLiteral("Zoë"), QStringLiteral("zoe") },
             QStringList{ QStringLiteral("zoe"), QStringLiteral("Zoë") } })
        EXPECT_EQ(sorted(QStringLiteral("en"), arrival), QStringList({ QStringLiteral("zoe"), QStringLiteral("Zoë") }));
}

// In some languages two letters count as one: "ch", "dz", "ll" and "aa" among them.
TEST(NameOrder, isThatOfTheSystemForNamesOfAsciiAndOthers)
{
    std::mt19937 random(20240229);
    for (const QString& locale : { QStringLiteral("en"), QStringLiteral("cs"), QStringLiteral("da"),
             QStringLiteral("hu"), QStringLiteral("tr"), QStringLiteral("cy") }) {
        const NameOrder order(locale);
        QCollator system{ QLocale(locale) };
        system.setCaseSensitivity(Qt::CaseInsensitive);
        for (int round = 0; round < 1000; ++round) {
            const QString a = randomName(random);
            const QString b = round % 2 == 0 ? randomName(random) : a.left(3) + randomName(random).left(50);
            const int compared = order.keyOf(viewOf(a.toUtf8())).compare(order.keyOf(viewOf(b.toUtf8())));
            ASSERT_EQ(signOf(compared), signOf(system.compare(a, b)))
                << locale.toStdString() << ": " << a.toStdString() << " | " << b.toStdString();
        }
    }
}

class NameOrderOfTheCatalog : public CatalogFixture
{
};

TEST_F(NameOrderOfTheCatalog, isThatOfItsNamesEqualOnesInCatalogOrder)
{
    manager().setPackages({ makePackage(QStringLiteral("1"), QStringLiteral("b")),
        makePackage(QStringLiteral("2"), QStringLiteral("A")), makePackage(QStringLiteral("3"), QStringLiteral("B")),
        makePackage(QStringLiteral("4"), QStringLiteral("a")) });
    EXPECT_EQ(idsOf(manager().packagesSortedByName()),
        QStringList({ QStringLiteral("2"), QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("3") }));
}

TEST_F(NameOrderOfTheCatalog, isWorkedOutOnceForEachStateOfIt)
{
    manager().setPackages({ makePackage(QStringLiteral("1"), QStringLiteral("b")),
        makePackage(QStringLiteral("2"), QStringLiteral("a")) });
    const auto places = manager().packagesSortedByName().places();
    EXPECT_EQ(manager().packagesSortedByName().places(), places);
    manager().packages()[0]->setName(QStringLiteral("0"));
    EXPECT_EQ(idsOf(manager().packagesSortedByName()), QStringList({ QStringLiteral("1"), QStringLiteral("2") }));
    manager().packages().clear();
    EXPECT_TRUE(manager().packagesSortedByName().empty());
}

TEST_F(NameOrderOfTheCatalog, holdsForAnyPartOfItAndForPackagesOutsideIt)
{
    manager().setPackages({ makePackage(QStringLiteral("1"), QStringLiteral("d")),
        makePackage(QStringLiteral("2"), QStringLiteral("B")), makePackage(QStringLiteral("3"), QStringLiteral("c")),
        makePackage(QStringLiteral("4"), QStringLiteral("a")) });
    PackageVector part{ manager().packages()[0], manager().packages()[3], manager().packages()[1] };
    PackageSelection sorted = part;
    manager().sortByName(sorted);
    EXPECT_EQ(idsOf(sorted), QStringList({ QStringLiteral("4"), QStringLiteral("2"), QStringLiteral("1") }));
    part.push_back(makePackage(QStringLiteral("5"), QStringLiteral("Aa")));
    sorted = part;
    manager().sortByName(sorted);
    EXPECT_EQ(idsOf(sorted),
        QStringList({ QStringLiteral("4"), QStringLiteral("5"), QStringLiteral("2"), QStringLiteral("1") }));
    PackageSelection none;
    manager().sortByName(none);
    EXPECT_TRUE(none.empty());
}
