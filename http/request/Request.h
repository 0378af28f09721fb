#pragma once

#include "http/request/Limits.h"

#include <optional>
#include <string>

namespace http {

// One GET. It is sent once: nothing is asked again after a failure, nothing comes from a cache, and no cookie and no
// credentials travel with it. Redirects lead to http and https only, never from https to http, and 20 times at most.
struct Request
{
    // http or https, encoded as it goes on the wire; whatever it says of a user and a password is left out.
    std::string url;

    // When set, Host and User-Agent are the only headers of the request. Otherwise there are those that the library
    // sends by itself, and no User-Agent. An encoding (gzip, deflate) that a server applies is undone either way.
    std::optional<std::string> userAgent;

    Limits limits;

    // A file of certificates (PEM) that are trusted in place of the system's; empty for the system's.
    std::string authorities;
};

} // namespace http
