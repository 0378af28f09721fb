#pragma once

#include "catalog/index/DownloadLimits.h"
#include "catalog/index/IndexLimits.h"
#include "catalog/sources/SourceStore.h"

#include <QNetworkAccessManager>
#include <QStringList>
#include <QThreadPool>

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
    // Of one index.
    DownloadLimits downloadLimits{
        .inactivityTimeout = std::chrono::seconds(20),
        .largestBody = qint64(256) * 1024 * 1024,
    };
    IndexLimits limits;

    // The user's own sources, this machine's dpkg and its network.
    static CatalogWorld real();
};
