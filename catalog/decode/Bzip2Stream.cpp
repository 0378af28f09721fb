#include "catalog/decode/Bzip2Stream.h"

#include "catalog/decode/LibraryInput.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// Bytes, for some milliseconds of work.
constexpr std::size_t inputAtOnce = 16384;

} // namespace

Bzip2Stream::Bzip2Stream(std::shared_ptr<const ReceivedBody> body, std::size_t sizeLeftOut)
    : m_body(std::move(body))
    , m_sizeLeftOut(sizeLeftOut)
    , m_isReady(BZ2_bzDecompressInit(&m_stream, 0, 0) == BZ_OK)
{
}

Bzip2Stream::~Bzip2Stream()
{
    if (m_isReady)
        BZ2_bzDecompressEnd(&m_stream);
}

// It is called once more when the bytes have run out: a block that has been read may not have been written yet.
DecodeState Bzip2Stream::decode(TextBatch& batch)
{
    if (!m_isReady)
        return DecodeState::Broken;
    const ReceivedBody::Part part = m_body->from(m_position);
    const std::string_view input = part.bytes.substr(0, inputAtOnce);
    m_stream.next_in = inputOf(input);
    m_stream.avail_in = static_cast<unsigned>(input.size());
    m_stream.next_out = batch.space();
    m_stream.avail_out = static_cast<unsigned>(batch.spaceSize());
    const int result = BZ2_bzDecompress(&m_stream);
    const std::size_t produced = batch.spaceSize() - m_stream.avail_out;
    m_position += input.size() - m_stream.avail_in;
    addTo(batch, produced);
    if (result == BZ_STREAM_END)
        return DecodeState::Complete;
    if (result == BZ_OK && input.empty() && produced == 0)
        return part.isEnd ? DecodeState::Broken : DecodeState::Waiting;
    return result == BZ_OK ? DecodeState::Going : DecodeState::Broken;
}

void Bzip2Stream::addTo(TextBatch& batch, std::size_t produced)
{
    const std::size_t leftOut = std::min(produced, m_sizeLeftOut);
    m_sizeLeftOut -= leftOut;
    std::memmove(batch.space(), batch.space() + leftOut, produced - leftOut);
    batch.grow(produced - leftOut);
}
