#include "ui/screens/browse/PackageTableViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/OpenPackage.h"
#include "ui/screens/shared/RowRecords.h"
#include "ui/screens/shared/ScreenRows.h"

PackageTableViewController::PackageTableViewController(PackageInstaller& installer)
    : m_installer(installer)
{
}

void PackageTableViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    ClassicUI::styleTableView(*tableView());
}

void PackageTableViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    reloadData();
}

void PackageTableViewController::reloadData()
{
    m_packages = readPackages();
    tableView()->reloadData();
}

int PackageTableViewController::numberOfRowsInSection(int /*section*/) const
{
    return rowsOrEmptyRow(m_packages.size());
}

kit::View* PackageTableViewController::viewForHeaderInSection(int /*section*/)
{
    return ClassicUI::sectionHeaderViewWithTitle(headerTitle(), tableView()->width());
}

kit::TableViewCell* PackageTableViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (const VeskPackagePtr package = recordOfRow(m_packages, indexPath.row))
        return ScreenRows::packageRow(*tableView(), *package, indexPath.row);
    return ScreenRows::emptyRow(*tableView(), emptyText());
}

QString PackageTableViewController::nameForRowAtIndexPath(const kit::IndexPath& indexPath) const
{
    return ScreenRows::nameOf(recordOfRow(m_packages, indexPath.row));
}

void PackageTableViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    openPackage(*this, recordOfRow(m_packages, indexPath.row), m_installer);
}
