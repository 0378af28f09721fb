#include "ui/screens/manage/InstalledAppsViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/screens/manage/InstalledPackages.h"
#include "ui/screens/shared/OpenScreen.h"
#include "ui/screens/shared/ScreenRows.h"

InstalledAppsViewController::InstalledAppsViewController(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
    , m_installer(installer)
{
}

void InstalledAppsViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Installed Apps"));
    ClassicUI::styleTableView(*tableView());
}

void InstalledAppsViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    m_installed = installedPackagesSortedByName(m_manager);
    tableView()->reloadData();
}

int InstalledAppsViewController::numberOfRowsInSection(int /*section*/) const
{
    return m_installed.empty() ? 1 : static_cast<int>(m_installed.size());
}

kit::View* InstalledAppsViewController::viewForHeaderInSection(int /*section*/)
{
    return ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("Installed Packages"), tableView()->width());
}

double InstalledAppsViewController::heightForHeaderInSection(int /*section*/) const
{
    return 25;
}

kit::TableViewCell* InstalledAppsViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (m_installed.empty())
        return ScreenRows::emptyRow(*tableView(), QStringLiteral("No installed packages found"));
    return ScreenRows::packageRow(*tableView(), *m_installed[static_cast<std::size_t>(indexPath.row)], indexPath.row);
}

void InstalledAppsViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    openPackage(*this, m_installed, indexPath.row, m_installer);
}
