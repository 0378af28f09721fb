#include "RootViewController.h"

#include "CategoriesViewController.h"
#include "ClassicUI.h"
#include "ManageViewController.h"
#include "SearchViewController.h"
#include "VeskHomeViewController.h"
#include "WhatsNewViewController.h"

namespace {

NavigationController* makeTab(ViewController* screen, const QString& title, const QString& symbol)
{
    screen->tabBarItem()->setTitle(title);
    screen->tabBarItem()->setImage(Image::systemNamed(symbol));
    return new NavigationController(screen);
}

} // namespace

RootViewController::RootViewController(RepoManager& manager, PackageInstaller& installer, QObject* parent)
    : TabBarController(parent)
    , m_manager(manager)
    , m_installer(installer)
{
}

void RootViewController::viewDidLoad()
{
    TabBarController::viewDidLoad();
    const std::vector<NavigationController*> tabs{
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
    for (NavigationController* tab : tabs)
        ClassicUI::styleNavigationController(*tab);
    ClassicUI::styleTabBarController(*this);
}
