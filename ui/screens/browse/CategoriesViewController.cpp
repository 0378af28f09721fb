#include "ui/screens/browse/CategoriesViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/screens/shared/OpenScreen.h"
#include "ui/screens/shared/ScreenRows.h"

#include <algorithm>

CategoriesViewController::CategoriesViewController(RepoManager& manager, PackageInstaller& installer, QObject* parent)
    : kit::TableViewController(parent)
    , m_manager(manager)
    , m_installer(installer)
{
}

void CategoriesViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Categories"));
    ClassicUI::styleTableView(*tableView());
}

void CategoriesViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    m_categories = m_manager.categories();
    tableView()->reloadData();
}

int CategoriesViewController::numberOfRowsInSection(int) const
{
    return std::max(1, static_cast<int>(m_categories.size()));
}

kit::TableViewCell* CategoriesViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (!m_categories.empty())
        return ScreenRows::categoryRow(*tableView(), *m_categories[static_cast<size_t>(indexPath.row)], indexPath.row);
    auto* cell = ScreenRows::emptyCategoryRow(*tableView(), QStringLiteral("Refresh Vesk to load categories"));
    cell->textLabel()->setTextColor(ClassicUI::veskSecondaryTextColor());
    return cell;
}

kit::View* CategoriesViewController::viewForHeaderInSection(int)
{
    return ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("All Categories"), tableView()->width());
}

double CategoriesViewController::heightForHeaderInSection(int) const
{
    return 25;
}

void CategoriesViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    openCategory(*this, m_categories, indexPath.row, m_manager, m_installer);
}
