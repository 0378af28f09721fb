#pragma once

#include "catalog/RepoManager.h"
#include "ui/screens/browse/PackageTableViewController.h"

// The installed packages that the catalog knows, by name; a tap shows the package. Installed is what was found at the
// last refresh.
class InstalledAppsViewController : public PackageTableViewController
{
    Q_OBJECT

public:
    InstalledAppsViewController(RepoManager& manager, PackageInstaller& installer);

    void viewDidLoad() override;

    const PackageSelection& installed() const { return packages(); }

protected:
    PackageSelection readPackages() override { return m_manager.installedPackagesSortedByName(); }
    QString headerTitle() const override { return QStringLiteral("Installed Packages"); }
    QString emptyText() const override { return QStringLiteral("No installed packages found"); }

private:
    RepoManager& m_manager;
};
