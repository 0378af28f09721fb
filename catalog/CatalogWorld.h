#pragma once

#include "IndexLimits.h"
#include "SourceStore.h"

#include <QNetworkAccessManager>
#include <QStringList>
#include <QThreadPool>

#include <chrono>
#include <memory>

// What the catalog needs of the world outside it.
struct CatalogWorld
{
    std::unique_ptr<SourceStore> store;
    // The dpkg status files, in the order they are tried.
    QStringList statusPaths;
    std::unique_ptr<QNetworkAccessManager> network;
    // Where indexes are decoded and parsed; not owned.
    QThreadPool* workers = nullptr;
    // The language whose order of letters names are sorted by ("de", "sv_SE").
    QString collationLocale;
    // How long a server may stay silent before a request fails.
    std::chrono::milliseconds inactivityTimeout{ 20000 };
    IndexLimits limits;

    // The user's own sources, this machine's dpkg and its network.
    static CatalogWorld real();
};
