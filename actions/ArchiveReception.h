#pragma once

#include "actions/PrivateDirectory.h"
#include "catalog/index/DownloadLimits.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QNetworkReply>
#include <QTimer>

#include <array>
#include <memory>

// What is known of a response when its archive is judged.
struct ArchiveResponse
{
    bool hasTransportError = false;
    qint64 length = 0;
    int status = 0;
};

// No transport error, at least 1000 bytes, status 200: tested in this order.
bool isAcceptable(const ArchiveResponse& response);

// Takes in one response, piece by piece, while the loop runs; quits the loop when the response is whole, and as soon as
// it can no longer be accepted. The transfer ends with the reply. Everything it is given must outlive it.
class ArchiveReception
{
public:
    // No directory is one that cannot be written to.
    ArchiveReception(
        QNetworkReply& reply, const DownloadLimits& limits, const PrivateDirectory* directory, QEventLoop& loop);

    void giveUp();
    // For the end of the loop: the body, when the response is accepted, else null.
    std::unique_ptr<PartialFile> takeFile();

private:
    static constexpr size_t pieceSize = 64UL * 1024;

    void drain();
    bool takePiece();
    bool write(qint64 length);
    void giveUpIfTooSlow();

    QNetworkReply& m_reply;
    const DownloadLimits& m_limits;
    const PrivateDirectory* m_directory;
    QEventLoop& m_loop;
    QElapsedTimer m_clock;
    QTimer m_patience;
    std::unique_ptr<PartialFile> m_file;
    qint64 m_received = 0;
    bool m_isGivenUp = false;
    std::array<char, pieceSize> m_piece = {};
};
