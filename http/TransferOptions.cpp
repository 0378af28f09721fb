#include "http/TransferOptions.h"

#include <new>

namespace http {

namespace {

// The library's own pieces for receivers have 16 KiB; a larger buffer spares system calls on the way to them, and is
// held once for each transfer that runs.
constexpr long bufferSize = 64L * 1024;

// Seconds. The names of one source are tried within milliseconds of each other, and servers keep a connection that does
// nothing for 5 s or longer: after less than that it is unlikely to be closed just as the request goes out.
constexpr long longestIdleConnection = 3;

void initialiseOnce()
{
    static const CURLcode initialised = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (initialised != CURLE_OK)
        throw std::bad_alloc();
}

void setManners(CURL* handle)
{
    // What the process does about signals is left alone, for its children inherit that. libcurl writes to sockets so
    // that one that broke raises none.
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    // A name that is being looked up is left to its thread when the transfer is dropped.
    curl_easy_setopt(handle, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(handle, CURLOPT_BUFFERSIZE, bufferSize);
    curl_easy_setopt(handle, CURLOPT_MAXAGE_CONN, longestIdleConnection);
    curl_easy_setopt(handle, CURLOPT_NETRC, CURL_NETRC_IGNORED);
}

void setProtocol(CURL* handle)
{
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_2TLS);
    // Whether a redirect may be followed is decided here in the tree.
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 0L);
    curl_easy_setopt(handle, CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(handle, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    curl_easy_setopt(handle, CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
}

void setRequest(CURL* handle, const Request& request)
{
    if (request.userAgent)
        curl_easy_setopt(handle, CURLOPT_USERAGENT, request.userAgent->c_str());
    if (!request.authorities.empty()) {
        curl_easy_setopt(handle, CURLOPT_CAINFO, request.authorities.c_str());
        curl_easy_setopt(handle, CURLOPT_CAPATH, nullptr);
    }
    // The library shares this out among the addresses of a name, so that one that does not answer leaves time for
    // others.
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(request.limits.inactivity.count()));
}

} // namespace

MultiHandle makeMultiHandle()
{
    initialiseOnce();
    MultiHandle handle(curl_multi_init(), curl_multi_cleanup);
    if (!handle)
        throw std::bad_alloc();
    return handle;
}

EasyHandle makeHandle(const Request& request)
{
    initialiseOnce();
    EasyHandle handle(curl_easy_init(), curl_easy_cleanup);
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
    curl_easy_setopt(handle, CURLOPT_FRESH_CONNECT, isPlain);
    curl_easy_setopt(handle, CURLOPT_FORBID_REUSE, isPlain);
}

HeaderLines headerLines(const Request& request)
{
    curl_slist* lines = nullptr;
    if (request.userAgent) {
        for (const char* line : { "Accept:", "Accept-Encoding:", "Proxy-Connection:" })
            lines = curl_slist_append(lines, line);
    }
    return { lines, curl_slist_free_all };
}

} // namespace http
