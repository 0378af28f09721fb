#include "catalog/CatalogWorld.h"

#include "catalog/index/DpkgStatus.h"
#include "catalog/sources/JsonSourceStore.h"

#include <QLocale>

CatalogWorld CatalogWorld::real()
{
    CatalogWorld world;
    world.store = std::make_unique<JsonSourceStore>(JsonSourceStore::standardPath());
    world.statusPaths = DpkgStatus::standardPaths();
    world.workers = std::make_shared<Workers>();
    world.network = std::make_unique<QNetworkAccessManager>();
    world.collationLocale = QLocale::system().bcp47Name();
    return world;
}
