#pragma once

#include "ui/classic/IconTransport.h"

#include <QNetworkAccessManager>

#include <chrono>

// Downloads icons over http and https.
class NetworkIconTransport : public IconTransport
{
public:
    struct Limits
    {
        // Bytes; a longer body is a failure.
        qint64 largestBody = qint64(4) * 1024 * 1024;
        // The longest silence of the server.
        std::chrono::milliseconds inactivityTimeout = std::chrono::seconds(60);
    };

    // The manager must outlive every transfer.
    NetworkIconTransport(QNetworkAccessManager& manager, const Limits& limits);

    std::unique_ptr<IconTransfer> start(const QUrl& url, Completion completion) override;

private:
    QNetworkAccessManager& m_manager;
    Limits m_limits;
};
