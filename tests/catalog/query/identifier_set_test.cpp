#include "catalog/query/IdentifierSet.h"
#include "tests/catalog/CatalogFixture.h"

namespace {

struct Packages
{
    PackageVector packages;
    IdentifierSet identifiers;

    explicit Packages(const QStringList& packageIDs)
    {
        for (const QString& packageID : packageIDs) {
            packages.push_back(makePackage(packageID));
            identifiers.add(packages);
        }
    }

    // Whether it has the identifier of that package of the other run.
    bool has(const Packages& other, std::uint32_t otherPlace) const
    {
        return identifiers.has(other.identifiers.hash(otherPlace), [&](std::uint32_t place) {
            return packages[place]->packageID() == other.packages[otherPlace]->packageID();
        });
    }
};

} // namespace

TEST(IdentifierSet, tellsWhichPackagesRepeatAnEarlierIdentifier)
{
    const Packages run({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("A"),
        QStringLiteral("b"), QStringLiteral("a") });
    const std::vector<bool> expected{ false, false, true, false, true, true };
    for (std::uint32_t place = 0; place < expected.size(); ++place)
        EXPECT_EQ(run.identifiers.isRepeated(place), expected[place]) << place;
}

TEST(IdentifierSet, findsTheIdentifiersOfAnotherRunByTheirHashes)
{
    QStringList even;
    QStringList all;
    for (int number = 0; number < 5000; ++number) {
        all.append(QString::number(number));
        if (number % 2 == 0)
            even.append(all.last());
    }
    const Packages some(even);
    const Packages others(all);
    for (std::uint32_t place = 0; place < 5000; ++place)
        ASSERT_EQ(some.has(others, place), place % 2 == 0) << place;
}

TEST(IdentifierSet, findsNothingWithoutPackages)
{
    EXPECT_FALSE(Packages({}).has(Packages({ QStringLiteral("a") }), 0));
}
