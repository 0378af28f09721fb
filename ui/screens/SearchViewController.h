#pragma once

#include "PackageInstaller.h"
#include "RepoManager.h"
#include "TableViewController.h"

// The "Search" tab: the catalog's categories while the search field is empty, the packages that match it otherwise.
// Keeps the query alone: each count, row and tap asks the catalog again, so what is seen changes at a reload only, and
// the table reloads only when the field's text changes.
class SearchViewController : public TableViewController
{
    Q_OBJECT

public:
    explicit SearchViewController(RepoManager& manager = *RepoManager::sharedManager(),
        PackageInstaller& installer = PackageInstaller::sharedInstaller());

    void viewDidLoad() override;

    void updateSearchResultsForSearchController(SearchController* searchController);
    // The search field's text as it stands, null until it first changes.
    const QString& currentQuery() const { return m_currentQuery; }

    int numberOfRowsInSection(int section) const override;
    View* viewForHeaderInSection(int section) override;
    double heightForHeaderInSection(int section) const override;
    TableViewCell* cellForRowAtIndexPath(const IndexPath& indexPath) override;
    void didSelectRowAtIndexPath(const IndexPath& indexPath) override;

private:
    bool isQuerying() const { return !m_currentQuery.isEmpty(); }
    // Null beyond the last one.
    VeskPackagePtr resultAtRow(int row) const;
    VeskCategoryPtr categoryAtRow(int row) const;
    TableViewCell* emptyRow();
    TableViewCell* goneRow(int row);

    RepoManager& m_manager;
    PackageInstaller& m_installer;
    QString m_currentQuery;
};
