#pragma once

#include "catalog/decode/IndexDecoder.h"

#include <bzlib.h>

// A bzip2 stream decompressed in order, from its beginning to its end.
class Bzip2Stream : public IndexDecoder
{
public:
    // So many bytes at the beginning of the text are left out.
    explicit Bzip2Stream(std::shared_ptr<const ReceivedBody> body, std::size_t sizeLeftOut = 0);
    ~Bzip2Stream() override;
    Bzip2Stream(const Bzip2Stream&) = delete;
    Bzip2Stream& operator=(const Bzip2Stream&) = delete;

    DecodeState decode(TextBatch& batch) override;

private:
    void addTo(TextBatch& batch, std::size_t produced);

    std::shared_ptr<const ReceivedBody> m_body;
    std::size_t m_position = 0;
    std::size_t m_sizeLeftOut;
    bz_stream m_stream{};
    bool m_isReady;
};
