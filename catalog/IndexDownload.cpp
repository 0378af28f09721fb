#include "IndexDownload.h"

#include "RepositoryURL.h"

#include <QNetworkReply>
#include <QNetworkRequest>

namespace {

const QByteArray userAgent = QByteArrayLiteral("Telesphoreo APT-HTTP/1.0.592");

constexpr int statusOK = 200;

// What the network may hold back before it is read here; without a bound it would receive far beyond the one for
// bodies.
constexpr qint64 readBufferSize = qint64(1024) * 1024;

QNetworkRequest requestFor(const RepositoryURL& url, std::chrono::milliseconds inactivity)
{
    QNetworkRequest request(url.url());
    request.setRawHeader(QByteArrayLiteral("User-Agent"), userAgent);
    request.setTransferTimeout(static_cast<int>(inactivity.count()));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    return request;
}

bool isWeb(const RepositoryURL& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

int statusOf(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

} // namespace

IndexDownload::IndexDownload(
    QNetworkAccessManager& network, const RepositoryURL& url, Bounds bounds, Done done, QObject* parent)
    : QObject(parent)
    , m_bounds(bounds)
    , m_done(std::move(done))
{
    if (isWeb(url))
        start(network, url);
    else
        QMetaObject::invokeMethod(
            this, [this] { m_done(std::nullopt); }, Qt::QueuedConnection);
}

IndexDownload::~IndexDownload()
{
    dropReply();
}

void IndexDownload::start(QNetworkAccessManager& network, const RepositoryURL& url)
{
    m_reply = network.get(requestFor(url, m_bounds.inactivity));
    m_reply->setReadBufferSize(readBufferSize);
    connect(m_reply, &QNetworkReply::readyRead, this, &IndexDownload::readAvailable);
    connect(m_reply, &QNetworkReply::finished, this, &IndexDownload::finish);
}

void IndexDownload::readAvailable()
{
    m_body.append(m_reply->readAll());
    if (statusOf(*m_reply) != statusOK || static_cast<std::size_t>(m_body.size()) > m_bounds.bodySize) {
        dropReply();
        m_done(std::nullopt);
    }
}

void IndexDownload::finish()
{
    bool isSound = m_reply->error() == QNetworkReply::NoError && statusOf(*m_reply) == statusOK;
    if (isSound)
        m_body.append(m_reply->readAll());
    isSound = isSound && !m_body.isEmpty() && static_cast<std::size_t>(m_body.size()) <= m_bounds.bodySize;
    dropReply();
    m_done(isSound ? std::optional(std::move(m_body)) : std::nullopt);
}

// A reply that is deleted ends its connection by itself; one that is aborted first may report its own error on top.
void IndexDownload::dropReply()
{
    if (m_reply == nullptr)
        return;
    m_reply->disconnect(this);
    m_reply->deleteLater();
    m_reply = nullptr;
}
