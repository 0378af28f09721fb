#include "ui/screens/shared/CatalogRefresh.h"

#include "ui/classic/ClassicUI.h"

#include <QPointer>

namespace {

void endRefresh(kit::TableViewController& screen, const std::function<void()>& reloadData)
{
    reloadData();
    screen.tableView()->refreshControl()->endRefreshing();
    screen.navigationItem()->rightBarButtonItem()->setEnabled(true);
}

} // namespace

kit::BarButtonItem* reloadButton(const std::function<void()>& action)
{
    auto* button = new kit::BarButtonItem(QStringLiteral("Reload"), kit::BarButtonItem::Style::Plain, action);
    button->setShortcut(QStringLiteral("F5; Ctrl+R"));
    return button;
}

void addRefreshControls(kit::TableViewController& screen, const std::function<void()>& refreshPressed)
{
    screen.navigationItem()->setRightBarButtonItem(reloadButton(refreshPressed));
    auto* control = new kit::RefreshControl;
    control->setTintColor(ClassicUI::veskBlueColor());
    control->setValueChanged(refreshPressed);
    screen.tableView()->setRefreshControl(control);
}

void refreshCatalog(kit::TableViewController& screen, RepoManager& manager, const std::function<void()>& reloadData)
{
    kit::RefreshControl* control = screen.tableView()->refreshControl();
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
