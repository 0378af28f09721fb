#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/decode/PackedStream.h"
#include "tests/catalog/index/ReadIndex.h"

#include <thread>

namespace {

constexpr int packageCount = 3000;

// Packed, it is large enough for several threads and several blocks.
QByteArray largeIndex()
{
    const QByteArray descriptions = noise(packageCount * 100);
    QByteArray text;
    for (int number = packageCount; number > 0; --number) {
        const QByteArray description = descriptions.mid(number * 100 - 100, 100).replace(':', ';');
        text += "Package: p" + QByteArray::number(number) + "\nMaintainer: m" + QByteArray::number(number % 7)
            + "\nDescription: d" + description + "\n\n";
    }
    return text;
}

// What an index comes to: each package with its place in the order by name.
QStringList summaryOf(const ParsedIndex& index)
{
    QStringList summary;
    for (const std::uint32_t place : index.nameKeys.sortedPlaces()) {
        const VeskPackagePtr& package = index.packages[place];
        summary << package->packageID() << package->author() << package->desc() << package->installedVersion();
    }
    for (const std::uint32_t place : index.searchText.find("p1"))
        summary << QString::number(place);
    return summary;
}

} // namespace

// Without a server: a thread of Qt's own would be one too many for a look at races.
class ReadingAnIndex : public testing::Test
{
protected:
    ParsedIndex read(const QByteArray& body, Compression compression) const
    {
        IndexJob job;
        job.compression = compression;
        job.repository = m_source;
        job.statusPaths = { m_directory.filePath(QStringLiteral("status")) };
        job.nameOrder = m_order;
        return readIndex(job, body);
    }

    QTemporaryDir m_directory;
    VeskRepositoryPtr m_source
        = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
    std::shared_ptr<const NameOrder> m_order = std::make_shared<const NameOrder>(QStringLiteral("en"));
};

TEST_F(ReadingAnIndex, comesToTheSameHoweverTheBodyIsPacked)
{
    QFile status(m_directory.filePath(QStringLiteral("status")));
    ASSERT_TRUE(status.open(QIODevice::WriteOnly));
    status.write("Package: p17\nVersion: 3\n\n");
    status.close();
    const QByteArray text = largeIndex();
    const QStringList expected = summaryOf(read(text, Compression::None));
    EXPECT_GT(expected.size(), packageCount * 4);
    EXPECT_TRUE(expected.contains(QStringLiteral("3")));
    EXPECT_EQ(summaryOf(read(gzipped(text), Compression::Gzip)), expected);
    EXPECT_EQ(summaryOf(read(bzipped(text), Compression::Bzip2)), expected);
    EXPECT_EQ(summaryOf(read(packedInSmallBlocks(text), Compression::Bzip2)), expected);
}

TEST_F(ReadingAnIndex, goesOnAtOnceOnManyThreads)
{
    const QByteArray text = largeIndex();
    const std::vector<std::pair<QByteArray, Compression>> bodies{ { text, Compression::None },
        { gzipped(text), Compression::Gzip }, { packedInSmallBlocks(text), Compression::Bzip2 },
        { gzipped(text), Compression::Gzip } };
    std::vector<ParsedIndex> indexes(bodies.size());
    std::vector<std::thread> threads;
    for (std::size_t number = 0; number < bodies.size(); ++number)
        threads.emplace_back(
            [this, &body = bodies[number], &index = indexes[number]] { index = read(body.first, body.second); });
    for (std::thread& thread : threads)
        thread.join();
    const QStringList expected = summaryOf(indexes.front());
    for (const ParsedIndex& index : indexes)
        EXPECT_EQ(summaryOf(index), expected);
}

TEST_F(ReadingAnIndex, keepsAPackageWhenAllTheOthersOfItsIndexAreGone)
{
    VeskPackagePtr kept = read(largeIndex(), Compression::None).packages[7];
    EXPECT_EQ(kept->packageID(), QStringLiteral("p2993"));
    EXPECT_EQ(kept->repository(), m_source);
    const std::weak_ptr<VeskPackage> weak = kept;
    kept.reset();
    EXPECT_TRUE(weak.expired());
}
