#pragma once

#include "PackageInstaller.h"
#include "RepoManager.h"
#include "TableViewController.h"

// The packages of one category, sorted by name.
class PackageListViewController : public TableViewController
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
    TableViewCell* cellForRowAtIndexPath(const IndexPath& indexPath) override;
    View* viewForHeaderInSection(int section) override;
    double heightForHeaderInSection(int section) const override;
    void didSelectRowAtIndexPath(const IndexPath& indexPath) override;

private:
    QString m_category;
    RepoManager& m_manager;
    PackageInstaller& m_installer;
    PackageVector m_packages;
};
