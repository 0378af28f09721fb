#include "ui/screens/browse/PackageListViewController.h"

#include "ui/classic/BulletText.h"
#include "ui/screens/shared/CatalogRefresh.h"

PackageListViewController::PackageListViewController(
    const QString& category, RepoManager& manager, PackageInstaller& installer)
    : PackageTableViewController(installer)
    , m_category(category)
    , m_manager(manager)
{
    setTitle(category);
}

void PackageListViewController::viewDidLoad()
{
    PackageTableViewController::viewDidLoad();
    navigationItem()->setRightBarButtonItem(reloadButton([this] { reloadData(); }));
}

PackageSelection PackageListViewController::readPackages()
{
    PackageSelection packages = m_manager.packagesForCategory(m_category);
    m_manager.sortByName(packages);
    return packages;
}

QString PackageListViewController::headerTitle() const
{
    if (packages().empty())
        return m_category;
    // "packages" for a single one too.
    return joinedWithBullet(m_category, QStringLiteral("%1 packages").arg(packages().size()));
}
