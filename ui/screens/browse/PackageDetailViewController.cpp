#include "ui/screens/browse/PackageDetailViewController.h"

#include "ui/classic/BulletText.h"
#include "ui/classic/ClassicUI.h"
#include "ui/kit/alert/AlertController.h"
#include "ui/kit/text/TextScale.h"

#include <algorithm>
#include <array>

namespace {

enum Section { Header, Description, Details, Actions, SectionCount };

constexpr double headerRowHeight = 82;
constexpr double rowHeight = 60;

QFont descriptionFont()
{
    return kit::Font::systemFont(14);
}

QString descriptionOf(const VeskPackage& package)
{
    return package.desc().isEmpty() ? QStringLiteral("No description was supplied by this source.") : package.desc();
}

struct Detail
{
    QString label;
    QString value;
};

QString orElse(const QString& value, const QString& fallback)
{
    return value.isNull() ? fallback : value;
}

Detail detailOfRow(const VeskPackage& package, int row)
{
    const QString nothing = QStringLiteral("");
    switch (row) {
    case 0:
        return { QStringLiteral("Version"), orElse(package.version(), nothing) };
    case 1:
        return { QStringLiteral("Package"), orElse(package.packageID(), nothing) };
    case 2:
        return { QStringLiteral("Section"), orElse(package.section(), QStringLiteral("Other")) };
    default:
        const QString name = package.repository() ? package.repository()->name() : QString();
        return { QStringLiteral("Repository"), orElse(name, QStringLiteral("Unknown")) };
    }
}

} // namespace

PackageDetailViewController::PackageDetailViewController(const VeskPackagePtr& package, PackageInstaller& installer)
    : m_package(package)
    , m_installer(installer)
{
    setTitle(package->name());
}

void PackageDetailViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    ClassicUI::styleTableView(*tableView());
    tableView()->setRowHeight(rowHeight);
}

int PackageDetailViewController::numberOfSections() const
{
    return SectionCount;
}

int PackageDetailViewController::numberOfRowsInSection(int section) const
{
    static constexpr std::array<int, SectionCount> rows{ 1, 1, 4, 2 };
    return rows.at(static_cast<size_t>(section));
}

kit::View* PackageDetailViewController::viewForHeaderInSection(int section)
{
    static const std::array<QString, SectionCount> titles{ QString(), QStringLiteral("Description"),
        QStringLiteral("Package Details"), QStringLiteral("Actions") };
    if (section == Header)
        return nullptr;
    return ClassicUI::sectionHeaderViewWithTitle(titles.at(static_cast<size_t>(section)), tableView()->width());
}

double PackageDetailViewController::heightForHeaderInSection(int section) const
{
    // No header above the package itself. Classic tables take 0 for "as high as usual", so it is never asked for.
    return section == Header ? 0.01 : ClassicUI::sectionHeaderHeight;
}

double PackageDetailViewController::heightForRowAtIndexPath(const kit::IndexPath& indexPath) const
{
    if (indexPath.section == Header)
        return kit::TextScale::grown(headerRowHeight);
    return indexPath.section == Description ? descriptionHeight() : kit::TextScale::grown(rowHeight);
}

double PackageDetailViewController::descriptionHeight() const
{
    const double width = std::max(tableView()->width() - 28, 260.0);
    const QString shown = kit::Label::shownPart(descriptionOf(*m_package), 0);
    return std::max(kit::Font::boundingHeight(shown, descriptionFont(), width) + 28, 68.0);
}

kit::TableViewCell* PackageDetailViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    switch (indexPath.section) {
    case Header:
        return headerCell();
    case Description:
        return descriptionCell();
    case Details:
        return detailsCell(indexPath.row);
    default:
        return actionCell(indexPath.row);
    }
}

kit::TableViewCell* PackageDetailViewController::styledCell(
    const QString& identifier, kit::TableViewCell::Style style, int variant)
{
    auto* cell = tableView()->dequeueCell<kit::TableViewCell>(identifier, style);
    ClassicUI::styleCell(*cell, variant, kit::TableViewCell::AccessoryType::None);
    return cell;
}

