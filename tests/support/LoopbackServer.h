#pragma once

#include "tests/support/LoopbackExchange.h"

#include <QString>
#include <QThread>

#include <map>
#include <mutex>
#include <vector>

// A small HTTP/1.1 server on 127.0.0.1 and a free port, which can also misbehave in every way a server can.
// It runs on a thread of its own, so that both event-driven and blocking clients can be tested; its members may be
// called from any thread. Whatever has no reply set is answered with 404.
class LoopbackServer : private LoopbackAnswers
{
public:
    using Headers = LoopbackHeaders;
    using Ending = LoopbackEnding;
    using Timing = LoopbackTiming;
    using Reply = LoopbackReply;
    using Request = LoopbackRequest;

    LoopbackServer();
    ~LoopbackServer() override;
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
    class Listener;

    Reply takeRequest(const Request& request) override;
    Reply replyFor(const QByteArray& path) const override;
    void countSent(qint64 bytes) override;

    mutable std::mutex m_mutex;
    std::map<QByteArray, Reply> m_replies;
    std::vector<Request> m_requests;
    qint64 m_bytesSent = 0;

    quint16 m_port = 0;
    QThread m_thread;
    // Lives on the thread and is deleted there.
    Listener* m_listener = nullptr;
};
