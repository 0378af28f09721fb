#include "ui/screens/browse/WhatsNewViewController.h"

#include "ui/screens/shared/CatalogRefresh.h"

WhatsNewViewController::WhatsNewViewController(RepoManager& manager, PackageInstaller& installer)
    : PackageTableViewController(installer)
    , m_manager(manager)
{
}

void WhatsNewViewController::viewDidLoad()
{
    PackageTableViewController::viewDidLoad();
    setTitle(QStringLiteral("Changes"));
    addRefreshControls(*this, [this] { refreshPressed(); });
}

void WhatsNewViewController::refreshPressed()
{
    refreshCatalog(*this, m_manager, [this] { reloadData(); });
}
