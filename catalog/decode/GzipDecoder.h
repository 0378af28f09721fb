#pragma once

#include "catalog/decode/IndexDecoder.h"

#include <zlib.h>

// A gzip or a zlib stream; the header tells which.
class GzipDecoder : public IndexDecoder
{
public:
    explicit GzipDecoder(std::shared_ptr<const ReceivedBody> body);
    ~GzipDecoder() override;
    GzipDecoder(const GzipDecoder&) = delete;
    GzipDecoder& operator=(const GzipDecoder&) = delete;

    DecodeState decode(TextBatch& batch) override;

private:
    std::shared_ptr<const ReceivedBody> m_body;
    std::size_t m_position = 0;
    z_stream m_stream{};
    bool m_isReady;
};
