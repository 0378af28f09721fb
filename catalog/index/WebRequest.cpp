#include "catalog/index/WebRequest.h"

#include <QNetworkReply>

namespace {

bool mayLead(const QUrl& from, const QUrl& to)
{
    const bool isSecure = to.scheme() == QLatin1String("https");
    return to.isValid() && (isSecure || (to.scheme() == QLatin1String("http") && from.scheme() == to.scheme()));
}

} // namespace

bool isWebURL(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

QNetworkRequest webRequest(const QUrl& url, std::chrono::milliseconds inactivityTimeout)
{
    QNetworkRequest request(url);
    request.setRawHeader(QByteArrayLiteral("User-Agent"), QByteArrayLiteral("Telesphoreo APT-HTTP/1.0.592"));
    request.setTransferTimeout(static_cast<int>(inactivityTimeout.count()));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    return request;
}

int statusOf(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

QUrl redirectOf(const QNetworkReply& reply)
{
    const QUrl target = reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    const QUrl next = reply.url().resolved(target);
    return !target.isEmpty() && mayLead(reply.url(), next) ? next : QUrl();
}

// Qt takes a body that broke off for whole when it meets the end of the connection together with the last bytes, so the
// length is compared here too. The length that a server tells of a compressed transfer is not the body's.
bool hasWrongLength(const QNetworkReply& reply, qint64 received)
{
    const QVariant told = reply.header(QNetworkRequest::ContentLengthHeader);
    return told.isValid() && !reply.hasRawHeader("Content-Encoding") && received != told.toLongLong();
}
