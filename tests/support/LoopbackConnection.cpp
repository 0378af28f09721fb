#include "tests/support/LoopbackConnection.h"

#include <algorithm>
#include <sys/socket.h>

namespace {

constexpr qsizetype largestHead = qsizetype(64) * 1024;
constexpr qint64 fillerStep = qint64(64) * 1024;
// How much may wait in the socket before more filler is made.
constexpr qint64 mostWaiting = qint64(256) * 1024;

LoopbackRequest parsedHead(const QByteArray& head)
{
    LoopbackRequest request;
    const QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> words = lines.first().trimmed().split(' ');
    request.method = words.value(0);
    request.path = words.value(1);
    for (const QByteArray& line : lines.mid(1)) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0)
            request.headers.emplace_back(line.left(colon).trimmed(), line.mid(colon + 1).trimmed());
    }
    return request;
}

QByteArray headOf(const LoopbackReply& reply)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + " Reply\r\n";
    for (const auto& [name, value] : reply.headers)
        head += name + ": " + value + "\r\n";
    const qint64 length = reply.declaredLength.value_or(reply.body.size() + reply.fillerSize);
    if (length >= 0)
        head += "Content-Length: " + QByteArray::number(length) + "\r\n";
    if (reply.ending != LoopbackEnding::KeepAlive)
        head += "Connection: close\r\n";
    return head + "\r\n";
}

// A socket closed with a lingering time of nothing sends a reset.
void reset(QTcpSocket& socket)
{
    const linger atOnce{ 1, 0 };
    ::setsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    socket.abort();
}

} // namespace

LoopbackConnection::LoopbackConnection(LoopbackAnswers& answers, QTcpSocket* socket, QObject* parent)
    : QObject(parent)
    , m_answers(answers)
    , m_socket(socket)
{
    m_socket->setParent(this);
    connect(m_socket, &QTcpSocket::readyRead, this, &LoopbackConnection::readRequests);
    connect(m_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    connect(m_socket, &QTcpSocket::bytesWritten, this, [this](qint64 bytes) {
        m_answers.countSent(bytes);
        writeFiller();
    });
}

void LoopbackConnection::release(const QByteArray& path)
{
    if (!m_isReplying || m_heldPath != path)
        return;
    m_heldPath.clear();
    begin(m_answers.replyFor(path));
}

void LoopbackConnection::readRequests()
{
    m_received += m_socket->readAll();
    const qsizetype end = m_received.indexOf("\r\n\r\n");
    if (m_received.size() > largestHead && end < 0)
        m_socket->abort();
    if (end < 0 || m_isReplying)
        return;
    const LoopbackRequest request = parsedHead(m_received.left(end));
    m_received.remove(0, end + 4);
    m_isReplying = true;
    const LoopbackReply reply = m_answers.takeRequest(request);
    if (reply.timing == LoopbackTiming::Held)
        m_heldPath = request.path;
    else
        begin(reply);
}

void LoopbackConnection::begin(const LoopbackReply& reply)
{
    m_ending = reply.ending;
    m_fillerLeft = reply.fillerSize;
    m_socket->write(reply.garbage.isNull() ? headOf(reply) + reply.body : reply.garbage);
    writeFiller();
}

void LoopbackConnection::writeFiller()
{
    if (!m_isReplying || !m_heldPath.isNull())
        return;
    while (m_fillerLeft > 0 && m_socket->bytesToWrite() < mostWaiting) {
        const qint64 step = std::min(m_fillerLeft, fillerStep);
        m_socket->write(QByteArray(static_cast<qsizetype>(step), 'x'));
        m_fillerLeft -= step;
    }
    if (m_fillerLeft == 0 && m_socket->bytesToWrite() == 0)
        end();
}

void LoopbackConnection::end()
{
    switch (m_ending) {
    case LoopbackEnding::KeepAlive:
        m_isReplying = false;
        readRequests();
        break;
    case LoopbackEnding::Close:
        m_socket->disconnectFromHost();
        break;
    case LoopbackEnding::Reset:
        reset(*m_socket);
        break;
    case LoopbackEnding::Stall:
        break;
    }
}
