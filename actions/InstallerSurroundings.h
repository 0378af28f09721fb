#pragma once

#include "actions/AdministratorInstall.h"
#include "actions/URLOpener.h"
#include "http/request/Request.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>

// Everything of the outside world that the installer touches; passed to its constructor.
struct InstallerSurroundings
{
    QString dpkgPath;
    // Used in place of dpkg where both are there; none for root.
    AdministratorPrograms administrator;
    // Where downloaded archives may go, in the order of trial: the first that can be this user's own private directory
    // is made and taken at each download. See PrivateDirectory.
    QStringList archiveDirectories;
    std::unique_ptr<URLOpener> urlOpener;
    // How archives are asked for; the URL is filled in.
    http::Request archiveRequest = standardRequest();
    // How long the worker rests between a failed dpkg run and the hand-off of its package.
    std::chrono::milliseconds handOffDelay = std::chrono::milliseconds(600);

    // 30 seconds of silence, and 8 GiB: more than any archive of a distribution holds, and what a small disk still
    // takes.
    static http::Request standardRequest();
    // The real ones: "/usr/bin/dpkg", directories of the user's own, the desktop's URL handlers.
    static InstallerSurroundings system();
};
