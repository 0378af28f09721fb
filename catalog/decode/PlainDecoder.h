#pragma once

#include "catalog/decode/IndexDecoder.h"

// Text that is not compressed at all: any body is sound.
class PlainDecoder : public IndexDecoder
{
public:
    explicit PlainDecoder(std::shared_ptr<const ReceivedBody> body);

    DecodeState decode(TextBatch& batch) override;

private:
    std::shared_ptr<const ReceivedBody> m_body;
    std::size_t m_position = 0;
};
