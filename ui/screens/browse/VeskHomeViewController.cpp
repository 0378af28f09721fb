#include "ui/screens/browse/VeskHomeViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/kit/alert/AlertController.h"
#include "ui/screens/browse/OpenCategory.h"
#include "ui/screens/browse/OpenPackage.h"
#include "ui/screens/shared/CatalogRefresh.h"
#include "ui/screens/shared/RowRecords.h"
#include "ui/screens/shared/ScreenRows.h"

#include <algorithm>
#include <cmath>

namespace {

enum Section { Featured, Categories, SectionCount };

constexpr size_t featuredCount = 8;
constexpr double headerHeight = 185;

kit::Label* centredLabel(const QRectF& frame, const QString& text, const kit::Color& color, const QFont& font)
{
    auto* label = new kit::Label(frame);
    label->setText(text);
    label->setTextAlignment(Qt::AlignHCenter);
    label->setTextColor(color);
    label->setFont(font);
    return label;
}

kit::View* logo(double left, double width)
{
    auto* view = new kit::ImageView(ClassicUI::assetNamed(QStringLiteral("vesklogo@2x")));
    view->setFrame({ left, 12, width, 72 });
    view->setContentMode(kit::ImageView::ContentMode::AspectFit);
    return view;
}

kit::View* tagline(double left, double width)
{
    return centredLabel({ left + 8, 86, width - 16, 24 }, QStringLiteral("The original alternative app store"),
        ClassicUI::veskTextColor(), kit::Font::boldSystemFont(17));
}

kit::View* description(double left, double width)
{
    kit::Label* label = centredLabel({ left + 18, 112, width - 36, 36 },
        QStringLiteral("Browse packages, themes, and utilities from your favorite jailbreak sources."),
        ClassicUI::veskSecondaryTextColor(), kit::Font::systemFont(13));
    label->setNumberOfLines(2);
    return label;
}

kit::View* divider(double left, double width)
{
    auto* view = new kit::View({ left + 20, 157, width - 40, 1 });
    view->setBackgroundColor({ 0.6, 0.6, 0.6, 0.55, {} });
    return view;
}

} // namespace

VeskHomeViewController::VeskHomeViewController(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
    , m_installer(installer)
{
}

void VeskHomeViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Welcome to Vesk"));
    ClassicUI::styleTableView(*tableView());
    tableView()->setRowHeight(60);
    addRefreshControls(*this, [this] { refreshPressed(); });
    navigationItem()->setLeftBarButtonItem(new kit::BarButtonItem(
        kit::Image::systemNamed(QStringLiteral("info.circle")), QStringLiteral("About"), [this] { showAbout(); }));
    m_homeHeader = buildHomeHeader();
    tableView()->setTableHeaderView(m_homeHeader);
}

kit::View* VeskHomeViewController::buildHomeHeader()
{
    const double width = std::max(view()->width(), 320.0);
    const double contentWidth = std::min(width - 24, 560.0);
    const double left = (width - contentWidth) / 2;

    auto* header = new kit::View({ 0, 0, width, headerHeight });
    header->setBackgroundColor(ClassicUI::veskBackgroundColor());
    header->addSubview(logo(left, contentWidth));
    header->addSubview(tagline(left, contentWidth));
    header->addSubview(description(left, contentWidth));
    header->addSubview(divider(left, contentWidth));
    return header;
}

void VeskHomeViewController::viewDidLayoutSubviews()
{
    kit::TableViewController::viewDidLayoutSubviews();
    const double width = tableView()->width();
    if (std::abs(m_homeHeader->width() - width) <= 0.5)
        return;
    m_homeHeader->setFrame({ 0, 0, width, headerHeight });
    tableView()->setTableHeaderView(m_homeHeader);
}

void VeskHomeViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    reloadData();
}

void VeskHomeViewController::viewDidAppear()
{
    kit::TableViewController::viewDidAppear();
    if (!m_manager.packages().empty())
        return;
    m_manager.loadDefaults();
    refreshPressed();
}

void VeskHomeViewController::reloadData()
{
    m_categories = m_manager.categories();
    const PackageSelection first = m_manager.firstPackagesByName(featuredCount);
    m_featured.assign(first.begin(), first.end());
    tableView()->reloadData();
}

void VeskHomeViewController::refreshPressed()
{
    refreshCatalog(*this, m_manager, [this] { reloadData(); });
}

void VeskHomeViewController::showAbout()
{
    auto* alert = new kit::AlertController(QStringLiteral("Tarnwell"),
        QStringLiteral(
            "A modern rootless recreation of the classic VeskApp interface. Package downloads and installs are "
            "handled by the device's APT/dpkg environment."),
        kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("Close"), kit::AlertAction::Style::Default);
    present(alert);
}

int VeskHomeViewController::numberOfSections() const
{
    return isEmpty() ? 1 : SectionCount;
}

int VeskHomeViewController::numberOfRowsInSection(int section) const
{
    return rowsOrEmptyRow(section == Featured ? m_featured.size() : m_categories.size());
}

kit::TableViewCell* VeskHomeViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (indexPath.section == Categories)
        return categoryCell(indexPath.row);
    return featuredCell(indexPath.row);
}

kit::TableViewCell* VeskHomeViewController::featuredCell(int row)
{
    if (const VeskPackagePtr package = recordOfRow(m_featured, row))
        return ScreenRows::packageRow(*tableView(), *package, row);
    auto* cell = ScreenRows::emptyRow(*tableView(), QStringLiteral("No packages loaded. Tap Reload."));
    cell->textLabel()->setTextColor(ClassicUI::veskSecondaryTextColor());
    return cell;
}

kit::TableViewCell* VeskHomeViewController::categoryCell(int row)
{
    if (const VeskCategoryPtr category = recordOfRow(m_categories, row))
        return ScreenRows::categoryRow(*tableView(), *category, row);
    auto* cell = ScreenRows::emptyCategoryRow(*tableView(), QStringLiteral("No categories yet"));
    // At the left, beside what a reused cell still shows.
    cell->textLabel()->setTextAlignment(Qt::AlignLeft);
    return cell;
}

QString VeskHomeViewController::nameForRowAtIndexPath(const kit::IndexPath& indexPath) const
{
    return indexPath.section == Categories ? ScreenRows::nameOf(recordOfRow(m_categories, indexPath.row))
                                           : ScreenRows::nameOf(recordOfRow(m_featured, indexPath.row));
}

kit::View* VeskHomeViewController::viewForHeaderInSection(int section)
{
    if (isEmpty())
        return nullptr;
    const QString title = section == Featured ? QStringLiteral("Hot Apps & Utilities") : QStringLiteral("Categories");
    return ClassicUI::sectionHeaderViewWithTitle(title, tableView()->width());
}

void VeskHomeViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    if (indexPath.section == Featured)
        openPackage(*this, recordOfRow(m_featured, indexPath.row), m_installer);
    else
        openCategory(*this, recordOfRow(m_categories, indexPath.row), m_manager, m_installer);
}
