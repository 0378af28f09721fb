#include "catalog/index/IndexParser.h"
#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/index/ReadIndex.h"

#include <cstring>
#include <limits>
#include <map>

namespace {

ParsedIndex read(const QByteArray& body, Compression compression, const IndexLimits& limits)
{
    IndexJob job;
    job.compression = compression;
    job.repository = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
    job.nameOrder = std::make_shared<const NameOrder>(QStringLiteral("en"));
    job.limits = limits;
    return readIndex(job, body);
}

// Each with its own number behind the rest.
QByteArray manyStanzas(int count, const QByteArray& rest = QByteArray())
{
    QByteArray text;
    for (int number = 0; number < count; ++number) {
        const QByteArray digits = QByteArray::number(number);
        text += stanza("p" + digits + (rest.isEmpty() ? rest : rest + digits));
    }
    return text;
}

} // namespace

TEST(IndexLimitsOfReading, failTheDecompressionOfWhatGrowsBeyondThem)
{
    IndexLimits limits;
    limits.textSize = 100000;
    const QByteArray bomb = stanza("a") + QByteArray(100'000'000, '\n');
    EXPECT_TRUE(read(gzipped(bomb), Compression::Gzip, limits).packages.empty());
    EXPECT_TRUE(read(bzipped(bomb), Compression::Bzip2, limits).packages.empty());
    EXPECT_EQ(read(gzipped(stanza("a")), Compression::Gzip, limits).packages.size(), 1U);
}

TEST(IndexLimitsOfReading, letTextOfJustTheirSizePass)
{
    const QByteArray text = manyStanzas(500);
    IndexLimits limits;
    limits.textSize = static_cast<std::size_t>(text.size());
    EXPECT_EQ(read(gzipped(text), Compression::Gzip, limits).packages.size(), 500U);
    EXPECT_EQ(read(bzipped(text), Compression::Bzip2, limits).packages.size(), 500U);
    --limits.textSize;
    EXPECT_TRUE(read(gzipped(text), Compression::Gzip, limits).packages.empty());
    EXPECT_TRUE(read(bzipped(text), Compression::Bzip2, limits).packages.empty());
}

TEST(IndexLimitsOfReading, refuseAnIndexOfTooManyPackages)
{
    IndexLimits limits;
    limits.packageCount = 20000;
    EXPECT_EQ(read(manyStanzas(20000), Compression::None, limits).packages.size(), 20000U);
    EXPECT_TRUE(read(manyStanzas(20001), Compression::None, limits).packages.empty());
    EXPECT_TRUE(read(gzipped(manyStanzas(20001)), Compression::Gzip, limits).packages.empty());
    EXPECT_EQ(read(stanza("a").repeated(20000), Compression::None, limits).packages.size(), 1U);
    EXPECT_TRUE(read(stanza("a").repeated(20001), Compression::None, limits).packages.empty());
}

TEST(IndexLimitsOfReading, letHugeLinesAndStanzasPassInLinearTime)
{
    const QByteArray longLine = "Package: a\nDescription: " + QByteArray(20'000'000, 'x') + "\n\n";
    const PackageVector packages = read(longLine, Compression::None, {}).packages;
    ASSERT_EQ(packages.size(), 1U);
    EXPECT_EQ(packages[0]->desc().size(), qsizetype(IndexLimits::fieldSize));
    const QByteArray longStanza = "Package: a\n" + QByteArray("Tag: x\n").repeated(3'000'000);
    EXPECT_EQ(read(longStanza, Compression::None, {}).packages.size(), 1U);
}

TEST(IndexLimitsOfReading, areOneGibibyteOfTextAndTenMillionPackages)
{
    const IndexLimits limits;
    EXPECT_EQ(limits.textSize, std::size_t(1) << 30);
    EXPECT_EQ(limits.packageCount, 10'000'000U);
}

TEST(IndexLimitsOfReading, shrinkToAQuarterOfTheMemoryThatIsFree)
{
    const IndexLimits limits;
    const IndexLimits small = limits.within(4'000'000);
    EXPECT_EQ(small.textSize, 1'000'000U);
    EXPECT_EQ(small.madeSize, 1'000'000U);
    EXPECT_EQ(small.packageCount, limits.packageCount);
    const IndexLimits large = limits.within(std::size_t(1) << 40);
    EXPECT_EQ(large.textSize, limits.textSize);
    EXPECT_EQ(large.madeSize, limits.madeSize);
}

TEST(IndexLimitsOfReading, knowTheMemoryThatIsFreeFromTheSystem)
{
    constexpr auto unknown = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(freeMemoryIn("MemTotal:  8000 kB\nMemFree:  1 kB\nMemAvailable:   4000 kB\nCached: 2 kB\n"), 4096000U);
    EXPECT_EQ(freeMemoryIn("MemAvailable: 1 kB"), 1024U);
    for (const char* strange : { "", "MemFree: 1 kB\n", "MemAvailable:\n", "MemAvailable: much\n", "MemAvailable: 5\n",
             "NoMemAvailable: 1 kB\n", "MemAvailable: -1 kB\n", "MemAvailable: 99999999999999999999 kB\n",
             "MemAvailable: 18446744073709551615 kB\n" })
        EXPECT_EQ(freeMemoryIn(strange), unknown) << strange;
    EXPECT_GT(freeMemory(), 0U);
    EXPECT_LT(freeMemory(), unknown);
}

