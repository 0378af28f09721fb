#pragma once

#include <curl/curl.h>

#include <chrono>
#include <optional>
#include <span>

namespace http {

// When the last byte of any kind came for the exchange of the handle: the library tells of whole header lines and of
// bytes of the body only, and a server may take its time over a line. The sockets are those opened for the handle,
// closed ones among them. None when it cannot be known: on a connection that was there before or is shared with others
// (HTTP/2).
std::optional<std::chrono::steady_clock::time_point> lastByteOf(
    CURL* handle, std::span<const curl_socket_t> sockets, std::chrono::steady_clock::time_point now);

} // namespace http
