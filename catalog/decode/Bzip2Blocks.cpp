#include "catalog/decode/Bzip2Blocks.h"

#include "catalog/decode/LibraryInput.h"
#include "catalog/text/TextDecoding.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string>
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
// Bytes, for some milliseconds of work between two looks at whether to stop.
constexpr std::size_t inputAtOnce = 16384;

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

// Those of the bytes that have come.
std::string bytesOf(const ReceivedBody& body, std::size_t begin, std::size_t end)
{
    std::string bytes;
    while (begin + bytes.size() < end) {
        const std::string_view part = body.from(begin + bytes.size()).bytes;
        if (part.empty())
            break;
        bytes += part.substr(0, end - begin - bytes.size());
    }
    return bytes;
}

// The bits, at most 56, as a number; zeros stand behind the bytes.
std::uint64_t bitsAt(std::string_view bytes, std::uint64_t bit, unsigned count)
{
    std::uint64_t window = 0;
    for (std::size_t at = bit / 8; at < bit / 8 + sizeof window; ++at)
        window = (window << 8) | (at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U);
    return lowBits(window >> (64 - bit % 8 - count), count);
}

std::uint32_t checksumAt(const ReceivedBody& body, std::uint64_t bit)
{
    const std::string bytes = bytesOf(body, bit / 8, bit / 8 + 8);
    return static_cast<std::uint32_t>(bitsAt(bytes, bit % 8, checksumSize));
}

// The block becomes the only one of a stream of its own, which has the same checksum.
QByteArray streamOf(const ReceivedBody& body, const Bzip2Blocks::Block& block)
{
    const std::string bytes = bytesOf(body, block.begin / 8, (block.end + 7) / 8);
    const std::uint64_t begin = block.begin % 8;
    const std::uint64_t end = begin + (block.end - block.begin);
    BitWriter writer(bytesOf(body, 0, headerSize));
    for (std::uint64_t bit = begin; bit < end; bit += markSize) {
        const auto count = static_cast<unsigned>(std::min<std::uint64_t>(markSize, end - bit));
        writer.put(bitsAt(bytes, bit, count), count);
    }
    writer.put(endMark, markSize);
    writer.put(bitsAt(bytes, begin + markSize, checksumSize), checksumSize);
    return writer.takeBytes();
}

// Whether the stream is sound and its text fits; what of the text has its place is cut to its size.
bool decompress(const QByteArray& packed, QByteArray& text, const std::stop_token& stop)
{
    bz_stream stream{};
    if (BZ2_bzDecompressInit(&stream, 0, 0) != BZ_OK)
        return false;
    stream.next_out = text.data();
    stream.avail_out = static_cast<unsigned>(text.size());
    std::string_view rest = viewOf(packed);
    int result = BZ_OK;
    while (result == BZ_OK && !rest.empty() && stream.avail_out != 0 && !stop.stop_requested()) {
        const std::string_view input = rest.substr(0, inputAtOnce);
        stream.next_in = inputOf(input);
        stream.avail_in = static_cast<unsigned>(input.size());
        result = BZ2_bzDecompress(&stream);
        rest.remove_prefix(input.size() - stream.avail_in);
    }
    text.truncate(text.size() - static_cast<qsizetype>(stream.avail_out));
    BZ2_bzDecompressEnd(&stream);
    return result == BZ_STREAM_END;
}

} // namespace

Bzip2Blocks::Bzip2Blocks(std::shared_ptr<const ReceivedBody> body)
    : m_body(std::move(body))
{
}

std::optional<Bzip2Blocks::Block> Bzip2Blocks::next()
{
    if (m_state != State::Searching || !hasBegun() || !hasFoundMark())
        return std::nullopt;
    const Mark mark = *m_mark;
    if (mark.isEnd && !hasCome(mark.bit + markSize + checksumSize))
        return std::nullopt;
    const Block block{ *m_begin, mark.bit, mark.isEnd };
    m_checksum = std::rotl(m_checksum, 1) ^ checksumAt(*m_body, block.begin + markSize);
    if (mark.isEnd)
        m_state = checksumAt(*m_body, mark.bit + markSize) == m_checksum ? State::Complete : State::Doubtful;
    else
        beginAt(mark.bit);
    return block;
}

QByteArray Bzip2Blocks::decode(const ReceivedBody& body, const Block& block, const std::stop_token& stop)
{
    QByteArray text(largestText, Qt::Uninitialized);
    const bool isSound = decompress(streamOf(body, block), text, stop);
    const bool isUsual = text.size() >= smallestText || block.isLast;
    return isSound && isUsual ? text : QByteArray();
}

// Whether the header is there, and the mark of a first block behind it.
bool Bzip2Blocks::hasBegun()
{
    constexpr std::uint64_t firstBlock = headerSize * 8;
    if (m_begin)
        return true;
    if (!hasCome(firstBlock + markSize))
        return false;
    const std::string header = bytesOf(*m_body, 0, headerSize + markSize / 8);
    const bool isHeader = header.starts_with("BZh") && header[3] >= '1' && header[3] <= '9';
    if (isHeader && bitsAt(header, firstBlock, markSize) == blockMark)
        beginAt(firstBlock);
    else
        m_state = State::Doubtful;
    return m_begin.has_value();
}

void Bzip2Blocks::beginAt(std::uint64_t bit)
{
    m_begin = bit;
    m_mark.reset();
    m_at = (bit + markSize) / 8;
    m_window = 0;
}

bool Bzip2Blocks::hasCome(std::uint64_t bitsEnd)
{
    const ReceivedBody::Part part = m_body->from((bitsEnd - 1) / 8);
    if (part.isEnd)
        m_state = State::Doubtful;
    return !part.bytes.empty();
}

// The first mark behind that of the block, unless it is farther away than any block is long.
bool Bzip2Blocks::hasFoundMark()
{
    const std::size_t end = (*m_begin + markSize) / 8 + largestBlock;
    while (!m_mark && m_at < end) {
        const ReceivedBody::Part part = m_body->from(m_at);
        if (part.isEnd)
            m_state = State::Doubtful;
        if (part.bytes.empty())
            return false;
        m_mark = markIn(part.bytes.substr(0, end - m_at));
    }
    if (!m_mark)
        m_state = State::Doubtful;
    return m_mark.has_value();
}

std::optional<Bzip2Blocks::Mark> Bzip2Blocks::markIn(std::string_view bytes)
{
    const std::uint64_t from = *m_begin + markSize;
    std::uint64_t window = m_window;
    for (const char byte : bytes) {
        window = (window << 8) | static_cast<unsigned char>(byte);
        ++m_at;
        if (!bytesInMarks[(window >> 8) & 0xff])
            continue;
        for (unsigned shift = 8; shift-- > 0;) {
            const std::uint64_t bits = lowBits(window >> shift, markSize);
            const std::uint64_t bitsBefore = m_at * 8 - shift;
            if ((bits == blockMark || bits == endMark) && bitsBefore >= from + markSize)
                return Mark{ bitsBefore - markSize, bits == endMark };
        }
    }
    m_window = window;
    return std::nullopt;
}
