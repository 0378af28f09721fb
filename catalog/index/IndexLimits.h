#pragma once

#include <cstddef>

// How much one index may bring once it is received. An index beyond any of these fails like one that cannot be fetched:
// what a server sends must not be able to fill the memory of a telephone. The largest indexes in use are a fifth of
// these.
struct IndexLimits
{
    // Bytes of text after decompression.
    std::size_t textSize = std::size_t(256) * 1024 * 1024;
    std::size_t packageCount = 1'000'000;
};
