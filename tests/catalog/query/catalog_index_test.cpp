// Random indexes merged one after the other, which repeat identifiers of their own and of each other, beside the plain
// definition of a catalog: a list of packages and a look at each of them.
#include "catalog/index/IndexParser.h"
#include "catalog/query/CatalogIndex.h"
#include "catalog/text/TextDecoding.h"
#include "catalog/text/TextHash.h"
#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/index/ReadIndex.h"

#include <QHash>
#include <QMap>

#include <algorithm>
#include <array>
#include <random>

namespace {

class RandomIndexes
{
public:
    QByteArray next()
    {
        QByteArray text;
        for (int left = number(60); left > 0; --left)
            text += "Package: p" + QByteArray::number(number(80)) + "\nName: " + word() + "\nMaintainer: " + word()
                + "\nDescription: " + word() + ' ' + word() + "\nSection: " + word() + "\n\n";
        return text;
    }
    QByteArray word() { return QByteArray(words[static_cast<std::size_t>(number(words.size()))]); }
    int number(std::size_t limit) { return static_cast<int>(m_random() % limit); }

private:
    static constexpr std::array<const char*, 8> words{ "Lib", "lib", "tool", "Zoë", "zoe", "Éclair", "games", "a" };

    std::mt19937 m_random{ 20240229 };
};

QByteArray stanzasOf(const std::vector<QByteArray>& packageIDs)
{
    QByteArray text;
    for (const QByteArray& packageID : packageIDs)
        text += "Package: " + packageID + "\n\n";
    return text;
}

// Two identifiers with one hash; of so many, some have one in all likelihood, and there are always more.
std::pair<QByteArray, QByteArray> identifiersOfOneHash()
{
    QHash<std::uint32_t, QByteArray> identifiers;
    for (int number = 0;; ++number) {
        const QByteArray identifier = "p" + QByteArray::number(number);
        QByteArray& sameHash = identifiers[hashOfText(viewOf(identifier))];
        if (!sameHash.isEmpty())
            return { sameHash, identifier };
        sameHash = identifier;
    }
}

class CatalogOfManyIndexes : public testing::Test
{
protected:
    void merge(const QByteArray& text)
    {
        const DpkgStatus status;
        IndexParser parser(m_source, status);
        parser.feed(viewOf(text));
        for (const VeskPackagePtr& package : parser.finish()) {
            const bool isNew = std::none_of(m_plain.begin(), m_plain.end(),
                [&](const VeskPackagePtr& each) { return each->packageID() == package->packageID(); });
            if (isNew)
                m_plain.push_back(package);
        }
        m_index.merge(readIndex({ Compression::None, m_source, {}, m_order, {} }, text));
    }

    QStringList plainlyMatching(const QString& query) const
    {
        QStringList found;
        for (const VeskPackagePtr& each : m_plain) {
            const QStringList fields{ each->name(), each->packageID(), each->desc(), each->author() };
            if (std::any_of(fields.begin(), fields.end(),
                    [&](const QString& field) { return field.toLower().contains(query.toLower()); }))
                found << each->packageID();
        }
        return found;
    }

    QMap<QString, quint64> plainSections() const
    {
        QMap<QString, quint64> sections;
        for (const VeskPackagePtr& each : m_plain)
            ++sections[each->section()];
        return sections;
    }

    void expectThePlainCatalog()
    {
        ASSERT_EQ(idsOf(m_packages), idsOf(m_plain));
        const QStringList byName = idsOf(packagesByName(m_plain, *m_order));
        for (const qsizetype count : { 0, 1, 7, 1000 })
            EXPECT_EQ(idsOf(m_index.firstByName(static_cast<std::size_t>(count))), byName.mid(0, count)) << count;
        EXPECT_EQ(idsOf(m_index.packagesByName()), byName);
        for (const char* query : { "li", "LIB", "zo", "zoë", "p1", "p79", "é", "a", "none" })
            EXPECT_EQ(
                idsOf(m_index.packagesMatching(QString::fromUtf8(query))), plainlyMatching(QString::fromUtf8(query)))
                << query;
        QMap<QString, quint64> sections;
        for (const SectionSize& section : m_index.sections())
            sections[textOf(section.name)] = section.count;
        EXPECT_EQ(sections, plainSections());
    }

    // Any of them in catalog order are sorted as by their names alone.
    void expectThePlainOrderOf(const PackageSelection& some)
    {
        PackageSelection sorted = some;
        m_index.sortByName(sorted);
        EXPECT_EQ(idsOf(sorted), idsOf(packagesByName(some, *m_order)));
    }

    VeskRepositoryPtr m_source
        = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
    std::shared_ptr<const NameOrder> m_order = std::make_shared<const NameOrder>(QStringLiteral("en"));
    PackageVector m_plain;
    PackageList m_packages;
    CatalogIndex m_index{ m_packages, m_order };
};

} // namespace

TEST_F(CatalogOfManyIndexes, isThatOfThePlainDefinition)
{
    RandomIndexes indexes;
    for (int round = 0; round < 60; ++round) {
        for (int count = 1 + indexes.number(4); count > 0; --count) {
            merge(indexes.next());
            expectThePlainCatalog();
            expectThePlainOrderOf(m_index.packagesMatching(QString::fromUtf8(indexes.word())));
        }
        m_index.clear();
        m_plain.clear();
    }
}

TEST_F(CatalogOfManyIndexes, tellsIdentifiersOfOneHashApart)
{
    const auto [a, b] = identifiersOfOneHash();
    for (const std::vector<QByteArray>& ids : { std::vector{ a }, { b, "c" }, { "d", b }, { a, "e", b }, { a, b } }) {
        merge(stanzasOf(ids));
        expectThePlainCatalog();
    }
    EXPECT_EQ(m_packages.size(), 5U);
}

TEST_F(CatalogOfManyIndexes, leavesWhatWasReadOfItAsItWas)
{
    merge("Package: b\nName: B\n\nPackage: a\nName: A\n\nPackage: b\n");
    const PackageSelection byName = m_index.packagesByName();
    const PackageSelection all = m_index.packagesMatching(QString());
    const PackageSelection some = m_index.packagesMatching(QStringLiteral("b"));
    const auto expectNoChange = [&] {
        EXPECT_EQ(idsOf(byName), QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
        EXPECT_EQ(idsOf(all), QStringList({ QStringLiteral("b"), QStringLiteral("a") }));
        EXPECT_EQ(idsOf(some), QStringList(QStringLiteral("b")));
    };
    merge("Package: a\n\nPackage: bb\n");
    expectNoChange();
    m_packages.remove(m_packages[0]);
    expectNoChange();
    m_index.clear();
    expectNoChange();
    merge("Package: c\n");
    expectNoChange();
    EXPECT_EQ(idsOf(m_index.packagesByName()), QStringList(QStringLiteral("c")));
}

TEST_F(CatalogOfManyIndexes, ordersWhatStandsInAnyOtherOrderByNamesAlone)
{
    merge("Package: 1\nName: b\n\nPackage: 2\nName: A\n\nPackage: 3\nName: B\n");
    expectThePlainOrderOf(m_packages);
    expectThePlainOrderOf(PackageVector{ m_packages[2], m_packages[0], m_packages[1], m_packages[0] });
    const auto backwards = std::make_shared<const PackageSelection::Places>(PackageSelection::Places{ 2, 1, 0 });
    expectThePlainOrderOf(PackageSelection(m_packages.shared(), backwards));
}
