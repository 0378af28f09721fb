#include "http/WebAddress.h"

#include "http/CurlLibrary.h"

#include <memory>
#include <string_view>

namespace http {

namespace {

using ParsedURL = std::unique_ptr<CURLU, decltype(&curl_url_cleanup)>;

std::optional<std::string> partOf(CURLU* url, CURLUPart part)
{
    char* text = nullptr;
    if (curl().urlGet(url, part, &text, 0) != CURLUE_OK)
        return std::nullopt;
    std::string copy(text);
    curl().free(text);
    return copy;
}

bool isWeb(const std::optional<std::string>& scheme)
{
    return scheme == "http" || scheme == "https";
}

// Where the host is missing, the library takes the first name of the path for it.
bool namesHost(const std::string& url)
{
    constexpr std::string_view beforeHost = "://";
    const std::size_t found = url.find(beforeHost);
    return found != std::string::npos
        && url.find_first_of("/?#", found + beforeHost.size()) != found + beforeHost.size();
}

std::optional<std::string> withoutCredentials(CURLU* url)
{
    if (!isWeb(partOf(url, CURLUPART_SCHEME)))
        return std::nullopt;
    for (const CURLUPart secret : { CURLUPART_USER, CURLUPART_PASSWORD, CURLUPART_OPTIONS })
        curl().urlSet(url, secret, nullptr, 0);
    return partOf(url, CURLUPART_URL);
}

} // namespace

std::optional<std::string> webAddress(const std::string& url)
{
    const ParsedURL parsed(curl().url(), curl().urlCleanup);
    // The path stays as it is: a source may count on "//" or "/../" in its own.
    if (!namesHost(url) || curl().urlSet(parsed.get(), CURLUPART_URL, url.c_str(), CURLU_PATH_AS_IS) != CURLUE_OK)
        return std::nullopt;
    return withoutCredentials(parsed.get());
}

std::optional<std::string> redirectTarget(const std::string& from, const std::string& location)
{
    const ParsedURL parsed(curl().url(), curl().urlCleanup);
    // Servers are lax about blanks and letters beyond ASCII, so these are encoded here.
    constexpr unsigned int lax = CURLU_ALLOW_SPACE | CURLU_URLENCODE;
    if (curl().urlSet(parsed.get(), CURLUPART_URL, from.c_str(), CURLU_PATH_AS_IS) != CURLUE_OK)
        return std::nullopt;
    const bool wasSecure = partOf(parsed.get(), CURLUPART_SCHEME) == "https";
    if (curl().urlSet(parsed.get(), CURLUPART_URL, location.c_str(), lax) != CURLUE_OK)
        return std::nullopt;
    const bool isSecure = partOf(parsed.get(), CURLUPART_SCHEME) == "https";
    return wasSecure && !isSecure ? std::nullopt : withoutCredentials(parsed.get());
}

} // namespace http
