#pragma once

#include <cstddef>
#include <string_view>

// How an index is compressed, as far as its file name tells.
enum class Compression { None, Bzip2, Gzip };

enum class DecodeResult {
    Complete,
    // The body is not a sound stream of its kind, or holds nothing.
    Broken,
    // More text came out than was allowed.
    TooLarge,
    // The target wanted no more.
    Stopped,
};

// Where decompressed bytes go, a window at a time.
class DecodeTarget
{
public:
    static constexpr std::size_t windowSize = 65536;

    virtual ~DecodeTarget() = default;

    // A window of windowSize bytes to write to, or null when no more is wanted.
    virtual char* window() = 0;
    // The first so many bytes of the window just given are written; never 0.
    virtual void accept(std::size_t size) = 0;
};

// Decompresses the first stream of a body, in passes of one window. What came before a failure has been handed out
// already. Pure functions of their arguments, safe on any thread.
// The blocks of a large body are shared out among threads that are gone when this returns.
DecodeResult decodeBzip2(std::string_view body, std::size_t maximumSize, DecodeTarget& target);
// A gzip or a zlib header is recognised.
DecodeResult decodeGzip(std::string_view body, std::size_t maximumSize, DecodeTarget& target);
