#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/table/TableViewController.h"

#include <vector>

// The first tab: a branded header, the first packages by name and the categories. It starts a refresh whenever it
// appears while the catalog is empty, and on a first launch stores the default sources before.
class VeskHomeViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    VeskHomeViewController(RepoManager& manager, PackageInstaller& installer);

    // At most eight packages.
    const PackageVector& featured() const { return m_featured; }
    const std::vector<VeskCategoryPtr>& categories() const { return m_categories; }
    // Null until the view is loaded; the table owns it then.
    kit::View* homeHeader() const { return m_homeHeader; }

    // A new view, laid out for the screen's width as it is now.
    kit::View* buildHomeHeader();
    void reloadData();
    void refreshPressed();
    void showAbout();

    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;
    void viewWillAppear() override;
    void viewDidAppear() override;

    int numberOfSections() const override;
    int numberOfRowsInSection(int section) const override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    QString nameForRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    kit::View* viewForHeaderInSection(int section) override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;

private:
    bool isEmpty() const { return m_featured.empty() && m_categories.empty(); }
    kit::TableViewCell* featuredCell(int row);
    kit::TableViewCell* categoryCell(int row);

    RepoManager& m_manager;
    PackageInstaller& m_installer;
    PackageVector m_featured;
    std::vector<VeskCategoryPtr> m_categories;
    kit::View* m_homeHeader = nullptr;
};
