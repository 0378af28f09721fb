#pragma once

#include "actions/URLOpener.h"
#include "catalog/index/DownloadLimits.h"

#include <QString>

#include <chrono>
#include <memory>

// Everything of the outside world that the installer touches; passed to its constructor.
struct InstallerSurroundings
{
    QString dpkgPath;
    // The user's own private directory for downloaded archives; made at the first download. See PrivateDirectory.
    QString temporaryDirectory;
    std::unique_ptr<URLOpener> urlOpener;
    DownloadLimits limits = {};
    // How long the worker rests between a failed dpkg run and the hand-off of its package.
    std::chrono::milliseconds handOffDelay = std::chrono::milliseconds(600);

    // The real ones: "/usr/bin/dpkg", "vesk-UID" in the system's temporary directory, the desktop's URL handlers.
    static InstallerSurroundings system();
};
