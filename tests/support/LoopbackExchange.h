#pragma once

#include <QByteArray>

#include <optional>
#include <utility>
#include <vector>

// What a LoopbackServer is asked and what it answers.

using LoopbackHeaders = std::vector<std::pair<QByteArray, QByteArray>>;

// What happens once the bytes of a reply are out.
enum class LoopbackEnding {
    // The connection stays open for the next request.
    KeepAlive,
    Close,
    // The connection is reset, so that the client meets an error.
    Reset,
    // Nothing more is sent and nothing closed.
    Stall,
};

enum class LoopbackTiming {
    AtOnce,
    // Only when release() is called for the path.
    Held,
};

struct LoopbackReply
{
    int status = 200;
    QByteArray body;
    LoopbackHeaders headers;
    // Told as the length in place of the body's own; a negative one leaves the header out (the end then is the
    // close).
    std::optional<qint64> declaredLength;
    // So many bytes of filler follow the body. They are made as they are sent: memory does not grow with them.
    qint64 fillerSize = 0;
    // When set, these bytes are sent in place of any HTTP.
    QByteArray garbage;
    LoopbackEnding ending = LoopbackEnding::KeepAlive;
    LoopbackTiming timing = LoopbackTiming::AtOnce;
};

struct LoopbackRequest
{
    QByteArray method;
    // With the query, as it came.
    QByteArray path;
    LoopbackHeaders headers;

    // Null when there is none; names are compared without their case.
    QByteArray header(const QByteArray& name) const;
};

// What a connection asks of its server; from the server's thread.
class LoopbackAnswers
{
public:
    virtual ~LoopbackAnswers() = default;

    // Notes the request and tells the reply to it.
    virtual LoopbackReply takeRequest(const LoopbackRequest& request) = 0;
    virtual LoopbackReply replyFor(const QByteArray& path) const = 0;
    virtual void countSent(qint64 bytes) = 0;
};
