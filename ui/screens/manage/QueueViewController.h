#pragma once

#include "actions/PackageInstaller.h"
#include "ui/kit/table/TableViewController.h"

namespace kit {
class Label;
}

// The queue of package actions: shows it, deletes single entries, clears it, runs it and reports the run.
// During a run the statuses shown stay what they were: the table reloads when the run has ended or the screen appears.
class QueueViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    explicit QueueViewController(PackageInstaller& installer);

    void viewDidLoad() override;
    void viewWillAppear() override;

    // "Unknown" for a code outside 0 to 5.
    static QString statusString(qint64 status);
    static void applyStatusColor(kit::Label* label, qint64 status);
    void clearAll();
    // Reports "completed" and "failed" in an alert a turn of the main loop after the run has ended; nothing at all
    // while another run is under way.
    void installNow();

    int numberOfRowsInSection(int section) const override;
    kit::View* viewForHeaderInSection(int section) override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    QString nameForRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    bool canEditRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    void commitEditingStyle(kit::EditingStyle style, const kit::IndexPath& indexPath) override;

private:
    void reportRun();
    // Null beyond the last one.
    QueueEntryPtr entryAtRow(int row) const;
    kit::TableViewCell* entryCell(const QueueEntry& entry, int row);

    PackageInstaller& m_installer;
};
