#pragma once

#include "catalog/decode/Bzip2Blocks.h"
#include "catalog/decode/IndexDecoder.h"

#include <deque>

// A bzip2 stream whose blocks are decompressed several at once, each on a worker, as they arrive. When there is any
// doubt about them, the stream is decompressed in order, from its beginning, and what has been written already is left
// out.
class Bzip2Decoder : public IndexDecoder
{
public:
    explicit Bzip2Decoder(DecoderTools tools);
    ~Bzip2Decoder() override;

    DecodeState decode(TextBatch& batch) override;

private:
    struct Task;

    void startTasks();
    void start(const Bzip2Blocks::Block& block);
    DecodeState takeText();
    DecodeState goOnInOrder();

    DecoderTools m_tools;
    Bzip2Blocks m_blocks;
    // Those begun or done whose text has not been taken, in the order of their blocks.
    std::deque<std::shared_ptr<Task>> m_ahead;
    // The text of the block taken last, and what of it has not been written.
    QByteArray m_text;
    std::string_view m_rest;
    std::size_t m_sizeWritten = 0;
    std::unique_ptr<IndexDecoder> m_inOrder;
};
