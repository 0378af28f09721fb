#pragma once

#include "PackageInstaller.h"
#include "RepoManager.h"
#include "TableViewController.h"

// The installed packages that the catalog knows, by name; a tap shows the package. Installed is what was found at the
// last refresh. The list is fresh at every appearance.
class InstalledAppsViewController : public TableViewController
{
    Q_OBJECT

public:
    explicit InstalledAppsViewController(RepoManager& manager = *RepoManager::sharedManager(),
        PackageInstaller& installer = PackageInstaller::sharedInstaller());

    void viewDidLoad() override;
    void viewWillAppear() override;

    const PackageVector& installed() const { return m_installed; }

    int numberOfRowsInSection(int section) const override;
    View* viewForHeaderInSection(int section) override;
    double heightForHeaderInSection(int section) const override;
    TableViewCell* cellForRowAtIndexPath(const IndexPath& indexPath) override;
    void didSelectRowAtIndexPath(const IndexPath& indexPath) override;

private:
    RepoManager& m_manager;
    PackageInstaller& m_installer;
    PackageVector m_installed;
};
