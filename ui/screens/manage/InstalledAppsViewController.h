#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/table/TableViewController.h"

// The installed packages that the catalog knows, by name; a tap shows the package. Installed is what was found at the
// last refresh. The list is fresh at every appearance.
class InstalledAppsViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    explicit InstalledAppsViewController(RepoManager& manager = *RepoManager::sharedManager(),
        PackageInstaller& installer = PackageInstaller::sharedInstaller());

    void viewDidLoad() override;
    void viewWillAppear() override;

    const PackageVector& installed() const { return m_installed; }

    int numberOfRowsInSection(int section) const override;
    kit::View* viewForHeaderInSection(int section) override;
    double heightForHeaderInSection(int section) const override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;

private:
    RepoManager& m_manager;
    PackageInstaller& m_installer;
    PackageVector m_installed;
};
