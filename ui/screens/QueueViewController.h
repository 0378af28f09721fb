#pragma once

#include "PackageInstaller.h"
#include "TableViewController.h"

class Label;

// The queue of package actions: shows it, deletes single entries, clears it, runs it and reports the run.
// During a run the statuses shown stay what they were: the table reloads when the run has ended or the screen appears.
class QueueViewController : public TableViewController
{
    Q_OBJECT

public:
    explicit QueueViewController(PackageInstaller& installer = PackageInstaller::sharedInstaller());

    void viewDidLoad() override;
    void viewWillAppear() override;

    // "Unknown" for a code outside 0 to 5.
    static QString statusString(qint64 status);
    static void applyStatusColor(Label* label, qint64 status);
    void clearAll();
    // Reports "completed" and "failed" in an alert a turn of the main loop after the run has ended; nothing at all
    // while another run is under way.
    void installNow();

    int numberOfRowsInSection(int section) const override;
    View* viewForHeaderInSection(int section) override;
    TableViewCell* cellForRowAtIndexPath(const IndexPath& indexPath) override;
    bool canEditRowAtIndexPath(const IndexPath& indexPath) const override;
    void commitEditingStyle(EditingStyle style, const IndexPath& indexPath) override;

private:
    void reportRun();
    // Null beyond the last one.
    QueueEntryPtr entryAtRow(int row) const;
    TableViewCell* entryCell(const QueueEntry& entry, int row);

    PackageInstaller& m_installer;
};
