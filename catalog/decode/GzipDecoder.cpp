#include "catalog/decode/GzipDecoder.h"

#include "catalog/decode/LibraryInput.h"

#include <utility>

namespace {

// 32 KiB of history, and recognise a gzip or a zlib header.
constexpr int inflateWindowBits = 15 + 32;

} // namespace

GzipDecoder::GzipDecoder(std::shared_ptr<const ReceivedBody> body)
    : m_body(std::move(body))
    , m_isReady(inflateInit2(&m_stream, inflateWindowBits) == Z_OK)
{
}

GzipDecoder::~GzipDecoder()
{
    if (m_isReady)
        inflateEnd(&m_stream);
}

// It is called once more when the bytes have run out: text that did not fit the last batch may be left inside.
DecodeState GzipDecoder::decode(TextBatch& batch)
{
    if (!m_isReady)
        return DecodeState::Broken;
    const ReceivedBody::Part part = m_body->from(m_position);
    m_stream.next_in = reinterpret_cast<Bytef*>(inputOf(part.bytes));
    m_stream.avail_in = static_cast<uInt>(part.bytes.size());
    m_stream.next_out = reinterpret_cast<Bytef*>(batch.space());
    m_stream.avail_out = static_cast<uInt>(batch.spaceSize());
    const int result = inflate(&m_stream, Z_NO_FLUSH);
    m_position += part.bytes.size() - m_stream.avail_in;
    batch.grow(batch.spaceSize() - m_stream.avail_out);
    if (result == Z_STREAM_END)
        return DecodeState::Complete;
    if (result == Z_BUF_ERROR && part.bytes.empty())
        return part.isEnd ? DecodeState::Broken : DecodeState::Waiting;
    return result == Z_OK ? DecodeState::Going : DecodeState::Broken;
}
