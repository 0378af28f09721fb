#include "tests/http/Http2Program.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace {

// Somebody else may take it until the server does.
int freePort()
{
    const int listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    const bool isBound = bind(listening, plain, length) == 0 && getsockname(listening, plain, &length) == 0;
    close(listening);
    return isBound ? ntohs(address.sin_port) : 0;
}

std::filesystem::path makeDirectory()
{
    std::string path = "/tmp/http2-server-XXXXXX";
    return mkdtemp(path.data());
}

} // namespace

Http2Program::Http2Program()
    : m_directory(makeDirectory())
{
    m_identity.write(m_directory / "key.pem", m_directory / "certificate.pem");
    constexpr int attempts = 5;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (start())
            return;
        end();
    }
    std::filesystem::remove_all(m_directory);
    throw std::runtime_error("nghttpd does not listen; is it installed?");
}

Http2Program::~Http2Program()
{
    end();
    std::filesystem::remove_all(m_directory);
}

bool Http2Program::start()
{
    m_port = freePort();
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return false;
    std::promise<bool> hasStarted;
    std::future<bool> started = hasStarted.get_future();
    m_listener = std::thread([this, output = ends[0], hasStarted = std::move(hasStarted)]() mutable {
        listen(output, std::move(hasStarted));
    });
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    const std::vector<std::string> words{ "nghttpd", "--verbose", "--address=127.0.0.1", "--htdocs", m_directory,
        std::to_string(m_port), m_directory / "key.pem", m_directory / "certificate.pem" };
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const int result = posix_spawnp(&m_process, "nghttpd", &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (result != 0)
        m_process = -1;
    return started.get();
}

// Until the server ends.
void Http2Program::listen(int output, std::promise<bool> hasStarted)
{
    const std::unique_ptr<std::FILE, decltype(&std::fclose)> file(fdopen(output, "r"), std::fclose);
    const std::string header = "recv (stream_id=";
    bool listens = false;
    char* line = nullptr;
    std::size_t size = 0;
    for (ssize_t length = 0; (length = getline(&line, &size, file.get())) > 0;) {
        const std::string text(line, static_cast<std::size_t>(length) - 1);
        if (!listens && text.find("listen 127.0.0.1") != std::string::npos) {
            listens = true;
            hasStarted.set_value(true);
        }
        if (text.find(header) != std::string::npos)
            m_headers.push_back(text.substr(text.find(") ", text.find(header)) + 2));
    }
    std::free(line);
    if (!listens)
        hasStarted.set_value(false);
}

void Http2Program::end()
{
    if (m_process > 0) {
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }
    m_process = -1;
    if (m_listener.joinable())
        m_listener.join();
}

void Http2Program::serve(const std::string& name, std::uintmax_t size) const
{
    const std::ofstream file(m_directory / name);
    std::filesystem::resize_file(m_directory / name, size);
}

std::vector<std::string> Http2Program::requestHeaders()
{
    end();
    return m_headers;
}
