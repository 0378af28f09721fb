#include "tests/support/LoopbackServer.h"

#include "tests/support/LoopbackConnection.h"

#include <QFile>
#include <QTcpServer>

#include <algorithm>

// The listening half, on the server's own thread.
class LoopbackServer::Listener : public QObject
{
public:
    explicit Listener(LoopbackServer& server)
        : m_server(server)
    {
    }

    quint16 listen()
    {
        connect(&m_listening, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = m_listening.nextPendingConnection())
                new LoopbackConnection(m_server, socket, this);
        });
        m_listening.listen(QHostAddress::LocalHost, 0);
        return m_listening.serverPort();
    }

    void release(const QByteArray& path)
    {
        for (LoopbackConnection* connection : findChildren<LoopbackConnection*>())
            connection->release(path);
    }

private:
    LoopbackServer& m_server;
    QTcpServer m_listening{ this };
};

QByteArray LoopbackRequest::header(const QByteArray& name) const
{
    const auto found = std::find_if(headers.begin(), headers.end(),
        [&](const auto& header) { return header.first.compare(name, Qt::CaseInsensitive) == 0; });
    return found == headers.end() ? QByteArray() : found->second;
}

LoopbackServer::LoopbackServer()
    : m_listener(new Listener(*this))
{
    m_listener->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_listener, &QObject::deleteLater);
    m_thread.start();
    QMetaObject::invokeMethod(
        m_listener, [this] { m_port = m_listener->listen(); }, Qt::BlockingQueuedConnection);
}

LoopbackServer::~LoopbackServer()
{
    m_thread.quit();
    m_thread.wait();
}

QString LoopbackServer::url(const QString& path) const
{
    return QStringLiteral("http://127.0.0.1:") + QString::number(m_port) + path;
}

void LoopbackServer::serve(const QByteArray& path, const QByteArray& body)
{
    Reply reply;
    reply.body = body;
    setReply(path, reply);
}

void LoopbackServer::redirect(const QByteArray& path, const QByteArray& target, int status)
{
    Reply reply;
    reply.status = status;
    reply.headers = { { "Location", target } };
    setReply(path, reply);
}

void LoopbackServer::setReply(const QByteArray& path, const Reply& reply)
{
    const std::lock_guard lock(m_mutex);
    m_replies[path] = reply;
}

void LoopbackServer::release(const QByteArray& path)
{
    {
        const std::lock_guard lock(m_mutex);
        m_replies[path].timing = Timing::AtOnce;
    }
    QMetaObject::invokeMethod(
        m_listener, [this, path] { m_listener->release(path); }, Qt::QueuedConnection);
}

std::vector<LoopbackServer::Request> LoopbackServer::requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

std::vector<QByteArray> LoopbackServer::requestedPaths() const
{
    const std::lock_guard lock(m_mutex);
    std::vector<QByteArray> paths;
    for (const Request& request : m_requests)
        paths.push_back(request.path);
    return paths;
}

qint64 LoopbackServer::mostHeldUnread()
{
    constexpr qint64 InTheClient = qint64(8) * 1024 * 1024;
    qint64 held = InTheClient;
    for (const auto* name : { "/proc/sys/net/ipv4/tcp_rmem", "/proc/sys/net/ipv4/tcp_wmem" }) {
        QFile buffers(QString::fromLatin1(name));
        // The least, the usual and the largest size.
        if (buffers.open(QIODevice::ReadOnly))
            held += buffers.readAll().simplified().split(' ').last().toLongLong();
    }
    return held;
}

qint64 LoopbackServer::bytesSent() const
{
    const std::lock_guard lock(m_mutex);
    return m_bytesSent;
}

LoopbackServer::Reply LoopbackServer::takeRequest(const Request& request)
{
    const std::lock_guard lock(m_mutex);
    m_requests.push_back(request);
    const auto found = m_replies.find(request.path);
    Reply notFound;
    notFound.status = 404;
    notFound.body = "not found";
    return found == m_replies.end() ? notFound : found->second;
}

LoopbackServer::Reply LoopbackServer::replyFor(const QByteArray& path) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_replies.find(path);
    return found == m_replies.end() ? Reply() : found->second;
}

void LoopbackServer::countSent(qint64 bytes)
{
    const std::lock_guard lock(m_mutex);
    m_bytesSent += bytes;
}
