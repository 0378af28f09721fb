#pragma once

#include <optional>
#include <string>

namespace http {

// The URL as it is asked for, without user and password; none unless it is a sound one of http or https.
std::optional<std::string> webAddress(const std::string& url);

// Where a Location met at that address leads on to: it may be relative and hold blanks. None when it may not be
// followed: to anything but http and https, and from https to http.
std::optional<std::string> redirectTarget(const std::string& from, const std::string& location);

} // namespace http
