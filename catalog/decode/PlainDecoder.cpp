#include "catalog/decode/PlainDecoder.h"

#include <utility>

PlainDecoder::PlainDecoder(std::shared_ptr<const ReceivedBody> body)
    : m_body(std::move(body))
{
}

DecodeState PlainDecoder::decode(TextBatch& batch)
{
    const ReceivedBody::Part part = m_body->from(m_position);
    if (part.bytes.empty())
        return part.isEnd ? DecodeState::Complete : DecodeState::Waiting;
    m_position += batch.append(part.bytes);
    return DecodeState::Going;
}
