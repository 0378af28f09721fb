#pragma once

#include "actions/PrivateDirectory.h"
#include "catalog/index/DownloadLimits.h"

#include <QNetworkAccessManager>
#include <QUrl>

#include <memory>
#include <stop_token>

// Sends one GET and streams the body of the answer into a new file of the directory, a piece at a time, so that memory
// does not grow with the body. Blocks in an event loop of its own; used in the manager's thread.
class ArchiveRequest
{
public:
    ArchiveRequest(QNetworkAccessManager& manager, const DownloadLimits& limits);

    // Null when the response is not acceptable, when the body cannot be written, or once told to stop; nothing is left
    // behind then. No directory is one that cannot be written to.
    std::unique_ptr<PartialFile> fetch(const QUrl& url, const PrivateDirectory* directory, const std::stop_token& stop);

private:
    struct Answer
    {
        std::unique_ptr<PartialFile> file;
        // Valid when the answer is to ask there.
        QUrl redirect;
    };

    Answer ask(const QUrl& url, const PrivateDirectory* directory, const std::stop_token& stop);

    QNetworkAccessManager& m_manager;
    DownloadLimits m_limits;
};
