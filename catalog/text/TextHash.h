#pragma once

#include <QHashFunctions>

#include <cstdint>
#include <string_view>

// A 32-bit hash of a text's bytes, seeded anew in every process, so that no index can be written to make all its texts
// collide.
inline std::uint32_t hashOfText(std::string_view text)
{
    static const std::size_t seed = QHashSeed::globalSeed();
    const auto hash = static_cast<std::uint64_t>(qHashBits(text.data(), text.size(), seed));
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}
