#include "ui/screens/manage/InstalledAppsViewController.h"

InstalledAppsViewController::InstalledAppsViewController(RepoManager& manager, PackageInstaller& installer)
    : PackageTableViewController(installer)
    , m_manager(manager)
{
}

void InstalledAppsViewController::viewDidLoad()
{
    PackageTableViewController::viewDidLoad();
    setTitle(QStringLiteral("Installed Apps"));
}
