#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/index/ReadIndex.h"

using namespace Qt::StringLiterals;

namespace {

ParsedIndex read(const QByteArray& body, Compression compression, const IndexLimits& limits)
{
    IndexJob job;
    job.compression = compression;
    job.repository = VeskRepository::repositoryWithURLString(u"https://a.example"_s, u"A"_s);
    job.nameOrder = std::make_shared<const NameOrder>(u"en"_s);
    job.limits = limits;
    return readIndex(job, body);
}

QByteArray manyStanzas(int count)
{
    QByteArray text;
    for (int number = 0; number < count; ++number)
        text += stanza("p" + QByteArray::number(number));
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

TEST(IndexLimitsOfReading, refuseAnIndexOfTooManyPackages)
{
    IndexLimits limits;
    limits.packageCount = 20000;
    EXPECT_EQ(read(manyStanzas(20000), Compression::None, limits).packages.size(), 20000U);
    EXPECT_TRUE(read(manyStanzas(20001), Compression::None, limits).packages.empty());
    EXPECT_TRUE(read(gzipped(manyStanzas(20001)), Compression::Gzip, limits).packages.empty());
}

TEST(IndexLimitsOfReading, letHugeLinesAndStanzasPassInLinearTime)
{
    const QByteArray longLine = "Package: a\nDescription: " + QByteArray(20'000'000, 'x') + "\n\n";
    const PackageVector packages = read(longLine, Compression::None, {}).packages;
    ASSERT_EQ(packages.size(), 1U);
    EXPECT_EQ(packages[0]->desc().size(), 20'000'000);
    const QByteArray longStanza = "Package: a\n" + QByteArray("Tag: x\n").repeated(3'000'000);
    EXPECT_EQ(read(longStanza, Compression::None, {}).packages.size(), 1U);
}

class IndexLimitsOfDownloading : public CatalogFixture
{
};

TEST_F(IndexLimitsOfDownloading, cutAnEndlessBodyShort)
{
    CatalogWorld small = world();
    small.downloadLimits.largestBody = 1'000'000;
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
    ASSERT_TRUE(refresh(addServedSource(u"/r"_s)));
    EXPECT_EQ(packageIDs(), QStringList(u"plain"_s));
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
    ASSERT_TRUE(refresh(addServedSource(u"/r"_s)));
    EXPECT_EQ(packageIDs(), QStringList(u"plain"_s));
    EXPECT_LT(m_server.bytesSent(), LoopbackServer::mostHeldUnread());
}
