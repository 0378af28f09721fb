#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/screens/shell/StatusBarStyle.h"

// The five tabs, each a stack of screens of its own. Made once, when the view is loaded.
class RootViewController : public kit::TabBarController
{
    Q_OBJECT

public:
    RootViewController(RepoManager& manager, PackageInstaller& installer);

    StatusBarStyle preferredStatusBarStyle() const { return StatusBarStyle::LightContent; }
    void viewDidLoad() override;

private:
    RepoManager& m_manager;
    PackageInstaller& m_installer;
};
