#include "tests/catalog/CatalogFixture.h"

TEST(PackageList, raisesItsRevisionWithEveryChange)
{
    PackageList list;
    const auto changes = [&list](const auto& change) {
        const quint64 before = list.revision();
        change();
        return list.revision() != before;
    };
    const auto package = makePackage(QStringLiteral("a"));
    EXPECT_TRUE(changes([&] { list.push_back(package); }));
    EXPECT_TRUE(changes([&] { list.remove(package); }));
    EXPECT_TRUE(changes([&] { list.assign({ package, package }); }));
    EXPECT_TRUE(changes([&] { list.clear(); }));
    EXPECT_TRUE(changes([&] { list.append({ package }); }));
    EXPECT_TRUE(changes([&] { list.takeAll(); }));
}

TEST(PackageList, removesEveryOccurrenceOfThatVeryRecordAndNoOtherOfItsIdentifier)
{
    PackageList list;
    const auto one = makePackage(QStringLiteral("a"));
    const auto other = makePackage(QStringLiteral("a"));
    list.assign({ one, other, one });
    list.remove(one);
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0], other);
}
