#pragma once

#include <QByteArray>
#include <QString>
#include <QThread>

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

class LoopbackConnection;

// A small HTTP/1.1 server on 127.0.0.1 and a free port, which can also misbehave in every way a server can.
// It runs on a thread of its own, so that both event-driven and blocking clients can be tested; its members may be
// called from any thread. Whatever has no reply set is answered with 404.
class LoopbackServer
{
public:
    using Headers = std::vector<std::pair<QByteArray, QByteArray>>;

    // What happens once the bytes of a reply are out.
    enum class Ending {
        // The connection stays open for the next request.
        KeepAlive,
        Close,
        // The connection is reset, so that the client meets an error.
        Reset,
        // Nothing more is sent and nothing closed.
        Stall,
    };

    enum class Timing {
        AtOnce,
        // Only when release() is called for the path.
        Held,
    };

    struct Reply
    {
        int status = 200;
        QByteArray body;
        Headers headers;
        // Told as the length in place of the body's own; a negative one leaves the header out (the end then is the
        // close).
        std::optional<qint64> declaredLength;
        // So many bytes of filler follow the body. They are made as they are sent: memory does not grow with them.
        qint64 fillerSize = 0;
        // When set, these bytes are sent in place of any HTTP.
        QByteArray garbage;
        Ending ending = Ending::KeepAlive;
        Timing timing = Timing::AtOnce;
    };

    struct Request
    {
        QByteArray method;
        // With the query, as it came.
        QByteArray path;
        Headers headers;

        // Null when there is none; names are compared without their case.
        QByteArray header(const QByteArray& name) const;
    };

    LoopbackServer();
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    quint16 port() const { return m_port; }
    // "http://127.0.0.1:PORT", then the path.
    QString url(const QString& path = QString()) const;

    void serve(const QByteArray& path, const QByteArray& body);
    void redirect(const QByteArray& path, const QByteArray& target, int status = 302);
    void setReply(const QByteArray& path, const Reply& reply);
    // Sends the replies held back for the path, now and from now on.
    void release(const QByteArray& path);

    // In the order in which they came.
    std::vector<Request> requests() const;
    std::vector<QByteArray> requestedPaths() const;
    // Bytes of replies handed to the system so far.
    qint64 bytesSent() const;
    // What this machine may hold of one reply that nobody reads: the largest buffers of a connection's two ends, and
    // what a client may have taken from them by then.
    static qint64 mostHeldUnread();

private:
    friend class LoopbackConnection;
    class Listener;

    Reply takeRequest(const Request& request);
    Reply replyFor(const QByteArray& path) const;
    void countSent(qint64 bytes);

    mutable std::mutex m_mutex;
    std::map<QByteArray, Reply> m_replies;
    std::vector<Request> m_requests;
    qint64 m_bytesSent = 0;

    quint16 m_port = 0;
    QThread m_thread;
    // Lives on the thread and is deleted there.
    Listener* m_listener = nullptr;
};
