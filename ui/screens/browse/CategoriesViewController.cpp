#include "ui/screens/browse/CategoriesViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/OpenCategory.h"
#include "ui/screens/shared/RowRecords.h"
#include "ui/screens/shared/ScreenRows.h"

CategoriesViewController::CategoriesViewController(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
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
    return rowsOrEmptyRow(m_categories.size());
}

kit::TableViewCell* CategoriesViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (const VeskCategoryPtr category = recordOfRow(m_categories, indexPath.row))
        return ScreenRows::categoryRow(*tableView(), *category, indexPath.row);
    auto* cell = ScreenRows::emptyCategoryRow(*tableView(), QStringLiteral("Refresh Vesk to load categories"));
    cell->textLabel()->setTextColor(ClassicUI::veskSecondaryTextColor());
    return cell;
}

QString CategoriesViewController::nameForRowAtIndexPath(const kit::IndexPath& indexPath) const
{
    return ScreenRows::nameOf(recordOfRow(m_categories, indexPath.row));
}

kit::View* CategoriesViewController::viewForHeaderInSection(int)
{
    return ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("All Categories"), tableView()->width());
}

void CategoriesViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    openCategory(*this, recordOfRow(m_categories, indexPath.row), m_manager, m_installer);
}
