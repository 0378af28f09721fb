// What comes of an index must be what comes of it by its plain definition, whatever the body is and however it arrives.
#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/decode/PackedStream.h"
#include "tests/catalog/index/PlainReading.h"
#include "tests/catalog/index/ReadIndex.h"

#include <array>
#include <random>

namespace {

const std::array<const char*, 14> names{ "Package", "Name", "Version", "Description", "Author", "Maintainer", "Section",
    "Icon", "Depiction", "SileoDepiction", "ModernDepiction", "Homepage", "Package ", "Tag" };

const std::array<const char*, 12> values{ "a", " b", " \xc3\xa9t\xc3\xa9 ", "", " https://a.example/b", "\t\xc2\xa0",
    " \xe2\x80\x83x", " 1:2.0", " \xf0\x9f\x98\x80", " x\r", "::", " Team <team@lists.example>" };

// Pieces of lines that belong to an index, and now and then one that does not.
class RandomIndex
{
public:
    explicit RandomIndex(unsigned seed)
        : m_random(seed)
    {
    }

    unsigned below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

    QByteArray text(unsigned lineCount)
    {
        QByteArray text = below(8) == 0 ? "\xef\xbb\xbf" : "";
        for (; lineCount > 0; --lineCount)
            text += line();
        return text;
    }

    // Bytes that are not UTF-8.
    QByteArray withLatin1(QByteArray text)
    {
        return text.insert(static_cast<qsizetype>(below(static_cast<unsigned>(text.size()) + 1)), '\xe9');
    }

    QByteArray damaged(QByteArray body)
    {
        if (!body.isEmpty())
            body[place(body)] = static_cast<char>(below(256));
        return body;
    }

    QByteArray cut(const QByteArray& body) { return body.left(place(body)); }

private:
    QByteArray line()
    {
        switch (below(10)) {
        case 0:
        case 1:
            return "\n";
        case 2:
            return " goes on\n";
        default:
            return QByteArray(names[below(names.size())]) + ':' + values[below(values.size())] + '\n';
        }
    }

    qsizetype place(const QByteArray& body)
    {
        return static_cast<qsizetype>(below(static_cast<unsigned>(body.size()) + 1))
            % std::max<qsizetype>(1, body.size());
    }

    std::mt19937 m_random;
};

QByteArray packed(const QByteArray& text, Compression compression)
{
    switch (compression) {
    case Compression::Gzip:
        return gzipped(text);
    case Compression::Bzip2:
        return bzipped(text);
    case Compression::None:
        break;
    }
    return text;
}

constexpr std::array<Compression, 3> compressions{ Compression::None, Compression::Bzip2, Compression::Gzip };

} // namespace

class AnIndexInPieces : public testing::Test
{
protected:
    IndexJob jobFor(Compression compression) const
    {
        IndexJob job;
        job.compression = compression;
        job.repository = m_source;
        job.nameOrder = m_order;
        return job;
    }

    void expectThePlainReading(const QByteArray& body, Compression compression, qsizetype pieceSize)
    {
        const ParsedIndex index = readIndexInPieces(jobFor(compression), body, pieceSize, m_workers);
        EXPECT_EQ(fieldsOf(index.packages), plainlyRead(body, compression)) << body.toHex().left(400).constData();
        EXPECT_EQ(index.nameKeys.sortedPlaces().size(), index.packages.size());
    }

    Workers m_workers;
    VeskRepositoryPtr m_source
        = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
    std::shared_ptr<const NameOrder> m_order = std::make_shared<const NameOrder>(QStringLiteral("en"));
};

TEST_F(AnIndexInPieces, isReadByThePlainDefinitionWhateverItHolds)
{
    RandomIndex random(1);
    for (int round = 0; round < 400; ++round) {
        QByteArray text = random.text(random.below(60));
        if (random.below(4) == 0)
            text = random.withLatin1(text);
        const Compression compression = compressions[random.below(3)];
        QByteArray body = packed(text, compressions[random.below(3)]);
        switch (random.below(5)) {
        case 0:
            body = random.damaged(body);
            break;
        case 1:
            body = random.cut(body);
            break;
        case 2:
            body += body;
            break;
        default:
            body = packed(text, compression);
        }
        expectThePlainReading(body, compression, 1 + random.below(static_cast<unsigned>(body.size()) + 1));
    }
}

TEST_F(AnIndexInPieces, isReadByThePlainDefinitionWhereverItIsCut)
{
    const QByteArray text = "\xef\xbb\xbfPackage: a\nName: \xc3\xa9\n\nPackage: b\nAuthor: x";
    for (const Compression compression : compressions) {
        const QByteArray body = packed(text, compression);
        for (qsizetype size = 0; size <= body.size(); ++size) {
            for (const qsizetype pieceSize : { qsizetype(1), qsizetype(5), body.size() })
                expectThePlainReading(body.left(size), compression, pieceSize);
        }
    }
}

TEST_F(AnIndexInPieces, isReadByThePlainDefinitionWhenItIsLarge)
{
    RandomIndex random(2);
    const QByteArray text = random.text(100000);
    const QByteArray latin1 = text + "\nPackage: last\nAuthor: \xe9\n";
    for (const QByteArray& each : { text, latin1 }) {
        for (const QByteArray& body : { each, gzipped(each), packedInSmallBlocks(each) }) {
            for (const Compression compression : compressions)
                expectThePlainReading(body, compression, 16384);
        }
    }
}

TEST_F(AnIndexInPieces, isReadByThePlainDefinitionWhenHalfOfItIsMissing)
{
    const QByteArray text = RandomIndex(3).text(60000);
    for (const Compression compression : compressions) {
        const QByteArray body = packed(text, compression);
        expectThePlainReading(body.left(body.size() / 2), compression, 50000);
    }
}

TEST_F(AnIndexInPieces, isReadAsItCameWhenItDoesNotDecompress)
{
    for (const Compression compression : { Compression::Bzip2, Compression::Gzip }) {
        const ParsedIndex index = readIndexInPieces(jobFor(compression), stanza("plain"), 3, m_workers);
        EXPECT_EQ(idsOf(index.packages), QStringList(QStringLiteral("plain")));
    }
}
