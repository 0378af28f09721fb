#include "ui/screens/manage/SourcesViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/kit/alert/AlertController.h"
#include "ui/kit/view/Button.h"
#include "ui/kit/view/Switch.h"
#include "ui/screens/shared/LaterTurn.h"
#include "ui/screens/shared/RowRecords.h"

#include <algorithm>

namespace {

enum Section { ActiveSection, AvailableSection, SectionCount };

} // namespace

SourcesViewController::SourcesViewController(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
    , m_installer(installer)
{
}

void SourcesViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Sources"));
    ClassicUI::styleTableView(*tableView());
    navigationItem()->setRightBarButtonItem(
        new kit::BarButtonItem(QStringLiteral("Add"), kit::BarButtonItem::Style::Plain, [this] { addSource(); }));
}

void SourcesViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    tableView()->reloadData();
}

int SourcesViewController::numberOfSections() const
{
    return SectionCount;
}

int SourcesViewController::numberOfRowsInSection(int section) const
{
    const auto rows
        = section == ActiveSection ? m_manager.repositories().size() : RepoManager::defaultRepositories().size();
    return static_cast<int>(rows);
}

kit::View* SourcesViewController::viewForHeaderInSection(int section)
{
    const QString title
        = section == ActiveSection ? QStringLiteral("Active Sources") : QStringLiteral("Available Sources");
    return ClassicUI::sectionHeaderViewWithTitle(title, tableView()->width());
}

kit::TableViewCell* SourcesViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    auto* cell = tableView()->dequeueCell<kit::TableViewCell>(
        QStringLiteral("SourceCell"), kit::TableViewCell::Style::Subtitle);
    ClassicUI::styleCell(*cell, indexPath.row, kit::TableViewCell::AccessoryType::None);
    cell->imageView()->setImage(kit::Image::systemNamed(QStringLiteral("antenna.radiowaves.left.and.right")));
    cell->imageView()->setTintColor(ClassicUI::veskBlueColor());
    cell->setAccessoryView(nullptr);
    const VeskRepositoryPtr source = sourceAt(indexPath);
    cell->textLabel()->setText(source ? source->name() : QString());
    cell->detailTextLabel()->setText(source ? source->urlString() : QString());
    if (source)
        showAccessory(*cell, *source, indexPath);
    return cell;
}

QString SourcesViewController::nameForRowAtIndexPath(const kit::IndexPath& indexPath) const
{
    const VeskRepositoryPtr source = sourceAt(indexPath);
    return source ? source->name() : QString();
}

void SourcesViewController::showAccessory(
    kit::TableViewCell& cell, const VeskRepository& source, const kit::IndexPath& indexPath)
{
    if (indexPath.section == ActiveSection)
        cell.setAccessoryView(enabledSwitch(source));
    else if (isAdded(source))
        showAdded(cell);
    else
        cell.setAccessoryView(addButton(source, indexPath.row));
}

void SourcesViewController::showAdded(kit::TableViewCell& cell)
{
    cell.setAccessoryType(kit::TableViewCell::AccessoryType::Checkmark);
    cell.shownAccessory()->setAccessibilityLabel(QStringLiteral("added"));
}

VeskRepositoryPtr SourcesViewController::sourceAt(const kit::IndexPath& indexPath) const
{
    return recordOfRow(
        indexPath.section == ActiveSection ? m_manager.repositories() : RepoManager::defaultRepositories(),
        indexPath.row);
}

// The same text to the letter: neither case nor a slash at the end is forgiven.
bool SourcesViewController::isAdded(const VeskRepository& source) const
{
    const auto& repositories = m_manager.repositories();
    return std::any_of(repositories.begin(), repositories.end(),
        [&](const VeskRepositoryPtr& repository) { return repository->urlString() == source.urlString(); });
}

kit::View* SourcesViewController::enabledSwitch(const VeskRepository& repository)
{
    auto* control = new kit::Switch;
    control->setOn(repository.enabled());
    control->setAccessibilityLabel(repository.name());
    control->setValueChanged([this](kit::Switch* sender) { toggleSource(sender); });
    return control;
}

kit::View* SourcesViewController::addButton(const VeskRepository& source, int row)
{
    kit::Button* button = ClassicUI::classicButtonWithTitle(QStringLiteral("Add"), ClassicUI::ButtonKind::Normal);
    button->setAccessibilityLabel(QStringLiteral("Add %1").arg(source.name()));
    button->setFrame({ 0, 0, 70, 30 });
    button->setTag(row);
    button->setAction([this](kit::Button* sender) { addDefault(sender); });
    return button;
}

void SourcesViewController::toggleSource(kit::Switch* sender)
{
    const auto indexPath = tableView()->indexPathForRowAtPoint(sender->convertPointToView({ 0, 0 }, tableView()));
    if (indexPath && indexPath->section == ActiveSection)
        m_manager.toggleRepository(sourceAt(*indexPath), sender->isOn());
}

void SourcesViewController::addSource()
{
    auto* alert = new kit::AlertController(QStringLiteral("Add Source"), QStringLiteral("Enter an APT repository URL."),
        kit::AlertController::Style::Alert);
    kit::AlertTextField* field = alert->addTextField();
    field->setPlaceholder(QStringLiteral("https://repo.example.org"));
    field->setKeyboardType(kit::AlertTextField::Keyboard::URL);
    field->setAutocapitalizationType(kit::AlertTextField::Autocapitalization::None);
    field->setAutocorrectionType(kit::AlertTextField::Autocorrection::No);
    alert->addAction(QStringLiteral("Cancel"), kit::AlertAction::Style::Cancel);
    alert->addAction(QStringLiteral("Add"), kit::AlertAction::Style::Default, [screen = QPointer(this), field] {
        if (screen)
            screen->addRepositoryURLString(field->text());
    });
    present(alert);
}

void SourcesViewController::addDefault(kit::Button* sender)
{
    const auto defaults = RepoManager::defaultRepositories();
    const int row = sender->tag();
    if (row >= 0 && static_cast<std::size_t>(row) < defaults.size())
        addRepositoryURLString(defaults[static_cast<std::size_t>(row)]->urlString());
}

void SourcesViewController::addRepositoryURLString(const QString& urlString)
{
    if (urlString.isEmpty())
        return;
    navigationItem()->rightBarButtonItem()->setEnabled(false);
    m_manager.addRepositoryWithURLString(
        urlString, [ended = inLaterTurn(this, &SourcesViewController::addEnded)](bool, const auto&) { ended(); });
}

void SourcesViewController::addEnded()
{
    navigationItem()->rightBarButtonItem()->setEnabled(true);
    tableView()->reloadData();
}

bool SourcesViewController::canEditRowAtIndexPath(const kit::IndexPath& indexPath) const
{
    return indexPath.section == ActiveSection;
}

void SourcesViewController::commitEditingStyle(kit::EditingStyle style, const kit::IndexPath& indexPath)
{
    if (style != kit::EditingStyle::Delete || indexPath.section != ActiveSection)
        return;
    if (const VeskRepositoryPtr repository = sourceAt(indexPath)) {
        m_manager.removeRepository(repository);
        tableView()->deleteRow(indexPath, kit::TableView::Animation::Animated);
    }
}

void SourcesViewController::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    if (indexPath.section != ActiveSection)
        return;
    if (const VeskRepositoryPtr repository = sourceAt(indexPath))
        m_installer.openRepositoryInPackageManager(repository);
}
