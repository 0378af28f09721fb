#include "PackageListViewController.h"

#include "BulletText.h"
#include "CatalogRefresh.h"
#include "ClassicUI.h"
#include "OpenScreen.h"
#include "ScreenRows.h"

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
    TableViewController::viewDidLoad();
    ClassicUI::styleTableView(*tableView());
    navigationItem()->setRightBarButtonItem(reloadButton([this] { reloadData(); }));
}

void PackageListViewController::viewWillAppear()
{
    TableViewController::viewWillAppear();
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

TableViewCell* PackageListViewController::cellForRowAtIndexPath(const IndexPath& indexPath)
{
    if (m_packages.empty())
        return ScreenRows::emptyRow(*tableView(), QStringLiteral("No packages in this category"));
    return ScreenRows::packageRow(*tableView(), *m_packages[static_cast<size_t>(indexPath.row)], indexPath.row);
}

View* PackageListViewController::viewForHeaderInSection(int)
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

void PackageListViewController::didSelectRowAtIndexPath(const IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, TableView::Animation::Animated);
    openPackage(*this, m_packages, indexPath.row, m_installer);
}