kit::TableViewCell* PackageDetailViewController::headerCell()
{
    auto* cell = styledCell(QStringLiteral("HeaderCell"), kit::TableViewCell::Style::Subtitle, 0);
    cell->textLabel()->setText(m_package->name());
    cell->textLabel()->setFont(kit::Font::boldSystemFont(20));
    const QString author = m_package->author();
    const QString version = m_package->version();
    cell->detailTextLabel()->setText(author.isEmpty() ? version : joinedWithBullet(author, version));
    cell->imageView()->setImage(ClassicUI::assetNamed(QStringLiteral("Homepage")));
    ClassicUI::loadIconForPackage(*m_package, *cell->imageView());
    cell->imageView()->setCornerRadius(9);
    cell->imageView()->setClipsToBounds(true);
    return cell;
}

kit::TableViewCell* PackageDetailViewController::descriptionCell()
{
    auto* cell = styledCell(QStringLiteral("DescriptionCell"), kit::TableViewCell::Style::Default, 1);
    cell->textLabel()->setText(descriptionOf(*m_package));
    cell->textLabel()->setNumberOfLines(0);
    cell->textLabel()->setFont(descriptionFont());
    cell->textLabel()->setTextColor(ClassicUI::veskTextColor());
    return cell;
}

kit::TableViewCell* PackageDetailViewController::detailsCell(int row)
{
    const Detail detail = detailOfRow(*m_package, row);
    auto* cell = styledCell(QStringLiteral("DetailsCell"), kit::TableViewCell::Style::Value1, row);
    cell->textLabel()->setText(detail.label);
    cell->detailTextLabel()->setText(detail.value);
    cell->detailTextLabel()->setAdjustsFontSizeToFitWidth(true);
    return cell;
}

kit::TableViewCell* PackageDetailViewController::actionCell(int row)
{
    const Action action = actionOfRow(row);
    auto* cell = styledCell(QStringLiteral("ActionCell"), kit::TableViewCell::Style::Default, row);
    cell->textLabel()->setText(action.title);
    cell->textLabel()->setTextColor(action.textColor);
    cell->setAccessoryView(actionButton(action, row));
    return cell;
}

// The button stands for its row: a press of it is a tap on the row. A long version must not push the row's text out.
kit::Button* PackageDetailViewController::actionButton(const Action& action, int row)
{
    auto* button = ClassicUI::classicButtonWithTitle(action.title, action.buttonKind);
    const QSizeF natural = button->naturalSize();
    button->setFrame({ 0, 0, std::min(natural.width(), tableView()->width() / 2), natural.height() });
    button->setAction([this, row](kit::Button*) { tableView()->tapRow(Actions, row); });
    return button;
}

PackageDetailViewController::Action PackageDetailViewController::actionOfRow(int row) const
{
    using Kind = ClassicUI::ButtonKind;
    const bool installed = m_package->installed();
    if (row == 1 && installed)
        return { QStringLiteral("Uninstall"), ClassicUI::veskRedColor(), Kind::Destructive, QueueActionUninstall };
    if (row == 1)
        return { QStringLiteral("Add to Queue"), ClassicUI::veskBlueColor(), Kind::Normal, QueueActionInstall };
    const kit::Color orange = ClassicUI::veskOrangeColor();
    if (m_package->hasUpdate())
        return { QStringLiteral("Upgrade to ") + m_package->version(), orange, Kind::Normal, QueueActionUpgrade };
    const QString title = installed ? QStringLiteral("Reinstall") : QStringLiteral("Install");
    return { title, orange, Kind::Normal, QueueActionInstall };
}

void PackageDetailViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    if (indexPath.section != Actions)
        return;
    m_installer.enqueuePackage(m_package, actionOfRow(indexPath.row).code);
    showQueuedAlert();
}

// Also when the queue has dropped the request as a duplicate.
void PackageDetailViewController::showQueuedAlert()
{
    auto* alert = new kit::AlertController(QStringLiteral("Vesk"),
        m_package->name() + QStringLiteral(" added to the queue."), kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("OK"), kit::AlertAction::Style::Default);
    present(alert);
}
