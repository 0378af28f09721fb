#include "catalog/index/IndexDownload.h"

#include "catalog/index/WebRequest.h"
#include "catalog/records/RepositoryURL.h"

#include <QNetworkReply>

namespace {

// What the network may hold back before it is read here; without a bound it would receive far beyond the one for
// bodies.
constexpr qint64 readBufferSize = qint64(1024) * 1024;

} // namespace

IndexDownload::IndexDownload(
    QNetworkAccessManager& network, const RepositoryURL& url, const DownloadLimits& limits, Done done, QObject* parent)
    : QObject(parent)
    , m_network(network)
    , m_limits(limits)
    , m_done(std::move(done))
{
    m_clock.start();
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &IndexDownload::failIfTooSlow);
    m_patience.start(m_limits.patience);
    if (isWebURL(url.url()))
        ask(url.url());
    else
        QMetaObject::invokeMethod(
            this, [this] { end(std::nullopt); }, Qt::QueuedConnection);
}

IndexDownload::~IndexDownload()
{
    dropReply();
}

void IndexDownload::ask(const QUrl& url)
{
    dropReply();
    m_reply = m_network.get(webRequest(url, m_limits.inactivityTimeout));
    m_reply->setReadBufferSize(readBufferSize);
    connect(m_reply, &QNetworkReply::readyRead, this, &IndexDownload::readAvailable);
    connect(m_reply, &QNetworkReply::finished, this, &IndexDownload::finish);
}

// The body of any other status is of no use to anybody: what is to be done then is known without it.
void IndexDownload::readAvailable()
{
    if (statusOf(*m_reply) != statusOK)
        return finish();
    m_body.append(m_reply->readAll());
    if (m_body.size() > m_limits.largestBody)
        end(std::nullopt);
}

void IndexDownload::finish()
{
    const QUrl next = redirectOf(*m_reply);
    if (next.isValid() && m_redirects++ < mostRedirects)
        return ask(next);
    bool isSound = m_reply->error() == QNetworkReply::NoError && statusOf(*m_reply) == statusOK;
    if (isSound)
        m_body.append(m_reply->readAll());
    isSound = isSound && !hasWrongLength(*m_reply, m_body.size()) && !m_body.isEmpty()
        && m_body.size() <= m_limits.largestBody;
    end(isSound ? std::optional(std::move(m_body)) : std::nullopt);
}

void IndexDownload::failIfTooSlow()
{
    const auto left = m_limits.timeAllowed(m_body.size()) - std::chrono::milliseconds(m_clock.elapsed());
    if (left.count() > 0)
        m_patience.start(left);
    else
        end(std::nullopt);
}

void IndexDownload::end(std::optional<QByteArray> body)
{
    m_patience.stop();
    dropReply();
    m_done(std::move(body));
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
