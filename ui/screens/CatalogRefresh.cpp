#include "CatalogRefresh.h"

#include <QPointer>

namespace {

void endRefresh(TableViewController& screen, const std::function<void()>& reloadData)
{
    reloadData();
    screen.tableView()->refreshControl()->endRefreshing();
    screen.navigationItem()->rightBarButtonItem()->setEnabled(true);
}

} // namespace

void refreshCatalog(TableViewController& screen, RepoManager& manager, const std::function<void()>& reloadData)
{
    RefreshControl* control = screen.tableView()->refreshControl();
    if (!control->isRefreshing())
        control->beginRefreshing();
    screen.navigationItem()->rightBarButtonItem()->setEnabled(false);
    manager.refreshAllWithCompletion([weakScreen = QPointer(&screen), reloadData] {
        if (!weakScreen)
            return;
        // In a later turn of the loop, whoever calls the completion; dropped with the screen.
        QMetaObject::invokeMethod(
            weakScreen, [weakScreen, reloadData] { endRefresh(*weakScreen, reloadData); }, Qt::QueuedConnection);
    });
}
