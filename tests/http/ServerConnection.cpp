#include "ServerConnection.h"

#include <openssl/ssl.h>

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <thread>
#include <utility>

ServerConnection::ServerConnection(int socket, ssl_st* tls, Heard heard)
    : m_socket(socket)
    , m_tls(tls)
    , m_heard(std::move(heard))
{
}

ServerConnection::~ServerConnection()
{
    close();
    SSL_free(m_tls);
}

bool ServerConnection::shakeHands()
{
    return m_tls == nullptr || (SSL_set_fd(m_tls, m_socket) == 1 && SSL_accept(m_tls) == 1);
}

std::string ServerConnection::protocol() const
{
    const unsigned char* name = nullptr;
    unsigned int length = 0;
    if (m_tls != nullptr)
        SSL_get0_alpn_selected(m_tls, &name, &length);
    return { reinterpret_cast<const char*>(name), length };
}

std::string ServerConnection::readHead()
{
    std::size_t end = std::string::npos;
    while ((end = m_received.find("\r\n\r\n")) == std::string::npos) {
        if (!fill())
            return {};
    }
    std::string head = read(end + 4);
    m_heard(head);
    return head;
}

std::string ServerConnection::read(std::size_t length)
{
    while (m_received.size() < length && fill()) { }
    std::string taken = m_received.substr(0, length);
    m_received.erase(0, length);
    return taken;
}

bool ServerConnection::send(std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto sent = m_tls != nullptr ? SSL_write(m_tls, bytes.data(), static_cast<int>(bytes.size()))
                                           : ::send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

bool ServerConnection::drip(std::string_view bytes, std::chrono::milliseconds pause)
{
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        std::this_thread::sleep_for(pause);
        if (!send(bytes.substr(index, 1)))
            return false;
    }
    return true;
}

void ServerConnection::waitForEnd()
{
    while (fill()) { }
}

void ServerConnection::reset()
{
    const linger atOnce = { .l_onoff = 1, .l_linger = 0 };
    setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
}

void ServerConnection::endTls()
{
    SSL_shutdown(m_tls);
}

void ServerConnection::close()
{
    const std::lock_guard lock(m_mutex);
    if (m_socket >= 0)
        ::close(std::exchange(m_socket, -1));
}

void ServerConnection::stop()
{
    const std::lock_guard lock(m_mutex);
    if (m_socket >= 0)
        shutdown(m_socket, SHUT_RDWR);
}

bool ServerConnection::fill()
{
    std::array<char, 4096> piece = {};
    const auto count = m_tls != nullptr ? SSL_read(m_tls, piece.data(), static_cast<int>(piece.size()))
                                        : recv(m_socket, piece.data(), piece.size(), 0);
    if (count <= 0)
        return false;
    m_received.append(piece.data(), static_cast<std::size_t>(count));
    return true;
}
