#include "TableViewController.h"

TableView* TableViewController::tableView()
{
    return static_cast<TableView*>(view());
}

View* TableViewController::loadView()
{
    auto* table = new TableView;
    table->setDelegate(this);
    return table;
}
