#pragma once

#include <QtGlobal>

#include <chrono>

// The bounds that keep a hostile or broken server from holding a download for ever.
struct DownloadLimits
{
    // Longest silence of the server.
    std::chrono::milliseconds inactivityTimeout = std::chrono::seconds(30);
    // A body that has taken longer than this must have come at slowestRate (bytes a second) or better on the average
    // since.
    std::chrono::milliseconds patience = std::chrono::minutes(10);
    qint64 slowestRate = 1024;
    // Bytes; a longer body is refused. Nothing that dpkg installs on a phone comes near it.
    qint64 largestBody = qint64(4) * 1024 * 1024 * 1024;

    // How long a body may take of which so much has been received.
    std::chrono::milliseconds timeAllowed(qint64 received) const
    {
        return patience + std::chrono::milliseconds(received * 1000 / slowestRate);
    }
};
