#include "ui/screens/browse/SearchViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/OpenCategory.h"
#include "ui/screens/browse/OpenPackage.h"
#include "ui/screens/shared/RowRecords.h"
#include "ui/screens/shared/ScreenRows.h"

SearchViewController::SearchViewController(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
    , m_installer(installer)
{
}

void SearchViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Search"));
    ClassicUI::styleTableView(*tableView());
    m_searchController = new kit::SearchController;
    m_searchController->setObscuresBackgroundDuringPresentation(false);
    m_searchController->searchBar()->setPlaceholder(QStringLiteral("Search Vesk packages"));
    m_searchController->searchBar()->setTintColor(ClassicUI::veskBlueColor());
    m_searchController->setSearchResultsUpdater(
        [this](kit::SearchController* controller) { updateSearchResultsForSearchController(controller); });
    navigationItem()->setSearchController(m_searchController);
    navigationItem()->setHidesSearchBarWhenScrolling(false);
}

void SearchViewController::updateSearchResultsForSearchController(kit::SearchController* searchController)
{
    m_currentQuery = searchController->searchBar()->text();
    tableView()->reloadData();
}

int SearchViewController::numberOfRowsInSection(int /*section*/) const
{
    if (isQuerying())
        return static_cast<int>(m_manager.filteredPackagesWithQuery(m_currentQuery).size());
    return rowsOrEmptyRow(m_manager.categoryCount());
}

kit::View* SearchViewController::viewForHeaderInSection(int /*section*/)
{
    const QString title = isQuerying() ? QStringLiteral("Search Results") : QStringLiteral("Browse Categories");
    return ClassicUI::sectionHeaderViewWithTitle(title, tableView()->width());
}

kit::TableViewCell* SearchViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    kit::TableView& table = *tableView();
    if (isQuerying()) {
        const VeskPackagePtr package = resultAtRow(indexPath.row);
        return package ? ScreenRows::packageRow(table, *package, indexPath.row) : goneRow(indexPath.row);
    }
    if (const VeskCategoryPtr category = categoryAtRow(indexPath.row))
        return ScreenRows::categoryRow(table, *category, indexPath.row);
    return indexPath.row == 0 ? emptyRow() : goneRow(indexPath.row);
}

QString SearchViewController::nameForRowAtIndexPath(const kit::IndexPath& indexPath) const
{
    return isQuerying() ? ScreenRows::nameOf(resultAtRow(indexPath.row))
                        : ScreenRows::nameOf(categoryAtRow(indexPath.row));
}

// A reused row may still carry the count and the picture of a category.
kit::TableViewCell* SearchViewController::emptyRow()
{
    auto* cell = ScreenRows::emptyCategoryRow(*tableView(), QStringLiteral("Refresh Vesk before searching"));
    cell->detailTextLabel()->setText(QString());
    cell->imageView()->setImage({});
    return cell;
}

// The catalog may have shrunk since the table counted its rows, and the table asks on for rows as it scrolls.
kit::TableViewCell* SearchViewController::goneRow(int row)
{
    auto* cell
        = tableView()->dequeueCell<kit::TableViewCell>(QStringLiteral("GoneCell"), kit::TableViewCell::Style::Default);
    ClassicUI::styleCell(*cell, row, kit::TableViewCell::AccessoryType::None);
    return cell;
}

VeskPackagePtr SearchViewController::resultAtRow(int row) const
{
    return recordOfRow(m_manager.filteredPackagesWithQuery(m_currentQuery), row);
}

VeskCategoryPtr SearchViewController::categoryAtRow(int row) const
{
    return row < 0 ? nullptr : m_manager.categoryAt(static_cast<std::size_t>(row));
}

void SearchViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    if (isQuerying())
        openPackage(*this, resultAtRow(indexPath.row), m_installer);
    else
        openCategory(*this, categoryAtRow(indexPath.row), m_manager, m_installer);
}
