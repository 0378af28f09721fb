#include "catalog/query/IdentifierSet.h"
#include "tests/catalog/CatalogFixture.h"

#include <set>

namespace {

struct Packages
{
    PackageVector packages;
    IdentifierSet identifiers;
    // Those that were there already.
    std::vector<std::size_t> repeated;

    explicit Packages(const QStringList& packageIDs)
    {
        for (const QString& packageID : packageIDs) {
            const auto place = static_cast<std::uint32_t>(packages.size());
            if (!identifiers.add(packageID.toStdString(), place, packages))
                repeated.push_back(packages.size());
            packages.push_back(makePackage(packageID));
        }
    }

    // Which packages of the other run have an identifier of this one.
    std::set<std::uint32_t> placesOfSharedIn(const Packages& other) const
    {
        std::set<std::uint32_t> places;
        other.identifiers.forEach([&](std::uint32_t hash, std::uint32_t otherPlace) {
            const auto isSame = [&](std::uint32_t place) {
                return packages[place]->packageID() == other.packages[otherPlace]->packageID();
            };
            if (identifiers.has(hash, isSame))
                places.insert(otherPlace);
        });
        return places;
    }
};

} // namespace

TEST(IdentifierSet, tellsWhichPackagesRepeatAnEarlierIdentifier)
{
    const Packages run({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("A"),
        QStringLiteral("b"), QStringLiteral("a") });
    EXPECT_EQ(run.repeated, (std::vector<std::size_t>{ 2, 4, 5 }));
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
    const std::set<std::uint32_t> shared = some.placesOfSharedIn(others);
    for (std::uint32_t place = 0; place < 5000; ++place)
        ASSERT_EQ(shared.contains(place), place % 2 == 0) << place;
}

TEST(IdentifierSet, findsNothingWithoutPackages)
{
    EXPECT_TRUE(Packages({}).placesOfSharedIn(Packages({ QStringLiteral("a") })).empty());
    EXPECT_TRUE(Packages({ QStringLiteral("a") }).placesOfSharedIn(Packages({})).empty());
}
