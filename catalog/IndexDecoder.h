#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

// How an index is compressed, as far as its file name tells.
enum class Compression { None, Bzip2, Gzip };

enum class DecodeResult {
    Complete,
    // The body is not a sound stream of its kind, or holds nothing.
    Broken,
    // More text came out than was allowed.
    TooLarge,
    // The receiver asked for no more.
    Stopped,
};

// Takes each stretch of decompressed bytes, which is good during the call only; false stops the decoder.
using DecodeSink = std::function<bool(std::string_view)>;

// Decompresses the first stream of a body in passes of 64 KiB. What came before a failure has been handed out already.
// Both are pure functions of their arguments and safe on any thread.
DecodeResult decodeBzip2(std::string_view body, std::size_t maximumSize, const DecodeSink& sink);
// A gzip or a zlib header is recognised.
DecodeResult decodeGzip(std::string_view body, std::size_t maximumSize, const DecodeSink& sink);
