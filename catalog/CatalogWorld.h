#pragma once

#include "catalog/index/IndexLimits.h"
#include "catalog/sources/SourceStore.h"
#include "catalog/work/Workers.h"
#include "http/request/Network.h"

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
    // Declared after the workers, so that it is destroyed before them: until then it brings them what to read.
    std::unique_ptr<http::Network> network;
    // The language whose order of letters names are sorted by ("de", "sv_SE").
    QString collationLocale;
    // How an index is asked for; the URL is filled in.
    http::Request indexRequest = standardIndexRequest();
    IndexLimits limits;

    // 20 seconds of silence, and a body of 256 MiB: five times the largest index in use.
    static http::Request standardIndexRequest();
    // The user's own sources, this machine's dpkg and its network.
    static CatalogWorld real();
};
