#include "ui/screens/manage/ManageViewController.h"

#include "ui/classic/ClassicPackageCell.h"
#include "ui/classic/ClassicUI.h"
#include "ui/kit/alert/AlertController.h"
#include "ui/screens/manage/InstalledAppsViewController.h"
#include "ui/screens/manage/QueueViewController.h"
#include "ui/screens/manage/SourcesViewController.h"
#include "ui/screens/shared/RowRecords.h"
#include "ui/screens/shared/ScreenRows.h"

#include <array>

namespace {

enum Section { MenuSection, SettingsSection, InstalledSection, SectionCount };

enum MenuRow { SourcesRow, InstalledAppsRow, QueueRow };

struct MenuItem
{
    QString title;
    QString detail;
    QString symbol;
};

const QString& headerTitle(int section)
{
    static const std::array<QString, SectionCount> titles{ QStringLiteral("Vesk"), QStringLiteral("Settings"),
        QStringLiteral("Installed Packages") };
    return titles[static_cast<std::size_t>(section)];
}

const MenuItem& menuItem(const kit::IndexPath& indexPath)
{
    static const std::array<MenuItem, 3> menu{ {
        { QStringLiteral("Manage Sources"), QStringLiteral("Add, remove, or refresh repositories"),
            QStringLiteral("server.rack") },
        { QStringLiteral("Installed Apps"), QStringLiteral("Browse installed packages"),
            QStringLiteral("square.grid.2x2.fill") },
        { QStringLiteral("Queued Changes"), QStringLiteral("Review and perform pending actions"),
            QStringLiteral("arrow.down.circle.fill") },
    } };
    static const MenuItem settings{ QStringLiteral("Settings"), QStringLiteral("VeskApp behavior and package options"),
        QStringLiteral("gearshape.fill") };
    return indexPath.section == SettingsSection ? settings : menu[static_cast<std::size_t>(indexPath.row)];
}

} // namespace

ManageViewController::ManageViewController(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
    , m_installer(installer)
{
}

void ManageViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Manage"));
    ClassicUI::styleTableView(*tableView());
}

void ManageViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    m_installed = m_manager.installedPackagesSortedByName();
    tableView()->reloadData();
}

int ManageViewController::numberOfSections() const
{
    return SectionCount;
}

int ManageViewController::numberOfRowsInSection(int section) const
{
    if (section == MenuSection)
        return 3;
    return section == SettingsSection ? 1 : rowsOrEmptyRow(m_installed.size());
}

kit::View* ManageViewController::viewForHeaderInSection(int section)
{
    return ClassicUI::sectionHeaderViewWithTitle(headerTitle(section), tableView()->width());
}

kit::TableViewCell* ManageViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (indexPath.section != InstalledSection)
        return menuCell(indexPath);
    const VeskPackagePtr package = recordOfRow(m_installed, indexPath.row);
    return package ? ScreenRows::packageRow(*tableView(), *package, indexPath.row) : emptyCell();
}

kit::TableViewCell* ManageViewController::manageCell(int row, kit::TableViewCell::AccessoryType accessory)
{
    auto* cell = tableView()->dequeueCell<kit::TableViewCell>(
        QStringLiteral("ManageCell"), kit::TableViewCell::Style::Subtitle);
    ClassicUI::styleCell(*cell, row, accessory);
    return cell;
}

// Menu rows and the empty row take each other's reused cells: each sets all that the other does.
kit::TableViewCell* ManageViewController::menuCell(const kit::IndexPath& indexPath)
{
    const MenuItem& item = menuItem(indexPath);
    auto* cell = manageCell(indexPath.row, kit::TableViewCell::AccessoryType::DisclosureIndicator);
    cell->textLabel()->setText(item.title);
    cell->textLabel()->setTextAlignment(Qt::AlignLeft);
    cell->detailTextLabel()->setText(item.detail);
    cell->imageView()->setImage(kit::Image::systemNamed(item.symbol));
    cell->imageView()->setTintColor(ClassicUI::veskBlueColor());
    return cell;
}

kit::TableViewCell* ManageViewController::emptyCell()
{
    auto* cell = manageCell(0, kit::TableViewCell::AccessoryType::None);
    cell->textLabel()->setText(QStringLiteral("No installed packages found"));
    cell->textLabel()->setTextAlignment(Qt::AlignHCenter);
    cell->textLabel()->setTextColor(ClassicUI::veskSecondaryTextColor());
    cell->detailTextLabel()->setText(QString());
    cell->imageView()->setImage({});
    return cell;
}

QString ManageViewController::nameForRowAtIndexPath(const kit::IndexPath& indexPath) const
{
    return indexPath.section == InstalledSection ? ScreenRows::nameOf(recordOfRow(m_installed, indexPath.row))
                                                 : menuItem(indexPath).title;
}

void ManageViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    if (indexPath.section == MenuSection)
        openMenuRow(indexPath.row);
    else if (indexPath.section == SettingsSection)
        showSettings();
    else
        offerUninstall(indexPath.row);
}

void ManageViewController::openMenuRow(int row)
{
    kit::ViewController* screen = nullptr;
    if (row == SourcesRow)
        screen = new SourcesViewController(m_manager, m_installer);
    else if (row == InstalledAppsRow)
        screen = new InstalledAppsViewController(m_manager, m_installer);
    else if (row == QueueRow)
        screen = new QueueViewController(m_installer);
    if (screen)
        navigationController()->pushViewController(screen, kit::NavigationController::Animation::Animated);
}

void ManageViewController::showSettings()
{
    auto* alert = new kit::AlertController(QStringLiteral("Vesk Settings"),
        QStringLiteral("Keep Open On Confirm and Minimize On Confirm are represented by the queue screen. Package "
                       "actions are queued before they are executed."),
        kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("Close"), kit::AlertAction::Style::Default);
    present(alert);
}

// Tells the version that the catalog offers, also where another one is installed.
void ManageViewController::offerUninstall(int row)
{
    const VeskPackagePtr package = recordOfRow(m_installed, row);
    if (!package)
        return;
    auto* sheet = new kit::AlertController(package->name(),
        package->name() + u' ' + package->version() + QStringLiteral(" is installed."),
        kit::AlertController::Style::ActionSheet);
    sheet->addAction(QStringLiteral("Uninstall"), kit::AlertAction::Style::Destructive,
        [&installer = m_installer, package] { installer.enqueuePackage(package, QueueActionUninstall); });
    sheet->addAction(QStringLiteral("Cancel"), kit::AlertAction::Style::Cancel);
    sheet->setSource(tableView(), [this, row] { return tableView()->rectForRow({ InstalledSection, row }); });
    present(sheet);
}
