#pragma once

#include "TableView.h"
#include "ViewController.h"

// A screen that is one table, of which it is the delegate. Its rows are first asked for when it is about to be laid out.
class TableViewController : public ViewController, public TableViewDelegate
{
    Q_OBJECT

public:
    using ViewController::ViewController;

    TableView* tableView();

protected:
    View* loadView() override;
};
