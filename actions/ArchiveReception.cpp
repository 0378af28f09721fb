#include "ArchiveReception.h"

#include <QNetworkRequest>

#include <utility>

namespace {

constexpr qint64 smallestArchive = 1000;
constexpr int acceptedStatus = 200;

bool mayLead(const QUrl& from, const QUrl& to)
{
    const bool isSecure = to.scheme() == QLatin1String("https");
    return to.isValid() && (isSecure || (to.scheme() == QLatin1String("http") && from.scheme() == to.scheme()));
}

} // namespace

bool isAcceptable(const ArchiveResponse& response)
{
    if (response.hasTransportError)
        return false;
    if (response.length < smallestArchive)
        return false;
    return response.status == acceptedStatus;
}

ArchiveReception::ArchiveReception(
    QNetworkReply& reply, const DownloadLimits& limits, const PrivateDirectory* directory, QEventLoop& loop)
    : m_reply(reply)
    , m_limits(limits)
    , m_directory(directory)
    , m_loop(loop)
{
    m_clock.start();
    m_patience.setSingleShot(true);
    m_patience.start(limits.patience);
    QObject::connect(&m_patience, &QTimer::timeout, &m_patience, [this] { giveUpIfTooSlow(); });
    QObject::connect(&reply, &QIODevice::readyRead, &m_patience, [this] { drain(); });
    QObject::connect(&reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
}

void ArchiveReception::giveUp()
{
    m_isGivenUp = true;
    m_file.reset();
    m_loop.quit();
}

std::unique_ptr<PartialFile> ArchiveReception::takeFile()
{
    drain();
    const bool failed = m_isGivenUp || m_reply.error() != QNetworkReply::NoError || isShort();
    if (!isAcceptable({ .hasTransportError = failed, .length = m_received, .status = status() }))
        m_file.reset();
    return std::move(m_file);
}

QUrl ArchiveReception::redirect() const
{
    const QUrl target = m_reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    const QUrl next = m_reply.url().resolved(target);
    return !target.isEmpty() && mayLead(m_reply.url(), next) ? next : QUrl();
}

int ArchiveReception::status() const
{
    return m_reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

// Qt takes a body that broke off for whole when it meets the end of the connection together with the last bytes, so the
// length is compared here too. The length that a server tells of a compressed transfer is not the body's.
bool ArchiveReception::isShort() const
{
    const QVariant told = m_reply.header(QNetworkRequest::ContentLengthHeader);
    return told.isValid() && !m_reply.hasRawHeader("Content-Encoding") && m_received != told.toLongLong();
}

void ArchiveReception::drain()
{
    while (!m_isGivenUp && m_reply.bytesAvailable() > 0 && takePiece()) { }
}

// False when there was no piece to take after all.
bool ArchiveReception::takePiece()
{
    const qint64 length = m_reply.read(m_piece.data(), static_cast<qint64>(m_piece.size()));
    m_received += qMax<qint64>(length, 0);
    if (length < 0 || status() != acceptedStatus || m_received > m_limits.largestBody || !write(length))
        giveUp();
    return length > 0;
}

bool ArchiveReception::write(qint64 length)
{
    if (!m_file && m_directory)
        m_file = m_directory->makeFile();
    return m_file && m_file->write(m_piece.data(), length);
}

void ArchiveReception::giveUpIfTooSlow()
{
    const auto left = m_limits.timeAllowed(m_received) - std::chrono::milliseconds(m_clock.elapsed());
    if (left.count() > 0)
        m_patience.start(left);
    else
        giveUp();
}
