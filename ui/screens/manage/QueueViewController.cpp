#include "ui/screens/manage/QueueViewController.h"

#include "ui/classic/BulletText.h"
#include "ui/classic/ClassicUI.h"
#include "ui/kit/alert/AlertController.h"
#include "ui/screens/shared/LaterTurn.h"
#include "ui/screens/shared/RowRecords.h"
#include "ui/screens/shared/ScreenRows.h"

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
    kit::TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Queue"));
    navigationItem()->setLeftBarButtonItem(
        new kit::BarButtonItem(QStringLiteral("Clear"), kit::BarButtonItem::Style::Plain, [this] { clearAll(); }));
    navigationItem()->setRightBarButtonItem(
        new kit::BarButtonItem(QStringLiteral("Install"), kit::BarButtonItem::Style::Done, [this] { installNow(); }));
    ClassicUI::styleTableView(*tableView());
}

void QueueViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    tableView()->reloadData();
}

QString QueueViewController::statusString(qint64 status)
{
    const bool isKnown = status >= QueueStatusQueued && status <= QueueStatusFailed;
    return isKnown ? PackageInstaller::statusDisplayName(status) : QStringLiteral("Unknown");
}

void QueueViewController::applyStatusColor(kit::Label* label, qint64 status)
{
    switch (status) {
    case QueueStatusInstalling:
        return label->setTextColor(ClassicUI::veskOrangeColor());
    case QueueStatusComplete:
        return label->setTextColor(ClassicUI::veskBlueColor());
    case QueueStatusFailed:
        return label->setTextColor(ClassicUI::veskRedColor());
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
    auto* alert = new kit::AlertController(QStringLiteral("Vesk"), report, kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("OK"), kit::AlertAction::Style::Default);
    present(alert);
}

int QueueViewController::numberOfRowsInSection(int /*section*/) const
{
    return rowsOrEmptyRow(m_installer.queue().size());
}

QString QueueViewController::nameForRowAtIndexPath(const kit::IndexPath& indexPath) const
{
    const QueueEntryPtr entry = entryAtRow(indexPath.row);
    return entry ? entry->package()->name() : QString();
}

kit::View* QueueViewController::viewForHeaderInSection(int /*section*/)
{
    return ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("Queued Changes"), tableView()->width());
}

kit::TableViewCell* QueueViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (const QueueEntryPtr entry = entryAtRow(indexPath.row))
        return entryCell(*entry, indexPath.row);
    return ScreenRows::emptyRow(*tableView(), QStringLiteral("Nothing queued"));
}

kit::TableViewCell* QueueViewController::entryCell(const QueueEntry& entry, int row)
{
    auto* cell
        = tableView()->dequeueCell<kit::TableViewCell>(QStringLiteral("QueueCell"), kit::TableViewCell::Style::Value1);
    ClassicUI::styleCell(*cell, row, kit::TableViewCell::AccessoryType::None);
    // The worker of a run may write the status meanwhile: text and colour are those of one moment.
    const qint64 status = entry.status();
    cell->textLabel()->setText(entry.package()->name());
    cell->detailTextLabel()->setText(joinedWithBullet(actionLabel(entry.action()), statusString(status)));
    applyStatusColor(cell->detailTextLabel(), status);
    return cell;
}

QueueEntryPtr QueueViewController::entryAtRow(int row) const
{
    return recordOfRow(m_installer.queue(), row);
}

bool QueueViewController::canEditRowAtIndexPath(const kit::IndexPath& /*indexPath*/) const
{
    return !m_installer.queue().empty();
}

void QueueViewController::commitEditingStyle(kit::EditingStyle style, const kit::IndexPath& indexPath)
{
    const QueueEntryPtr entry = entryAtRow(indexPath.row);
    if (style != kit::EditingStyle::Delete || !entry)
        return;
    m_installer.removeEntry(entry);
    tableView()->reloadData();
}
