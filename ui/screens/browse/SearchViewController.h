#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/table/TableViewController.h"

// The "Search" tab: the catalog's categories while the search field is empty, the packages that match it otherwise.
// Keeps the query alone: each count, row and tap asks the catalog again, so what is seen changes at a reload only, and
// the table reloads only when the field's text changes or is cancelled.
class SearchViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    SearchViewController(RepoManager& manager, PackageInstaller& installer);

    void viewDidLoad() override;

    // Null until the view is loaded; the navigation item owns it then.
    kit::SearchController* searchController() const { return m_searchController; }
    void updateSearchResultsForSearchController(kit::SearchController* searchController);
    // The search field's text as it stands, null until it first changes.
    const QString& currentQuery() const { return m_currentQuery; }

    int numberOfRowsInSection(int section) const override;
    kit::View* viewForHeaderInSection(int section) override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    QString nameForRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;

private:
    bool isQuerying() const { return !m_currentQuery.isEmpty(); }
    // Null beyond the last one.
    VeskPackagePtr resultAtRow(int row) const;
    VeskCategoryPtr categoryAtRow(int row) const;
    kit::TableViewCell* emptyRow();
    kit::TableViewCell* goneRow(int row);

    RepoManager& m_manager;
    PackageInstaller& m_installer;
    kit::SearchController* m_searchController = nullptr;
    QString m_currentQuery;
};
