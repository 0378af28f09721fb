#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/table/TableViewController.h"

// The "Manage" tab: the ways to the sources, the installed packages and the queue, the settings note, and the installed
// packages, each of which can be queued for removal. Its list is fresh at every appearance.
class ManageViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    ManageViewController(RepoManager& manager, PackageInstaller& installer);

    void viewDidLoad() override;
    void viewWillAppear() override;

    void showSettings();
    const PackageSelection& installed() const { return m_installed; }

    int numberOfSections() const override;
    int numberOfRowsInSection(int section) const override;
    kit::View* viewForHeaderInSection(int section) override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    QString nameForRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;

private:
    kit::TableViewCell* manageCell(int row, kit::TableViewCell::AccessoryType accessory);
    kit::TableViewCell* menuCell(const kit::IndexPath& indexPath);
    kit::TableViewCell* emptyCell();
    void openMenuRow(int row);
    void offerUninstall(int row);

    RepoManager& m_manager;
    PackageInstaller& m_installer;
    PackageSelection m_installed;
};
