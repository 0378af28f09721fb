#pragma once

#include "catalog/RepoManager.h"
#include "ui/kit/table/TableViewController.h"

#include <map>

// The worked example of CONTRIBUTING.md: everybody who wrote a package of the catalog, with the number of their
// packages, fresh at every appearance.
class AuthorsViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    // The manager has to outlive the screen.
    explicit AuthorsViewController(RepoManager& manager);

    void viewDidLoad() override;
    void viewWillAppear() override;

    int numberOfRowsInSection(int section) const override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;

private:
    RepoManager& m_manager;
    std::map<QString, int> m_packagesOfAuthors;
};
