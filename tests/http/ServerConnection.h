#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

struct ssl_st;

// The server's end of one connection, for the script that answers on it. Blocks; whoever stops the server ends the
// waiting.
class ServerConnection
{
public:
    using Heard = std::function<void(const std::string& head)>;

    // Takes the socket and the TLS (null for none) over. Heard is called with each head that is read.
    ServerConnection(int socket, ssl_st* tls, Heard heard);
    ~ServerConnection();
    ServerConnection(const ServerConnection&) = delete;
    ServerConnection& operator=(const ServerConnection&) = delete;

    // False when TLS does not come about; the client's reasons are its own.
    bool shakeHands();
    // Which protocol TLS agreed on; empty for none.
    std::string protocol() const;

    // With the blank line at its end; empty when the client has left.
    std::string readHead();
    // For scripts that read in other ways: this was a head.
    void remember(const std::string& head) { m_heard(head); }
    // Exactly so many bytes, or fewer when the client has left.
    std::string read(std::size_t length);

    // False when the client has left.
    bool send(std::string_view bytes);
    // One byte after the other with a pause before each.
    bool drip(std::string_view bytes, std::chrono::milliseconds pause);

    // Until the client has left or the server is stopped.
    void waitForEnd();
    // The client meets an error in place of the end.
    void reset();

    // Says that nothing more comes, as TLS asks for; without this the end of the connection proves nothing.
    void endTls();
    // Ends the connection in an orderly way.
    void close();
    // From any thread: whatever waits here ends.
    void stop();

private:
    bool fill();

    std::mutex m_mutex;
    // -1 once closed; changed under the mutex.
    int m_socket;
    ssl_st* m_tls;
    Heard m_heard;
    std::string m_received;
};
