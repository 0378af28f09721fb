#include "tests/catalog/CatalogFixture.h"

class IndexMerge : public CatalogFixture
{
protected:
    VeskRepositoryPtr serve(const QString& path, const QByteArray& index)
    {
        m_server.serve(path.toLatin1() + "/Packages.bz2", index);
        return addServedSource(path);
    }

    QStringList versions()
    {
        QStringList versions;
        for (const VeskPackagePtr& package : manager().packages())
            versions.append(package->version());
        return versions;
    }
};

TEST_F(IndexMerge, keepsTheFirstPackageWhenTwoSourcesOfferTheSameIdentifier)
{
    const auto first = serve(QStringLiteral("/1"), "Package: a\nVersion: 1\n\nPackage: b\nVersion: 1\n");
    const auto second = serve(QStringLiteral("/2"), "Package: c\nVersion: 2\n\nPackage: b\nVersion: 2\n");
    ASSERT_TRUE(refresh(first));
    ASSERT_TRUE(refresh(second));
    EXPECT_EQ(packageIDs(), QStringList({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") }));
    EXPECT_EQ(versions(), QStringList({ QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("2") }));
    EXPECT_EQ(manager().packages()[1]->repository(), first);
    EXPECT_EQ(manager().packages()[2]->repository(), second);
}

TEST_F(IndexMerge, keepsTheFirstOfThreeSourcesWhereEachRepeatsSomeOfTheOthers)
{
    ASSERT_TRUE(refresh(serve(QStringLiteral("/1"), "Package: a\nVersion: 1\n\nPackage: b\nVersion: 1\n")));
    ASSERT_TRUE(refresh(
        serve(QStringLiteral("/2"), "Package: b\nVersion: 2\n\nPackage: c\nVersion: 2\n\nPackage: d\nVersion: 2\n")));
    ASSERT_TRUE(refresh(serve(QStringLiteral("/3"),
        "Package: b\nVersion: 3\n\nPackage: e\nVersion: 3\n\nPackage: d\nVersion: 3\n\nPackage: a\nVersion: 3\n")));
    EXPECT_EQ(packageIDs(),
        QStringList({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d"),
            QStringLiteral("e") }));
    EXPECT_EQ(versions(),
        QStringList({ QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("2"),
            QStringLiteral("3") }));
}

TEST_F(IndexMerge, keepsTheFirstOfSeveralVersionsInOneIndex)
{
    ASSERT_TRUE(refresh(
        serve(QStringLiteral("/1"), "Package: a\nVersion: 1\n\nPackage: a\nVersion: 9\n\nPackage: b\nVersion: 2\n")));
    EXPECT_EQ(versions(), QStringList({ QStringLiteral("1"), QStringLiteral("2") }));
}

TEST_F(IndexMerge, tellsIdentifiersApartByTheirCase)
{
    ASSERT_TRUE(refresh(serve(QStringLiteral("/1"), "Package: a\n\nPackage: A\n")));
    EXPECT_EQ(packageIDs(), QStringList({ QStringLiteral("a"), QStringLiteral("A") }));
}

TEST_F(IndexMerge, leavesOlderRecordsUntouchedWhenASourceIsRefreshedOnItsOwn)
{
    const auto source = serve(QStringLiteral("/1"), "Package: a\nVersion: 1\n");
    ASSERT_TRUE(refresh(source));
    const VeskPackagePtr before = manager().packages()[0];
    m_server.serve("/1/Packages.bz2", "Package: a\nVersion: 2\n\nPackage: b\nVersion: 2\n");
    ASSERT_TRUE(refresh(source));
    EXPECT_EQ(versions(), QStringList({ QStringLiteral("1"), QStringLiteral("2") }));
    EXPECT_EQ(manager().packages()[0], before);
}

TEST_F(IndexMerge, stampsTheSourceEvenWhenEveryPackageWasThereAlready)
{
    const auto first = serve(QStringLiteral("/1"), stanza("a"));
    const auto second = serve(QStringLiteral("/2"), stanza("a"));
    ASSERT_TRUE(refresh(first));
    ASSERT_TRUE(refresh(second));
    EXPECT_TRUE(second->lastRefresh().isValid());
    EXPECT_EQ(manager().packages().size(), 1U);
}

TEST_F(IndexMerge, respectsWhatWasPutIntoTheListByHand)
{
    const auto byHand = makePackage(QStringLiteral("a"));
    manager().packages().push_back(byHand);
    ASSERT_TRUE(refresh(serve(QStringLiteral("/1"), stanza("a") + stanza("b"))));
    EXPECT_EQ(packageIDs(), QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
    EXPECT_EQ(manager().packages()[0], byHand);
    manager().packages().remove(byHand);
    ASSERT_TRUE(refresh(manager().repositories().front()));
    EXPECT_EQ(packageIDs(), QStringList({ QStringLiteral("b"), QStringLiteral("a") }));
    manager().setPackages({ byHand });
    ASSERT_TRUE(refresh(manager().repositories().front()));
    EXPECT_EQ(packageIDs(), QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
}

TEST_F(IndexMerge, keepsTheSourceOfAPackageThatIsStillHeldWhenBothAreRemoved)
{
    const auto source = serve(QStringLiteral("/1"), stanza("a"));
    ASSERT_TRUE(refresh(source));
    const VeskPackagePtr held = manager().packages()[0];
    manager().removeRepository(source);
    EXPECT_TRUE(manager().packages().empty());
    EXPECT_EQ(held->repository(), source);
    EXPECT_EQ(held->packageID(), QStringLiteral("a"));
}

TEST_F(IndexMerge, staysLinearInTheNumberOfPackages)
{
    QByteArray index;
    for (int number = 0; number < 200000; ++number)
        index += stanza("org.example.package-" + QByteArray::number(number));
    // A scan of the catalog for each of these would take the better part of an hour.
    ASSERT_TRUE(refresh(serve(QStringLiteral("/1"), index)));
    EXPECT_EQ(manager().packages().size(), 200000U);
    ASSERT_TRUE(refresh(manager().repositories().front()));
    EXPECT_EQ(manager().packages().size(), 200000U);
}
