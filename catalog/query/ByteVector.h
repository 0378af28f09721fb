#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

// Sixteen bytes that are compared at once, as the compiler knows them for every processor. What a comparison gives has
// all bits of a byte set or none.
using ByteVector [[gnu::vector_size(16)]] = signed char;

inline ByteVector bytesOf(char c)
{
    ByteVector bytes;
    std::memset(&bytes, c, sizeof bytes);
    return bytes;
}

inline ByteVector bytesAt(const char* place)
{
    ByteVector bytes;
    std::memcpy(&bytes, place, sizeof bytes);
    return bytes;
}

// One bit for each of eight bytes that have all bits set or none, that of the first byte lowest.
inline std::uint64_t bitsOfEight(std::uint64_t bytes)
{
    if constexpr (std::endian::native == std::endian::big)
        bytes = __builtin_bswap64(bytes);
    return ((bytes & 0x0101010101010101U) * 0x0102040810204080U) >> 56;
}

// The same for what a comparison gave.
inline std::uint64_t bitsOnAnyProcessor(ByteVector bytes)
{
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(bytes);
    return bitsOfEight(halves[0]) | bitsOfEight(halves[1]) << 8;
}

// The same again, by one instruction where the processor has it: a search with many hits takes an eighth less time.
inline std::uint64_t bitsOf(ByteVector bytes)
{
#ifdef __SSE2__
    return static_cast<unsigned>(_mm_movemask_epi8(std::bit_cast<__m128i>(bytes)));
#else
    return bitsOnAnyProcessor(bytes);
#endif
}
