#include "http/TransferOptions.h"

#include "http/CurlLibrary.h"

#include <new>

namespace http {

namespace {

// The library's own pieces for receivers have 16 KiB; a larger buffer spares system calls on the way to them, and is
// held once for each transfer that runs.
constexpr long bufferSize = 64L * 1024;

// Seconds. The names of one source are tried within milliseconds of each other, and servers keep a connection that does
// nothing for 5 s or longer: after less than that it is unlikely to be closed just as the request goes out.
constexpr long longestIdleConnection = 3;

void setManners(CURL* handle)
{
    // What the process does about signals is left alone, for its children inherit that. libcurl writes to sockets so
    // that one that broke raises none.
    curl().easySetOption(handle, CURLOPT_NOSIGNAL, 1L);
    // A name that is being looked up is left to its thread when the transfer is dropped.
    curl().easySetOption(handle, CURLOPT_QUICK_EXIT, 1L);
    curl().easySetOption(handle, CURLOPT_BUFFERSIZE, bufferSize);
    curl().easySetOption(handle, CURLOPT_MAXAGE_CONN, longestIdleConnection);
    curl().easySetOption(handle, CURLOPT_NETRC, CURL_NETRC_IGNORED);
}

void setProtocol(CURL* handle)
{
    curl().easySetOption(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl().easySetOption(handle, CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_2TLS);
    // Whether a redirect may be followed is decided here in the tree.
    curl().easySetOption(handle, CURLOPT_FOLLOWLOCATION, 0L);
    curl().easySetOption(handle, CURLOPT_PATH_AS_IS, 1L);
    curl().easySetOption(handle, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    curl().easySetOption(handle, CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
}

void setRequest(CURL* handle, const Request& request)
{
    if (request.userAgent)
        curl().easySetOption(handle, CURLOPT_USERAGENT, request.userAgent->c_str());
    if (!request.authorities.empty()) {
        curl().easySetOption(handle, CURLOPT_CAINFO, request.authorities.c_str());
        curl().easySetOption(handle, CURLOPT_CAPATH, nullptr);
    }
    // The library shares this out among the addresses of a name, so that one that does not answer leaves time for
    // others.
    curl().easySetOption(handle, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(request.limits.inactivity.count()));
}

} // namespace

MultiHandle makeMultiHandle()
{
    MultiHandle handle(curl().multiInit(), curl().multiCleanup);
    if (!handle)
        throw std::bad_alloc();
    return handle;
}

EasyHandle makeHandle(const Request& request)
{
    EasyHandle handle(curl().easyInit(), curl().easyCleanup);
    if (!handle)
        throw std::bad_alloc();
    setManners(handle.get());
    setProtocol(handle.get());
    setRequest(handle.get(), request);
    return handle;
}

void chooseConnection(CURL* handle, const std::string& address)
{
    const long isPlain = address.starts_with("http://") ? 1 : 0;
    curl().easySetOption(handle, CURLOPT_FRESH_CONNECT, isPlain);
    curl().easySetOption(handle, CURLOPT_FORBID_REUSE, isPlain);
}

HeaderLines headerLines(const Request& request)
{
    curl_slist* lines = nullptr;
    if (request.userAgent) {
        for (const char* line : { "Accept:", "Accept-Encoding:", "Proxy-Connection:" })
            lines = curl().slistAppend(lines, line);
    }
    return { lines, curl().slistFreeAll };
}

} // namespace http
