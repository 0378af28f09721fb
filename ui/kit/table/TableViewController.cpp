#include "ui/kit/table/TableViewController.h"

namespace kit {

TableView* TableViewController::tableView()
{
    return static_cast<TableView*>(view());
}

View* TableViewController::loadView()
{
    auto* table = new TableView;
    // As wide as what it will fill, for what a screen sets up when its view is loaded. Its height comes with its first
    // layout.
    if (auto* container = qobject_cast<ViewController*>(parent()); container && container->isViewLoaded())
        table->setFrame({ 0, 0, container->view()->width(), 0 });
    table->setDelegate(this);
    table->setAccessibilityLabel(title());
    connect(navigationItem(), &NavigationItem::itemChanged, table,
        [this, table] { table->setAccessibilityLabel(title()); });
    return table;
}

void TableViewController::takeTextScale()
{
    if (isViewLoaded())
        tableView()->reloadData();
}

} // namespace kit