TEST(IndexLimitsOfReading, cutAFieldOf64KibibytesBetweenTwoCharacters)
{
    constexpr qsizetype size = IndexLimits::fieldSize;
    const auto descOf = [](const QByteArray& value) {
        const PackageVector packages = read("Package: a\nDescription: " + value, Compression::None, {}).packages;
        return packages.empty() ? QByteArray("(none)") : packages[0]->desc().toUtf8();
    };
    const QByteArray fits = QByteArray(size - 2, 'x') + "\xc3\xa9";
    EXPECT_EQ(descOf(fits), fits);
    EXPECT_EQ(descOf(fits + 'y'), fits);
    EXPECT_EQ(descOf(QByteArray(size - 1, 'x') + "\xc3\xa9"), QByteArray(size - 1, 'x'));
    EXPECT_EQ(descOf(QByteArray(size - 1, 'x') + "\xf0\x9f\x98\x80 y"), QByteArray(size - 1, 'x'));
    EXPECT_EQ(descOf(QByteArray(size - 1, 'x') + " y"), QByteArray(size - 1, 'x')) << "trimmed at its new end too";
    EXPECT_EQ(descOf(QByteArray(size / 2, ' ') + fits + QByteArray(size, ' ')), fits) << "blanks do not count";
}

TEST(IndexLimitsOfReading, cutALineAtTheSameByteHoweverItArrives)
{
    const DpkgStatus status;
    constexpr qsizetype size = IndexLimits::lineSize;
    // The last character ends with the line's last byte that is read, or is cut by it.
    const std::map<qsizetype, QString> kept = { { 4, QStringLiteral("xx\u00e9") }, { 3, QStringLiteral("xx") } };
    for (const auto& [room, desc] : kept) {
        const QByteArray blanks(size - qsizetype(strlen("Description:")) - room, ' ');
        const QByteArray text = "Package: a\nDescription:" + blanks + "xx\xc3\xa9yyyyyyyyyyyy\nName: b";
        for (qsizetype cut = size; cut < text.size(); ++cut) {
            IndexParser parser(nullptr, status);
            for (const QByteArray& piece :
                { text.left(cut - size / 2), text.mid(cut - size / 2, size / 2), text.mid(cut) })
                parser.feed({ piece.constData(), static_cast<std::size_t>(piece.size()) });
            const PackageVector packages = parser.finish();
            ASSERT_EQ(packages.size(), 1U);
            ASSERT_EQ(packages[0]->desc(), desc) << cut;
            ASSERT_EQ(packages[0]->name(), QStringLiteral("b")) << cut;
        }
    }
}

TEST(IndexLimitsOfReading, holdForAllThatIsMadeOfAnIndex)
{
    // Of each of these little is text, and much is made: records, letters that grow when they are folded or decoded,
    // keys of names and of sections.
    const QByteArray wide = QByteArray("\xef\xb7\xba").repeated(60);
    struct Case
    {
        const char* what;
        QByteArray text;
        // Less than is made, and more than would be without what the case is about.
        std::size_t madeSize;
    };
    for (const Case& made : { Case{ "records", manyStanzas(10000), 10000U * 90U },
             Case{ "folded letters", "Package: a\nDescription: " + QByteArray("\xc4\xb0").repeated(30000), 145000U },
             Case{ "Latin-1", "Package: a\nDescription: " + QByteArray(30000, '\xe9'), 115000U },
             Case{ "keys of names", manyStanzas(1000, "\nName: " + wide), 1000U * 900U },
             Case{ "keys of sections", manyStanzas(1000, "\nSection: " + wide), 1000U * 900U } }) {
        IndexLimits limits;
        limits.madeSize = made.madeSize;
        EXPECT_TRUE(read(made.text, Compression::None, limits).packages.empty()) << made.what;
        EXPECT_TRUE(read(gzipped(made.text), Compression::Gzip, limits).packages.empty()) << made.what;
        limits.madeSize = made.madeSize * 5;
        EXPECT_FALSE(read(made.text, Compression::None, limits).packages.empty()) << made.what;
    }
}

class IndexLimitsOfDownloading : public CatalogFixture
{
};

TEST_F(IndexLimitsOfDownloading, cutAnEndlessBodyShort)
{
    CatalogWorld small = world();
    small.indexRequest.limits.largestBody = 1'000'000;
    m_store->stored = std::vector<StoredSource>();
    m_manager = std::make_unique<RepoManager>(std::move(small));
    m_manager->repositories().clear();
    LoopbackServer::Reply endless;
    endless.body = stanza("wrong");
    endless.fillerSize = qint64(1) << 40;
    endless.declaredLength = -1;
    endless.ending = LoopbackServer::Ending::Close;
    m_server.setReply("/r/Packages.bz2", endless);
    m_server.serve("/r/Packages", stanza("plain"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("plain")));
    EXPECT_LT(m_server.bytesSent(), LoopbackServer::mostHeldUnread());
}

TEST_F(IndexLimitsOfDownloading, leaveAnEndlessErrorPageUnread)
{
    LoopbackServer::Reply endless;
    endless.status = 404;
    endless.fillerSize = qint64(1) << 40;
    endless.ending = LoopbackServer::Ending::Close;
    m_server.setReply("/r/Packages.bz2", endless);
    m_server.serve("/r/Packages", stanza("plain"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("plain")));
    EXPECT_LT(m_server.bytesSent(), LoopbackServer::mostHeldUnread());
}
