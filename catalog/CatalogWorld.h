#pragma once

#include "catalog/index/DownloadLimits.h"
#include "catalog/index/IndexLimits.h"
#include "catalog/sources/SourceStore.h"
#include "catalog/work/Workers.h"

#include <QNetworkAccessManager>
#include <QStringList>

#include <memory>

// What the catalog needs of the world outside it.
struct CatalogWorld
{
    std::unique_ptr<SourceStore> store;
    // The dpkg status files, in the order they are tried.
    QStringList statusPaths;
    // Where indexes are decoded and parsed.
    std::shared_ptr<Workers> workers;
    std::unique_ptr<QNetworkAccessManager> network;
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
