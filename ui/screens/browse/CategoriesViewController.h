#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/table/TableViewController.h"

#include <vector>

// The "Categories" tab: every section of the catalog with its number of packages, fresh at every appearance.
class CategoriesViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    CategoriesViewController(RepoManager& manager, PackageInstaller& installer);

    const std::vector<VeskCategoryPtr>& categories() const { return m_categories; }

    void viewDidLoad() override;
    void viewWillAppear() override;

    int numberOfRowsInSection(int section) const override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    QString nameForRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    kit::View* viewForHeaderInSection(int section) override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;

private:
    RepoManager& m_manager;
    PackageInstaller& m_installer;
    std::vector<VeskCategoryPtr> m_categories;
};
