#include "catalog/query/ByteSearch.h"

#include <array>
#include <cstring>

namespace {

// As the compiler knows them for every processor; what a comparison gives has all bits of a byte set or none.
using Bytes [[gnu::vector_size(16)]] = signed char;

Bytes bytesOf(char c)
{
    Bytes bytes;
    std::memset(&bytes, c, sizeof bytes);
    return bytes;
}

Bytes bytesAt(const char* place)
{
    Bytes bytes;
    std::memcpy(&bytes, place, sizeof bytes);
    return bytes;
}

// The bit that a capital letter lacks to be this one; none if this is no letter.
Bytes capitalBitFor(char c)
{
    return bytesOf(c >= 'a' && c <= 'z' ? 'a' - 'A' : 0);
}

// One bit for each of eight bytes that have all bits set or none, that of the first byte lowest.
std::uint64_t bitsOf(std::uint64_t bytes)
{
    if constexpr (std::endian::native == std::endian::big)
        bytes = __builtin_bswap64(bytes);
    return ((bytes & 0x0101010101010101U) * 0x0102040810204080U) >> 56;
}

std::uint64_t bitsOf(Bytes bytes)
{
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(bytes);
    return bitsOf(halves[0]) | bitsOf(halves[1]) << 8;
}

std::uint64_t bitsOf(const std::array<Bytes, 4>& parts)
{
    std::uint64_t bits = 0;
    for (std::size_t part = 0; part < parts.size(); ++part)
        bits |= bitsOf(parts[part]) << (part * sizeof(Bytes));
    return bits;
}

bool isAnySet(Bytes bytes)
{
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(bytes);
    return (halves[0] | halves[1]) != 0;
}

// The more frequent a byte is in names and descriptions, the earlier it stands here; what does not is rare.
constexpr std::string_view byFrequency = "eiatronsl -cdmpubgyfhvkwx2310j465789qz";

std::size_t rarityOf(char c)
{
    return std::min(byFrequency.find(c), byFrequency.size());
}

} // namespace

BytePattern::BytePattern(std::string_view pattern)
    : m_pattern(pattern)
{
    const auto isRarer = [&](std::size_t a, std::size_t b) { return rarityOf(pattern[a]) > rarityOf(pattern[b]); };
    for (std::size_t place = 1; place < pattern.size(); ++place) {
        if (isRarer(place, m_rarest)) {
            m_nextRarest = m_rarest;
            m_rarest = place;
        } else if (m_nextRarest == m_rarest || isRarer(place, m_nextRarest)) {
            m_nextRarest = place;
        }
    }
}

BytePattern::Candidates BytePattern::nextCandidates(std::string_view text, std::size_t from) const
{
    const Bytes rarest = bytesOf(m_pattern[m_rarest]);
    const Bytes nextRarest = bytesOf(m_pattern[m_nextRarest]);
    const Bytes rarestCapital = capitalBitFor(m_pattern[m_rarest]);
    const Bytes nextRarestCapital = capitalBitFor(m_pattern[m_nextRarest]);
    for (; from + placesAtOnce + size() - 1 <= text.size(); from += placesAtOnce) {
        prefetch(text.data() + from + prefetchedAhead);
        std::array<Bytes, placesAtOnce / sizeof(Bytes)> hits{};
        Bytes any{};
        for (std::size_t part = 0; part < hits.size(); ++part) {
            const char* const at = text.data() + from + part * sizeof(Bytes);
            hits[part] = ((bytesAt(at + m_rarest) | rarestCapital) == rarest)
                & ((bytesAt(at + m_nextRarest) | nextRarestCapital) == nextRarest);
            any |= hits[part];
        }
        if (isAnySet(any))
            return { from, bitsOf(hits) };
    }
    return { from, 0 };
}
