#pragma once

#include "tests/http/TlsIdentity.h"

#include <sys/types.h>

#include <filesystem>
#include <future>
#include <string>
#include <thread>
#include <vector>

// nghttpd, a full HTTP/2 server as a program of its own, on a port of this machine, serving a directory of its own.
class Http2Program
{
public:
    // Returns once it listens; throws when it does not come to that.
    Http2Program();
    ~Http2Program();
    Http2Program(const Http2Program&) = delete;
    Http2Program& operator=(const Http2Program&) = delete;

    const TlsIdentity& identity() const { return m_identity; }
    std::string host() const { return "127.0.0.1:" + std::to_string(m_port); }
    std::string url(const std::string& name) const { return "https://" + host() + "/" + name; }
    // A file of so many zeros.
    void serve(const std::string& name, std::uintmax_t size) const;
    // Ends the server; the headers of all requests that it saw, each as "name: value".
    std::vector<std::string> requestHeaders();

private:
    bool start();
    void end();
    void listen(int output, std::promise<bool> hasStarted);

    TlsIdentity m_identity{ { .protocols = TlsCertificate::Protocols::Http2 } };
    std::filesystem::path m_directory;
    int m_port = 0;
    pid_t m_process = -1;
    // Reads all that the server prints, so that it never waits for a reader.
    std::thread m_listener;
    std::vector<std::string> m_headers;
};
