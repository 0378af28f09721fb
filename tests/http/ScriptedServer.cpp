#include "ScriptedServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <utility>

namespace {

sockaddr_in loopback()
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

} // namespace

ScriptedServer::ScriptedServer(Script script, const TlsIdentity* identity)
    : m_script(std::move(script))
    , m_identity(identity)
    , m_listening(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    constexpr int mostWaiting = 1024;
    sockaddr_in address = loopback();
    socklen_t length = sizeof address;
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    if (bind(m_listening, plain, length) != 0 || listen(m_listening, mostWaiting) != 0
        || getsockname(m_listening, plain, &length) != 0)
        throw std::runtime_error("no port to listen on");
    m_port = ntohs(address.sin_port);
    m_acceptor = std::jthread([this] { accept(); });
}

ScriptedServer::~ScriptedServer()
{
    shutdown(m_listening, SHUT_RDWR);
    m_acceptor.join();
    for (Running& running : m_running)
        running.connection->stop();
    m_running.clear();
    close(m_listening);
}

ScriptedServer::Script ScriptedServer::answer(std::string bytes)
{
    return [bytes = std::move(bytes)](ServerConnection& connection) {
        connection.readHead();
        connection.send(bytes);
    };
}

std::string ScriptedServer::url(const std::string& path) const
{
    return std::string(m_identity != nullptr ? "https" : "http") + "://127.0.0.1:" + std::to_string(m_port) + path;
}

std::vector<std::string> ScriptedServer::requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

int ScriptedServer::connectionCount() const
{
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(m_running.size());
}

void ScriptedServer::accept()
{
    // This thread and those it makes write to clients that leave, and TLS knows no other way to be told.
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
    for (int socket = -1; (socket = accept4(m_listening, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;)
        serve(socket);
}

void ScriptedServer::serve(int socket)
{
    const auto remember = [this](const std::string& head) {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back(head);
    };
    ssl_st* const tls = m_identity != nullptr ? m_identity->newConnection() : nullptr;
    auto connection = std::make_shared<ServerConnection>(socket, tls, remember);
    const std::lock_guard lock(m_mutex);
    m_running.push_back({ connection, std::jthread([this, connection] {
                             if (connection->shakeHands())
                                 m_script(*connection);
                             connection->close();
                         }) });
}
