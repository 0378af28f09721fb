#include "ui/screens/shell/RootViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/CategoriesViewController.h"
#include "ui/screens/browse/SearchViewController.h"
#include "ui/screens/browse/VeskHomeViewController.h"
#include "ui/screens/browse/WhatsNewViewController.h"
#include "ui/screens/manage/ManageViewController.h"

namespace {

kit::NavigationController* makeTab(kit::ViewController* screen, const QString& title, const QString& symbol)
{
    screen->tabBarItem()->setTitle(title);
    screen->tabBarItem()->setImage(kit::Image::systemNamed(symbol));
    return new kit::NavigationController(screen);
}

} // namespace

RootViewController::RootViewController(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
    , m_installer(installer)
{
}

void RootViewController::viewDidLoad()
{
    kit::TabBarController::viewDidLoad();
    const std::vector<kit::NavigationController*> tabs{
        makeTab(
            new VeskHomeViewController(m_manager, m_installer), QStringLiteral("Vesk"), QStringLiteral("house.fill")),
        makeTab(new WhatsNewViewController(m_manager, m_installer), QStringLiteral("Changes"),
            QStringLiteral("arrow.up.arrow.down")),
        makeTab(new CategoriesViewController(m_manager, m_installer), QStringLiteral("Categories"),
            QStringLiteral("square.grid.2x2")),
        makeTab(new SearchViewController(m_manager, m_installer), QStringLiteral("Search"),
            QStringLiteral("magnifyingglass")),
        makeTab(
            new ManageViewController(m_manager, m_installer), QStringLiteral("Manage"), QStringLiteral("gearshape")),
    };
    setViewControllers({ tabs.begin(), tabs.end() });
    for (kit::NavigationController* tab : tabs)
        ClassicUI::styleNavigationController(*tab);
    ClassicUI::styleTabBarController(*this);
}
