#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/table/TableViewController.h"

// The "Changes" tab: every package of the catalog by name, and the refresh of all sources. It filters nothing.
// Refreshing: from refreshPressed() until a turn of the main loop after the refresh ended, the button is disabled and
// the refresh control spins. How the refresh went is not shown.
class WhatsNewViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    explicit WhatsNewViewController(RepoManager& manager = *RepoManager::sharedManager(),
        PackageInstaller& installer = PackageInstaller::sharedInstaller());

    void viewDidLoad() override;
    void viewWillAppear() override;

    void reloadData();
    void refreshPressed();
    // The packages last loaded.
    const PackageVector& packages() const { return m_packages; }

    int numberOfRowsInSection(int section) const override;
    kit::View* viewForHeaderInSection(int section) override;
    double heightForHeaderInSection(int section) const override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;

private:
    RepoManager& m_manager;
    PackageInstaller& m_installer;
    PackageVector m_packages;
};
