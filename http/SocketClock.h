#pragma once

#include <curl/curl.h>

#include <chrono>
#include <optional>

namespace http {

// When the last byte of any kind came for the exchange of the handle: the library tells of whole header lines and of
// bytes of the body only, and a server may take its time over a line. None when that cannot be known, as on a
// connection that several exchanges share (HTTP/2).
std::optional<std::chrono::steady_clock::time_point> lastByteOf(
    CURL* handle, std::chrono::steady_clock::time_point now);

} // namespace http
