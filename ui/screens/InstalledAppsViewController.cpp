#include "InstalledAppsViewController.h"

#include "ClassicUI.h"
#include "InstalledPackages.h"
#include "OpenScreen.h"
#include "ScreenRows.h"

InstalledAppsViewController::InstalledAppsViewController(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
    , m_installer(installer)
{
}

void InstalledAppsViewController::viewDidLoad()
{
    TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Installed Apps"));
    ClassicUI::styleTableView(*tableView());
}

void InstalledAppsViewController::viewWillAppear()
{
    TableViewController::viewWillAppear();
    m_installed = installedPackagesSortedByName(m_manager);
    tableView()->reloadData();
}

int InstalledAppsViewController::numberOfRowsInSection(int /*section*/) const
{
    return m_installed.empty() ? 1 : static_cast<int>(m_installed.size());
}

View* InstalledAppsViewController::viewForHeaderInSection(int /*section*/)
{
    return ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("Installed Packages"), tableView()->width());
}

double InstalledAppsViewController::heightForHeaderInSection(int /*section*/) const
{
    return 25;
}

TableViewCell* InstalledAppsViewController::cellForRowAtIndexPath(const IndexPath& indexPath)
{
    if (m_installed.empty())
        return ScreenRows::emptyRow(*tableView(), QStringLiteral("No installed packages found"));
    return ScreenRows::packageRow(*tableView(), *m_installed[static_cast<std::size_t>(indexPath.row)], indexPath.row);
}

void InstalledAppsViewController::didSelectRowAtIndexPath(const IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, TableView::Animation::Animated);
    openPackage(*this, m_installed, indexPath.row, m_installer);
}
