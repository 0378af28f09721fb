#include "catalog/query/ByteSearch.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace {

// As the compiler knows them for every processor; what a comparison gives has all bits of a byte set or none.
using Bytes [[gnu::vector_size(16)]] = signed char;

constexpr std::size_t stepSize = 64;
using Step = std::array<Bytes, stepSize / sizeof(Bytes)>;

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

bool isAnySet(Bytes bytes)
{
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(bytes);
    return (halves[0] | halves[1]) != 0;
}

} // namespace

std::size_t findBytes(std::string_view text, std::string_view pattern, std::size_t from)
{
    // A single byte is found as fast by the library, which also does the end of the text.
    const std::size_t toLast = pattern.size() - 1;
    if (toLast == 0)
        return text.find(pattern, from);
    const Bytes first = bytesOf(pattern.front());
    const Bytes last = bytesOf(pattern.back());
    for (; from + stepSize + toLast <= text.size(); from += stepSize) {
        const char* const place = text.data() + from;
        Step hits;
        Bytes any{};
        for (std::size_t part = 0; part < hits.size(); ++part) {
            const char* const at = place + part * sizeof(Bytes);
            hits[part] = (bytesAt(at) == first) & (bytesAt(at + toLast) == last);
            any |= hits[part];
        }
        if (!isAnySet(any))
            continue;
        const auto isHit = std::bit_cast<std::array<signed char, stepSize>>(hits);
        for (std::size_t offset = 0; offset < stepSize; ++offset) {
            if (isHit[offset] != 0 && std::memcmp(place + offset, pattern.data(), pattern.size()) == 0)
                return from + offset;
        }
    }
    return text.find(pattern, from);
}
