#include "tests/catalog/decode/DrivenDecoder.h"

#include "catalog/decode/DecoderKinds.h"
#include "catalog/text/TextDecoding.h"

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace {

// Told by a worker that the decoder can go on.
class Resumption
{
public:
    void announce()
    {
        const std::lock_guard lock(m_mutex);
        m_isAnnounced = true;
        m_hasChanged.notify_one();
    }

    void await()
    {
        std::unique_lock lock(m_mutex);
        m_hasChanged.wait(lock, [this] { return m_isAnnounced; });
        m_isAnnounced = false;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_hasChanged;
    bool m_isAnnounced = false;
};

// Until the decoder waits or ends.
void decodeMore(IndexDecoder& decoder, TextBatch& batch, Decoded& decoded)
{
    decoded.state = DecodeState::Going;
    while (decoded.state == DecodeState::Going) {
        decoded.state = decoder.decode(batch);
        decoded.steps += decoded.state == DecodeState::Waiting ? 0 : 1;
        decoded.text.append(batch.text().data(), static_cast<qsizetype>(batch.text().size()));
        batch.clear();
    }
}

} // namespace

Decoded decodeInPieces(const QByteArray& body, Compression compression, const PieceSize& pieceSize)
{
    static Workers workers;
    const auto received = std::make_shared<ReceivedBody>();
    const auto resumption = std::make_shared<Resumption>();
    const auto decoder = makeDecoder(compression, { received, workers, {}, [resumption] { resumption->announce(); } });
    TextBatch batch;
    Decoded decoded{ DecodeState::Waiting, {} };
    for (std::string_view rest = viewOf(body); !rest.empty() && decoded.state == DecodeState::Waiting;) {
        const std::string_view piece = rest.substr(0, static_cast<std::size_t>(std::max<qsizetype>(1, pieceSize())));
        received->append(piece);
        rest.remove_prefix(piece.size());
        decodeMore(*decoder, batch, decoded);
    }
    received->finish();
    if (decoded.state == DecodeState::Waiting)
        decodeMore(*decoder, batch, decoded);
    while (decoded.state == DecodeState::Waiting) {
        resumption->await();
        decodeMore(*decoder, batch, decoded);
    }
    return decoded;
}

Decoded decodeWhole(const QByteArray& body, Compression compression)
{
    return decodeInPieces(body, compression, [&body] { return body.size(); });
}
