#include "catalog/CatalogWorld.h"

#include "catalog/index/DpkgStatus.h"
#include "catalog/sources/JsonSourceStore.h"
#include "catalog/sources/SourceRequest.h"
#include "http/Client.h"

#include <QLocale>

http::Request CatalogWorld::standardIndexRequest()
{
    http::Limits limits;
    limits.inactivity = std::chrono::seconds(20);
    limits.largestBody = std::int64_t(256) * 1024 * 1024;
    return sourceRequest(limits);
}

CatalogWorld CatalogWorld::real()
{
    CatalogWorld world;
    world.store = std::make_unique<JsonSourceStore>(JsonSourceStore::standardPath());
    world.statusPaths = DpkgStatus::standardPaths();
    world.workers = std::make_shared<Workers>();
    world.network = std::make_unique<http::Client>();
    world.collationLocale = QLocale::system().bcp47Name();
    return world;
}
