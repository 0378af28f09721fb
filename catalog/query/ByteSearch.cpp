#include "catalog/query/ByteSearch.h"

#include <array>
#include <utility>

namespace {

constexpr std::size_t vectorCount = BytePattern::placesAtOnce / sizeof(ByteVector);

// The bit that a capital letter lacks to be this one; none if this is no letter.
ByteVector capitalBitFor(char c)
{
    return bytesOf(c >= 'a' && c <= 'z' ? 'a' - 'A' : 0);
}

std::uint64_t bitsOfAll(const std::array<ByteVector, vectorCount>& vectors)
{
    std::uint64_t bits = 0;
    for (std::size_t number = 0; number < vectors.size(); ++number)
        bits |= bitsOf(vectors[number]) << (number * sizeof(ByteVector));
    return bits;
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
    std::size_t rarest = 0;
    std::size_t nextRarest = 0;
    for (std::size_t place = 1; place < pattern.size(); ++place) {
        if (isRarer(place, rarest))
            nextRarest = std::exchange(rarest, place);
        else if (nextRarest == rarest || isRarer(place, nextRarest))
            nextRarest = place;
    }
    m_rarest = byteAt(rarest);
    m_nextRarest = byteAt(nextRarest);
}

BytePattern::Byte BytePattern::byteAt(std::size_t offset) const
{
    return { offset, bytesOf(m_pattern[offset]), capitalBitFor(m_pattern[offset]) };
}

BytePattern::Candidates BytePattern::nextCandidates(std::string_view text, std::size_t from) const
{
    const Byte rarest = m_rarest;
    const Byte nextRarest = m_nextRarest;
    for (; from + placesAtOnce + size() - 1 <= text.size(); from += placesAtOnce) {
        prefetch(text.data() + from + prefetchedAhead);
        std::array<ByteVector, vectorCount> hits{};
        ByteVector any{};
        for (std::size_t number = 0; number < hits.size(); ++number) {
            const char* const at = text.data() + from + number * sizeof(ByteVector);
            hits[number] = rarest.standsIn(at) & nextRarest.standsIn(at);
            any |= hits[number];
        }
        if (bitsOf(any) != 0)
            return { from, bitsOfAll(hits) };
    }
    return { from, 0 };
}
