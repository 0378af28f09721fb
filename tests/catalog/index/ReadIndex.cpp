#include "tests/catalog/index/ReadIndex.h"

#include "catalog/text/TextDecoding.h"

#include <algorithm>
#include <future>

ParsedIndex readIndexInPieces(const IndexJob& job, const QByteArray& body, qsizetype pieceSize, Workers& workers)
{
    // Shared, because the worker may still be about to leave it when the index is here.
    const auto promise = std::make_shared<std::promise<ParsedIndex>>();
    IndexReading reading(job, workers, {}, [promise](ParsedIndex index) { promise->set_value(std::move(index)); });
    for (qsizetype at = 0; at < body.size(); at += pieceSize) {
        const qsizetype size = std::min(pieceSize, body.size() - at);
        reading.receive(viewOf(body).substr(static_cast<std::size_t>(at), static_cast<std::size_t>(size)));
    }
    reading.finish();
    return promise->get_future().get();
}

ParsedIndex readIndex(const IndexJob& job, const QByteArray& body, Workers& workers)
{
    constexpr qsizetype blockOfReceivedBody = 65536;
    return readIndexInPieces(job, body, blockOfReceivedBody, workers);
}

ParsedIndex readIndex(const IndexJob& job, const QByteArray& body)
{
    return readIndex(job, body, sharedWorkers());
}

Workers& sharedWorkers()
{
    static Workers workers;
    return workers;
}
