#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/table/TableViewController.h"

// The packages of one category, sorted by name.
class PackageListViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    explicit PackageListViewController(const QString& category, RepoManager& manager = *RepoManager::sharedManager(),
        PackageInstaller& installer = PackageInstaller::sharedInstaller());

    const QString& category() const { return m_category; }
    const PackageVector& packages() const { return m_packages; }
    // Reads the catalog anew; downloads nothing.
    void reloadData();

    void viewDidLoad() override;
    void viewWillAppear() override;

    int numberOfRowsInSection(int section) const override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    kit::View* viewForHeaderInSection(int section) override;
    double heightForHeaderInSection(int section) const override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;

private:
    QString m_category;
    RepoManager& m_manager;
    PackageInstaller& m_installer;
    PackageVector m_packages;
};
