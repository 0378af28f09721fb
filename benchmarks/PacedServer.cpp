#include "benchmarks/PacedServer.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

// As much as a fast network brings in one go.
constexpr qsizetype pieceSize = 16384;

bool sendAll(int connection, const char* bytes, qsizetype size)
{
    while (size > 0) {
        const ssize_t sent = send(connection, bytes, static_cast<std::size_t>(size), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes += sent;
        size -= sent;
    }
    return true;
}

// The path of the request; empty when the connection ended before.
QByteArray readPath(int connection)
{
    QByteArray request;
    std::array<char, 4096> piece{};
    while (!request.contains("\r\n\r\n")) {
        const ssize_t size = recv(connection, piece.data(), piece.size(), 0);
        if (size <= 0)
            return {};
        request.append(piece.data(), size);
    }
    return request.split(' ').value(1);
}

} // namespace

PacedServer::PacedServer(std::map<QByteArray, QByteArray> bodies, double rate)
    : m_bodies(std::move(bodies))
    , m_rate(rate)
    , m_listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(m_listener, generic, size) != 0 || listen(m_listener, 8) != 0
        || getsockname(m_listener, generic, &size) != 0)
        std::abort();
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { serve(); });
}

PacedServer::~PacedServer()
{
    shutdown(m_listener, SHUT_RDWR);
    m_thread.join();
    close(m_listener);
}

void PacedServer::serve()
{
    for (int connection = accept(m_listener, nullptr, nullptr); connection >= 0;
         connection = accept(m_listener, nullptr, nullptr)) {
        answer(connection);
        close(connection);
    }
}

void PacedServer::answer(int connection) const
{
    const auto found = m_bodies.find(readPath(connection));
    const bool isThere = found != m_bodies.end();
    const QByteArray body = isThere ? found->second : QByteArray("not here");
    const QByteArray head = QByteArray("HTTP/1.1 ") + (isThere ? "200 OK" : "404 Not Found")
        + "\r\nConnection: close\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n";
    if (sendAll(connection, head.data(), head.size()))
        sendPaced(connection, body);
}

void PacedServer::sendPaced(int connection, const QByteArray& bytes) const
{
    const auto begin = Clock::now();
    for (qsizetype at = 0; at < bytes.size(); at += pieceSize) {
        const qsizetype size = std::min(pieceSize, bytes.size() - at);
        if (m_rate > 0)
            std::this_thread::sleep_until(begin
                + std::chrono::duration_cast<Clock::duration>(
                    std::chrono::duration<double>(static_cast<double>(at + size) / m_rate)));
        if (!sendAll(connection, bytes.data() + at, size))
            return;
    }
}
