#pragma once

#include "ServerConnection.h"
#include "TlsIdentity.h"

#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// A server on 127.0.0.1 and a free port. Each connection runs the script on a thread of its own; the connection is
// closed when the script ends. Stops everything when it goes.
class ScriptedServer
{
public:
    using Script = std::function<void(ServerConnection&)>;

    // With an identity it speaks TLS, and as what; it must outlive this.
    explicit ScriptedServer(Script script, const TlsIdentity* identity = nullptr);
    ~ScriptedServer();
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    // Answers one request with these bytes and closes.
    static Script answer(std::string bytes);

    int port() const { return m_port; }
    // "http://127.0.0.1:PORT" or "https://...", then the path.
    std::string url(const std::string& path = "/") const;

    // Whole heads as scripts read them, in the order in which they came.
    std::vector<std::string> requests() const;
    int connectionCount() const;

private:
    struct Running
    {
        std::shared_ptr<ServerConnection> connection;
        std::jthread thread;
    };

    void accept();
    void serve(int socket);

    Script m_script;
    const TlsIdentity* m_identity;
    int m_listening = -1;
    int m_port = 0;
    mutable std::mutex m_mutex;
    std::list<Running> m_running;
    std::vector<std::string> m_requests;
    std::jthread m_acceptor;
};
