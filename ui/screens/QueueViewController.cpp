#include "QueueViewController.h"

#include "AlertController.h"
#include "BulletText.h"
#include "ClassicUI.h"
#include "LaterTurn.h"
#include "ScreenRows.h"

namespace {

QString actionLabel(qint64 action)
{
    switch (action) {
    case QueueActionInstall:
        return QStringLiteral("Install");
    case QueueActionUpgrade:
        return QStringLiteral("Upgrade");
    default:
        return QStringLiteral("Uninstall");
    }
}

} // namespace

QueueViewController::QueueViewController(PackageInstaller& installer)
    : m_installer(installer)
{
}

void QueueViewController::viewDidLoad()
{
    TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Queue"));
    navigationItem()->setLeftBarButtonItem(
        new BarButtonItem(QStringLiteral("Clear"), BarButtonItem::Style::Plain, [this] { clearAll(); }));
    navigationItem()->setRightBarButtonItem(
        new BarButtonItem(QStringLiteral("Install"), BarButtonItem::Style::Done, [this] { installNow(); }));
    ClassicUI::styleTableView(*tableView());
}

void QueueViewController::viewWillAppear()
{
    TableViewController::viewWillAppear();
    tableView()->reloadData();
}

QString QueueViewController::statusString(qint64 status)
{
    switch (status) {
    case QueueStatusQueued:
        return QStringLiteral("In Queue");
    case QueueStatusDownloading:
        return QStringLiteral("Downloading");
    case QueueStatusInstalling:
        return QStringLiteral("Installing");
    case QueueStatusReady:
        return QStringLiteral("Ready");
    case QueueStatusComplete:
        return QStringLiteral("Complete");
    case QueueStatusFailed:
        return QStringLiteral("Failed");
    default:
        return QStringLiteral("Unknown");
    }
}

void QueueViewController::applyStatusColor(Label* label, qint64 status)
{
    switch (status) {
    case QueueStatusInstalling:
        return label->setTextColor(ClassicUI::veskOrangeColor());
    case QueueStatusComplete:
        return label->setTextColor(ClassicUI::veskBlueColor());
    case QueueStatusFailed:
        return label->setTextColor(ClassicUI::colorWithRed(175, 40, 35, 1));
    default:
        return label->setTextColor(ClassicUI::veskSecondaryTextColor());
    }
}

void QueueViewController::clearAll()
{
    m_installer.clearQueue();
    tableView()->reloadData();
}

void QueueViewController::installNow()
{
    m_installer.executeQueueWithCompletion(inLaterTurn(this, &QueueViewController::reportRun));
}

void QueueViewController::reportRun()
{
    tableView()->reloadData();
    const QString report
        = QStringLiteral("%1 completed, %2 failed").arg(m_installer.completedCount()).arg(m_installer.failedCount());
    auto* alert = new AlertController(QStringLiteral("Vesk"), report, AlertController::Style::Alert);
    alert->addAction(QStringLiteral("OK"), AlertAction::Style::Default);
    present(alert);
}

int QueueViewController::numberOfRowsInSection(int /*section*/) const
{
    return m_installer.queue().empty() ? 1 : static_cast<int>(m_installer.queue().size());
}

View* QueueViewController::viewForHeaderInSection(int /*section*/)
{
    return ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("Queued Changes"), tableView()->width());
}

TableViewCell* QueueViewController::cellForRowAtIndexPath(const IndexPath& indexPath)
{
    if (const QueueEntryPtr entry = entryAtRow(indexPath.row))
        return entryCell(*entry, indexPath.row);
    return ScreenRows::emptyRow(*tableView(), QStringLiteral("Nothing queued"));
}

TableViewCell* QueueViewController::entryCell(const QueueEntry& entry, int row)
{
    auto* cell = tableView()->dequeueCell<TableViewCell>(QStringLiteral("QueueCell"), TableViewCell::Style::Value1);
    ClassicUI::styleCell(*cell, row);
    cell->setAccessoryType(TableViewCell::AccessoryType::None);
    // The worker of a run may write the status meanwhile: text and colour are those of one moment.
    const qint64 status = entry.status();
    cell->textLabel()->setText(entry.package()->name());
    cell->detailTextLabel()->setText(joinedWithBullet(actionLabel(entry.action()), statusString(status)));
    applyStatusColor(cell->detailTextLabel(), status);
    return cell;
}

QueueEntryPtr QueueViewController::entryAtRow(int row) const
{
    const auto index = static_cast<std::size_t>(row);
    return index < m_installer.queue().size() ? m_installer.queue()[index] : nullptr;
}

bool QueueViewController::canEditRowAtIndexPath(const IndexPath& /*indexPath*/) const
{
    return !m_installer.queue().empty();
}

void QueueViewController::commitEditingStyle(EditingStyle style, const IndexPath& indexPath)
{
    const QueueEntryPtr entry = entryAtRow(indexPath.row);
    if (style != EditingStyle::Delete || !entry)
        return;
    m_installer.removeEntry(entry);
    tableView()->reloadData();
}
