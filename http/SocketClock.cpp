#include "http/SocketClock.h"

#include "http/CurlLibrary.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <algorithm>
#include <string_view>

namespace http {

namespace {

// Without TLS there is HTTP/2 never; with it, the answer's first line tells.
bool hasConnectionForItself(CURL* handle)
{
    const char* scheme = nullptr;
    curl().easyGetInfo(handle, CURLINFO_SCHEME, &scheme);
    if (scheme != nullptr && (std::string_view(scheme) == "HTTP" || std::string_view(scheme) == "http"))
        return true;
    long version = CURL_HTTP_VERSION_NONE;
    curl().easyGetInfo(handle, CURLINFO_HTTP_VERSION, &version);
    return version == CURL_HTTP_VERSION_1_0 || version == CURL_HTTP_VERSION_1_1;
}

long localPortOf(curl_socket_t connection)
{
    sockaddr_storage address = {};
    socklen_t length = sizeof address;
    if (getsockname(connection, reinterpret_cast<sockaddr*>(&address), &length) != 0)
        return 0;
    if (address.ss_family == AF_INET)
        return ntohs(reinterpret_cast<const sockaddr_in&>(address).sin_port);
    return address.ss_family == AF_INET6 ? ntohs(reinterpret_cast<const sockaddr_in6&>(address).sin6_port) : 0;
}

// A number in the list may have been given to something else by now, so the connection is known by its port.
std::optional<curl_socket_t> connectionOf(CURL* handle, std::span<const curl_socket_t> sockets)
{
    long port = 0;
    curl().easyGetInfo(handle, CURLINFO_LOCAL_PORT, &port);
    const auto found = std::find_if(
        sockets.begin(), sockets.end(), [&](curl_socket_t one) { return port != 0 && localPortOf(one) == port; });
    return found == sockets.end() ? std::nullopt : std::optional(*found);
}

} // namespace

std::optional<std::chrono::steady_clock::time_point> lastByteOf(
    CURL* handle, std::span<const curl_socket_t> sockets, std::chrono::steady_clock::time_point now)
{
    const auto connection = hasConnectionForItself(handle) ? connectionOf(handle, sockets) : std::nullopt;
    tcp_info info = {};
    socklen_t length = sizeof info;
    if (!connection || getsockopt(*connection, IPPROTO_TCP, TCP_INFO, &info, &length) != 0)
        return std::nullopt;
    return now - std::chrono::milliseconds(info.tcpi_last_data_recv);
}

} // namespace http
