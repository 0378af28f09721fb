#include "catalog/sources/SourceRequest.h"

http::Request sourceRequest(const http::Limits& limits)
{
    return { .url = {}, .userAgent = "Telesphoreo APT-HTTP/1.0.592", .limits = limits, .authorities = {} };
}

http::Request aimedAt(http::Request request, const QUrl& url)
{
    request.url = url.toEncoded(QUrl::RemoveFragment).toStdString();
    return request;
}
