#pragma once

#include "ui/kit/navigation/ViewController.h"
#include "ui/kit/table/TableView.h"

namespace kit {

// A screen that is one table, of which it is the delegate. Its rows are first asked for when it is about to be laid
// out.
class TableViewController : public ViewController, public TableViewDelegate
{
    Q_OBJECT

public:
    using ViewController::ViewController;

    TableView* tableView();
    // Null until the view is made.
    const TableView* tableView() const { return static_cast<const TableView*>(loadedView()); }

    // No row stays open for deletion behind another screen.
    void viewWillDisappear() override { tableView()->openRow()->close(); }
    bool closeWhatIsOpen() override { return tableView()->openRow()->close(); }
    void takeTextScale() override;

protected:
    View* loadView() override;
};

} // namespace kit
