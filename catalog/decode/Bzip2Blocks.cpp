#include "catalog/decode/Bzip2Blocks.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include <bzlib.h>

namespace {

constexpr std::uint64_t blockMark = 0x314159265359;
constexpr std::uint64_t endMark = 0x177245385090;
constexpr unsigned markSize = 48;
constexpr unsigned checksumSize = 32;
constexpr std::size_t headerSize = 4;

// The usual block is of 900,000 bytes. One of text that repeats itself without end becomes far more, one of a stream
// that was flushed again and again far less.
constexpr unsigned largestText = 2 * 1024 * 1024;
constexpr unsigned smallestText = 65536;
// Bytes; far more than a block takes that holds nothing but noise.
constexpr std::size_t largestBlock = std::size_t(2) * 1024 * 1024;

// The bytes that can stand in a mark as the last but one that holds nothing else, however the mark is shifted.
constexpr std::array<bool, 256> bytesInMarks = [] {
    std::array<bool, 256> bytes{};
    for (unsigned shift = 0; shift < 8; ++shift) {
        bytes[((blockMark << shift) >> 8) & 0xff] = true;
        bytes[((endMark << shift) >> 8) & 0xff] = true;
    }
    return bytes;
}();

constexpr std::uint64_t lowBits(std::uint64_t value, unsigned count)
{
    return value & ((std::uint64_t(1) << count) - 1);
}

class BitWriter
{
public:
    explicit BitWriter(std::string_view beginning)
        : m_bytes(beginning.data(), static_cast<qsizetype>(beginning.size()))
    {
    }

    // At most 56 bits.
    void put(std::uint64_t value, unsigned count)
    {
        m_pending = (m_pending << count) | value;
        for (m_pendingCount += count; m_pendingCount >= 8; m_pendingCount -= 8)
            m_bytes.append(static_cast<char>(m_pending >> (m_pendingCount - 8)));
    }

    QByteArray takeBytes()
    {
        put(0, 7);
        return std::move(m_bytes);
    }

private:
    QByteArray m_bytes;
    std::uint64_t m_pending = 0;
    unsigned m_pendingCount = 0;
};

bool hasHeader(std::string_view body)
{
    return body.size() > headerSize && body.starts_with("BZh") && body[3] >= '1' && body[3] <= '9';
}

} // namespace

Bzip2Blocks::Bzip2Blocks(std::string_view body)
    : m_body(body)
{
    if (hasHeader(body) && bitsAt(headerSize * 8, markSize) == blockMark)
        m_begin = headerSize * 8;
}

std::optional<Bzip2Blocks::Block> Bzip2Blocks::next()
{
    if (!m_begin)
        return std::nullopt;
    const std::uint64_t begin = *std::exchange(m_begin, std::nullopt);
    const auto mark = findMark(begin + markSize);
    if (!mark)
        return std::nullopt;
    const auto checksum = static_cast<std::uint32_t>(bitsAt(begin + markSize, checksumSize));
    m_checksum = std::rotl(m_checksum, 1) ^ checksum;
    if (mark->isEnd)
        m_isComplete = mark->bit + markSize + checksumSize <= m_body.size() * 8
            && bitsAt(mark->bit + markSize, checksumSize) == m_checksum;
    else
        m_begin = mark->bit;
    return Block{ begin, mark->bit, mark->isEnd };
}

// The block becomes the only one of a stream of its own, which has the same checksum.
QByteArray Bzip2Blocks::decode(const Block& block) const
{
    BitWriter writer(m_body.substr(0, headerSize));
    for (std::uint64_t bit = block.begin; bit < block.end; bit += markSize) {
        const auto count = static_cast<unsigned>(std::min<std::uint64_t>(markSize, block.end - bit));
        writer.put(bitsAt(bit, count), count);
    }
    writer.put(endMark, markSize);
    writer.put(bitsAt(block.begin + markSize, checksumSize), checksumSize);
    QByteArray stream = writer.takeBytes();

    QByteArray text(largestText, Qt::Uninitialized);
    unsigned size = largestText;
    const int result
        = BZ2_bzBuffToBuffDecompress(text.data(), &size, stream.data(), static_cast<unsigned>(stream.size()), 0, 0);
    const bool isUsual = size >= smallestText || block.isLast;
    text.truncate(result == BZ_OK && isUsual ? static_cast<qsizetype>(size) : 0);
    return text;
}

// The bits, at most 56, as a number; zeros stand behind the body.
std::uint64_t Bzip2Blocks::bitsAt(std::uint64_t bit, unsigned count) const
{
    std::uint64_t window = 0;
    for (std::size_t at = bit / 8; at < bit / 8 + sizeof window; ++at)
        window = (window << 8) | (at < m_body.size() ? static_cast<unsigned char>(m_body[at]) : 0U);
    return lowBits(window >> (64 - bit % 8 - count), count);
}

// The first mark at or behind a bit, unless it is farther away than any block is long.
std::optional<Bzip2Blocks::Mark> Bzip2Blocks::findMark(std::uint64_t from) const
{
    const std::size_t end = std::min(m_body.size(), from / 8 + largestBlock);
    std::uint64_t window = 0;
    for (std::size_t at = from / 8; at < end; ++at) {
        window = (window << 8) | static_cast<unsigned char>(m_body[at]);
        if (!bytesInMarks[(window >> 8) & 0xff])
            continue;
        for (unsigned shift = 8; shift-- > 0;) {
            const std::uint64_t bits = lowBits(window >> shift, markSize);
            const std::uint64_t bitsBefore = (at + 1) * 8 - shift;
            if ((bits == blockMark || bits == endMark) && bitsBefore >= from + markSize)
                return Mark{ bitsBefore - markSize, bits == endMark };
        }
    }
    return std::nullopt;
}
