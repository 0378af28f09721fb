#pragma once

#include "catalog/decode/ReceivedBody.h"
#include "catalog/decode/TextBatch.h"
#include "catalog/work/Workers.h"

#include <functional>
#include <memory>
#include <stop_token>

// How an index is compressed, as far as its file name tells.
enum class Compression { None, Bzip2, Gzip };

enum class DecodeState {
    // There is more to do right now.
    Going,
    // Nothing can be done before more of the body has come, or the decoder resumes by itself.
    Waiting,
    // The first stream of the body has ended soundly. What follows it is passed over.
    Complete,
    // The body is not a sound stream of its kind. What came before the fault has been written.
    Broken,
};

// Turns the bytes of a body into its text while they arrive. What it makes of a body does not depend on the pieces in
// which that comes. Lives on one thread at a time.
class IndexDecoder
{
public:
    virtual ~IndexDecoder() = default;

    // Adds to the batch, which is not full, in a few milliseconds. Not to be called again once the stream is complete
    // or broken.
    virtual DecodeState decode(TextBatch& batch) = 0;
};

// What a decoder stands on.
struct DecoderTools
{
    std::shared_ptr<const ReceivedBody> body;
    // For what can be decoded on several threads at once; they outlive the decoder.
    Workers& workers;
    std::stop_token stop;
    // Called on a worker when a decoder that waits can go on although no bytes have come.
    std::function<void()> resume;
};

std::unique_ptr<IndexDecoder> makeDecoder(Compression compression, const DecoderTools& tools);
