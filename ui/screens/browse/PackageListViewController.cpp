#include "ui/screens/browse/PackageListViewController.h"

#include "ui/classic/BulletText.h"
#include "ui/classic/ClassicUI.h"
#include "ui/screens/shared/CatalogRefresh.h"
#include "ui/screens/shared/OpenScreen.h"
#include "ui/screens/shared/ScreenRows.h"

#include <algorithm>

PackageListViewController::PackageListViewController(
    const QString& category, RepoManager& manager, PackageInstaller& installer)
    : m_category(category)
    , m_manager(manager)
    , m_installer(installer)
{
    setTitle(category);
}

void PackageListViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    ClassicUI::styleTableView(*tableView());
    navigationItem()->setRightBarButtonItem(reloadButton([this] { reloadData(); }));
}

void PackageListViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    reloadData();
}

void PackageListViewController::reloadData()
{
    m_packages = m_manager.packagesForCategory(m_category);
    m_manager.sortByName(m_packages);
    tableView()->reloadData();
}

int PackageListViewController::numberOfRowsInSection(int) const
{
    return std::max(1, static_cast<int>(m_packages.size()));
}

kit::TableViewCell* PackageListViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (m_packages.empty())
        return ScreenRows::emptyRow(*tableView(), QStringLiteral("No packages in this category"));
    return ScreenRows::packageRow(*tableView(), *m_packages[static_cast<size_t>(indexPath.row)], indexPath.row);
}

kit::View* PackageListViewController::viewForHeaderInSection(int)
{
    // "packages" for a single one too.
    const QString count = QStringLiteral("%1 packages").arg(m_packages.size());
    const QString title = m_packages.empty() ? m_category : joinedWithBullet(m_category, count);
    return ClassicUI::sectionHeaderViewWithTitle(title, tableView()->width());
}

double PackageListViewController::heightForHeaderInSection(int) const
{
    return 25;
}

void PackageListViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    openPackage(*this, m_packages, indexPath.row, m_installer);
}
