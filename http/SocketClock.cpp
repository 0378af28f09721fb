#include "http/SocketClock.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <string_view>

namespace http {

namespace {

// Without TLS there is HTTP/2 never; with it, the answer's first line tells.
bool hasConnectionForItself(CURL* handle)
{
    const char* scheme = nullptr;
    curl_easy_getinfo(handle, CURLINFO_SCHEME, &scheme);
    if (scheme != nullptr && (std::string_view(scheme) == "HTTP" || std::string_view(scheme) == "http"))
        return true;
    long version = CURL_HTTP_VERSION_NONE;
    curl_easy_getinfo(handle, CURLINFO_HTTP_VERSION, &version);
    return version == CURL_HTTP_VERSION_1_0 || version == CURL_HTTP_VERSION_1_1;
}

} // namespace

std::optional<std::chrono::steady_clock::time_point> lastByteOf(CURL* handle, std::chrono::steady_clock::time_point now)
{
    curl_socket_t connection = CURL_SOCKET_BAD;
    if (!hasConnectionForItself(handle) || curl_easy_getinfo(handle, CURLINFO_ACTIVESOCKET, &connection) != CURLE_OK
        || connection == CURL_SOCKET_BAD)
        return std::nullopt;
    tcp_info info = {};
    socklen_t length = sizeof info;
    if (getsockopt(connection, IPPROTO_TCP, TCP_INFO, &info, &length) != 0)
        return std::nullopt;
    return now - std::chrono::milliseconds(info.tcpi_last_data_recv);
}

} // namespace http
