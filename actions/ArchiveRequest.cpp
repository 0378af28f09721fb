#include "ArchiveRequest.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include <array>
#include <memory>
#include <utility>

namespace {

constexpr qint64 smallestArchive = 1000;
constexpr int acceptedStatus = 200;
constexpr qint64 readBufferSize = 256 * 1024;
constexpr size_t pieceSize = 64 * 1024;

QNetworkRequest requestFor(const QUrl& url, const DownloadLimits& limits)
{
    QNetworkRequest request(url);
    request.setRawHeader("User-Agent", "Telesphoreo APT-HTTP/1.0.592");
    // Followed here: after a redirect of its own Qt mixes the headers of the two answers.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    // The manager has no cache, so nothing is ever served from one and no header asks for that.
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setTransferTimeout(static_cast<int>(limits.inactivityTimeout.count()));
    return request;
}

bool mayLead(const QUrl& from, const QUrl& to)
{
    const bool isSecure = to.scheme() == QLatin1String("https");
    return to.isValid() && (isSecure || (to.scheme() == QLatin1String("http") && from.scheme() == to.scheme()));
}

// Receives one response.
class Reception
{
public:
    Reception(QNetworkReply& reply, const DownloadLimits& limits, const PrivateDirectory* directory, QEventLoop& loop)
        : m_reply(reply)
        , m_loop(loop)
        , m_limits(limits)
        , m_directory(directory)
    {
        m_clock.start();
    }

    // Moves what has arrived to the file; gives the response up as soon as it can no longer be accepted.
    void drain()
    {
        while (!m_isGivenUp && m_reply.bytesAvailable() > 0 && takePiece()) { }
    }

    void giveUpIfTooSlow(QTimer& timer)
    {
        const auto left = m_limits.timeAllowed(m_received) - std::chrono::milliseconds(m_clock.elapsed());
        if (left.count() > 0)
            timer.start(left);
        else
            giveUp();
    }

    // The transfer itself ends with the reply.
    void giveUp()
    {
        m_isGivenUp = true;
        m_file.reset();
        m_loop.quit();
    }

    std::unique_ptr<PartialFile> takeFile()
    {
        drain();
        const bool failed = m_isGivenUp || m_reply.error() != QNetworkReply::NoError || isShort();
        if (!isAcceptable({ .hasTransportError = failed, .length = m_received, .status = status() }))
            m_file.reset();
        return std::move(m_file);
    }

    // Invalid when the answer is none that leads on.
    QUrl redirect() const
    {
        const QUrl target = m_reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
        const QUrl next = m_reply.url().resolved(target);
        return !target.isEmpty() && mayLead(m_reply.url(), next) ? next : QUrl();
    }

private:
    // Qt takes a body that broke off for whole when it meets the end of the connection together with the last bytes, so
    // the length is compared here too.
    // The length that a server tells of a compressed transfer is not the body's.
    bool isShort() const
    {
        const QVariant told = m_reply.header(QNetworkRequest::ContentLengthHeader);
        return told.isValid() && !m_reply.hasRawHeader("Content-Encoding") && m_received != told.toLongLong();
    }

    int status() const { return m_reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(); }

    // False when there was no piece to take after all.
    bool takePiece()
    {
        const qint64 length = m_reply.read(m_piece.data(), static_cast<qint64>(m_piece.size()));
        m_received += qMax<qint64>(length, 0);
        if (length < 0 || status() != acceptedStatus || m_received > m_limits.largestBody || !write(length))
            giveUp();
        return length > 0;
    }

    bool write(qint64 length)
    {
        if (!m_file && m_directory)
            m_file = m_directory->makeFile();
        return m_file && m_file->write(m_piece.data(), length);
    }

    QNetworkReply& m_reply;
    QEventLoop& m_loop;
    const DownloadLimits& m_limits;
    const PrivateDirectory* m_directory;
    QElapsedTimer m_clock;
    std::unique_ptr<PartialFile> m_file;
    qint64 m_received = 0;
    bool m_isGivenUp = false;
    std::array<char, pieceSize> m_piece = {};
};

} // namespace

bool isAcceptable(const ArchiveResponse& response)
{
    if (response.hasTransportError)
        return false;
    if (response.length < smallestArchive)
        return false;
    return response.status == acceptedStatus;
}

ArchiveRequest::ArchiveRequest(QNetworkAccessManager& manager, const DownloadLimits& limits)
    : m_manager(manager)
    , m_limits(limits)
{
}

std::unique_ptr<PartialFile> ArchiveRequest::fetch(
    const QUrl& url, const PrivateDirectory* directory, const std::stop_token& stop)
{
    Answer answer = ask(url, directory, stop);
    for (int count = 0; answer.redirect.isValid() && count < mostRedirects; ++count)
        answer = ask(answer.redirect, directory, stop);
    return std::move(answer.file);
}

ArchiveRequest::Answer ArchiveRequest::ask(
    const QUrl& url, const PrivateDirectory* directory, const std::stop_token& stop)
{
    QEventLoop loop;
    const std::unique_ptr<QNetworkReply> reply(m_manager.get(requestFor(url, m_limits)));
    reply->setReadBufferSize(readBufferSize);
    const auto reception = std::make_unique<Reception>(*reply, m_limits, directory, loop);
    QObject::connect(reply.get(), &QIODevice::readyRead, &loop, [&] { reception->drain(); });
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);

    QTimer patience;
    patience.setSingleShot(true);
    QObject::connect(&patience, &QTimer::timeout, &loop, [&] { reception->giveUpIfTooSlow(patience); });
    patience.start(m_limits.patience);

    const auto giveUp = [&] { reception->giveUp(); };
    const std::stop_callback stopped(stop, [&] { QMetaObject::invokeMethod(&loop, giveUp, Qt::QueuedConnection); });
    if (!reply->isFinished())
        loop.exec();
    if (stop.stop_requested())
        return {};
    return { .file = reception->takeFile(), .redirect = reception->redirect() };
}
