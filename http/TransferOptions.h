#pragma once

#include "http/CurlLibrary.h"
#include "http/request/Request.h"

#include <memory>
#include <string>

namespace http {

using MultiHandle = std::unique_ptr<CURLM, decltype(&curl_multi_cleanup)>;
using EasyHandle = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using HeaderLines = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

MultiHandle makeMultiHandle();

// What every request of the tree has in common: how it asks, whom it trusts, what it never does.
EasyHandle makeHandle(const Request& request);

// Whether a connection that was there before may serve the address, and this one be kept.
//
// A server may close a kept connection just as the next request goes out, and then nobody knows whether it saw the
// request. Since nothing is asked twice, that is a failure. A plain connection costs one round trip, so each request
// has its own; TLS costs two or three more, so secure ones are kept, for as short a time as the names of one source
// need.
void chooseConnection(CURL* handle, const std::string& address);

// The lines that take out what the library would add to Host and User-Agent; null when the request lets it add them.
HeaderLines headerLines(const Request& request);

} // namespace http
