#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/records/PackageSelection.h"
#include "ui/kit/table/TableViewController.h"

// A screen that is one section of packages: a row for each, or a single row that tells that there are none. A tap shows
// the package. The list is read anew at every appearance; which packages it holds, the screen itself knows.
class PackageTableViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    // The packages last read, none before the first appearance.
    const PackageSelection& packages() const { return m_packages; }
    // Reads the packages and shows them.
    void reloadData();

    void viewDidLoad() override;
    void viewWillAppear() override;

    int numberOfRowsInSection(int section) const override;
    kit::View* viewForHeaderInSection(int section) override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    QString nameForRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;

protected:
    explicit PackageTableViewController(PackageInstaller& installer);

    // The packages to show, in their order.
    virtual PackageSelection readPackages() = 0;
    // Of the one section.
    virtual QString headerTitle() const = 0;
    // What the single row says when there are no packages.
    virtual QString emptyText() const = 0;

private:
    PackageInstaller& m_installer;
    PackageSelection m_packages;
};
