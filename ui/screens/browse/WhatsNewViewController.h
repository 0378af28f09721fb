#pragma once

#include "catalog/RepoManager.h"
#include "ui/screens/browse/PackageTableViewController.h"

// The "Changes" tab: every package of the catalog by name, and the refresh of all sources. It filters nothing.
// Refreshing: from refreshPressed() until a turn of the main loop after the refresh ended, the button is disabled and
// the refresh control spins. How the refresh went is not shown.
class WhatsNewViewController : public PackageTableViewController
{
    Q_OBJECT

public:
    WhatsNewViewController(RepoManager& manager, PackageInstaller& installer);

    void viewDidLoad() override;

    void refreshPressed();

protected:
    PackageSelection readPackages() override { return m_manager.packagesSortedByName(); }
    QString headerTitle() const override { return QStringLiteral("Recent Updates"); }
    QString emptyText() const override { return QStringLiteral("No changes available. Tap Reload."); }

private:
    RepoManager& m_manager;
};
