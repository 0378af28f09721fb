#include "ui/screens/browse/WhatsNewViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/screens/shared/CatalogRefresh.h"
#include "ui/screens/shared/OpenScreen.h"
#include "ui/screens/shared/ScreenRows.h"

WhatsNewViewController::WhatsNewViewController(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
    , m_installer(installer)
{
}

void WhatsNewViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Changes"));
    ClassicUI::styleTableView(*tableView());
    addRefreshControls(*this, [this] { refreshPressed(); });
}

void WhatsNewViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    reloadData();
}

void WhatsNewViewController::reloadData()
{
    m_packages = m_manager.packagesSortedByName();
    tableView()->reloadData();
}

void WhatsNewViewController::refreshPressed()
{
    refreshCatalog(*this, m_manager, [this] { reloadData(); });
}

int WhatsNewViewController::numberOfRowsInSection(int /*section*/) const
{
    return m_packages.empty() ? 1 : static_cast<int>(m_packages.size());
}

kit::View* WhatsNewViewController::viewForHeaderInSection(int /*section*/)
{
    return ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("Recent Updates"), tableView()->width());
}

double WhatsNewViewController::heightForHeaderInSection(int /*section*/) const
{
    return 25;
}

kit::TableViewCell* WhatsNewViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (m_packages.empty())
        return ScreenRows::emptyRow(*tableView(), QStringLiteral("No changes available. Tap Reload."));
    return ScreenRows::packageRow(*tableView(), *m_packages[static_cast<std::size_t>(indexPath.row)], indexPath.row);
}

void WhatsNewViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    openPackage(*this, m_packages, indexPath.row, m_installer);
}
