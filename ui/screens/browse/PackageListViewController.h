#pragma once

#include "catalog/RepoManager.h"
#include "ui/screens/browse/PackageTableViewController.h"

// The packages of one category, sorted by name. Its "Reload" reads the catalog anew and downloads nothing.
class PackageListViewController : public PackageTableViewController
{
    Q_OBJECT

public:
    PackageListViewController(const QString& category, RepoManager& manager, PackageInstaller& installer);

    const QString& category() const { return m_category; }

    void viewDidLoad() override;

protected:
    PackageSelection readPackages() override;
    QString headerTitle() const override;
    QString emptyText() const override { return QStringLiteral("No packages in this category"); }

private:
    QString m_category;
    RepoManager& m_manager;
};
