#include "actions/ArchiveReception.h"

#include "catalog/index/WebRequest.h"

#include <utility>

namespace {

constexpr qint64 smallestArchive = 1000;

} // namespace

bool isAcceptable(const ArchiveResponse& response)
{
    if (response.hasTransportError)
        return false;
    if (response.length < smallestArchive)
        return false;
    return response.status == statusOK;
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
    const bool failed = m_isGivenUp || m_reply.error() != QNetworkReply::NoError || hasWrongLength(m_reply, m_received);
    if (!isAcceptable({ .hasTransportError = failed, .length = m_received, .status = statusOf(m_reply) }))
        m_file.reset();
    return std::move(m_file);
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
    if (length < 0 || statusOf(m_reply) != statusOK || m_received > m_limits.largestBody || !write(length))
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
