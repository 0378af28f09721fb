#pragma once

#include "catalog/decode/BatchRing.h"
#include "catalog/index/IndexSource.h"
#include "catalog/index/IndexTextReader.h"
#include "catalog/work/Strand.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

// One reading of a body from its first byte on, as one kind of compression and in one encoding. Two strands share the
// work, so that two processors are at it: one decodes, and hands its text in batches to the other, which parses. One of
// them at most runs far ahead: the batches are few. Who holds the pass may let go of it at any time; then it ends
// within one step.
class IndexPass : public std::enable_shared_from_this<IndexPass>
{
public:
    enum class Outcome {
        Sound,
        // To be read anew as Latin-1.
        NotUtf8,
        // Beyond the limit of packages.
        Refused,
        // It does not decompress, or to nothing, or to more than the limit.
        Broken,
    };
    using Done = std::function<void(IndexPass& pass, Outcome outcome)>;
    using Encoding = IndexTextReader::Encoding;

    // Done is called at most once, on a worker: as soon as the outcome is known, be there more of the body to come.
    IndexPass(std::shared_ptr<IndexSource> source, Compression compression, Encoding encoding, Done done);

    // To be called when the pass is made, and whenever more of the body has come. Safe on any thread.
    void goOn();

    Compression compression() const { return m_compression; }
    // Once, after a sound outcome.
    ParsedIndex takeIndex() { return m_reader->takeIndex(); }

private:
    template <typename Step> void postTo(Strand& strand, Step step);

    // The decoding side.
    void decodeStep();
    DecodeState decodeMore();
    void makeDecoder();
    void handOut();
    // The parsing side.
    IndexTextReader& reader();
    void parse(const TextBatch& batch);
    void endText(DecodeState state);
    void conclude(Outcome outcome);

    std::shared_ptr<IndexSource> m_source;
    Compression m_compression;
    Encoding m_encoding;
    Done m_done;
    BatchRing m_ring;

    Strand m_decoding;
    std::atomic<bool> m_isStepPosted = false;
    std::unique_ptr<IndexDecoder> m_decoder;
    TextBatch* m_batch = nullptr;
    std::size_t m_textSize = 0;
    bool m_isDecoded = false;

    Strand m_parsing;
    std::optional<IndexTextReader> m_reader;
    bool m_isConcluded = false;
};
