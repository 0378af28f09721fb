#pragma once

#include "ClassicUI.h"
#include "PackageInstaller.h"
#include "TableViewController.h"
#include "VeskPackage.h"

// One package: its icon, name, author and version, its description, four details, and the two actions that can be
// queued.
class PackageDetailViewController : public TableViewController
{
    Q_OBJECT

public:
    explicit PackageDetailViewController(
        const VeskPackagePtr& package, PackageInstaller& installer = PackageInstaller::sharedInstaller());

    const VeskPackagePtr& package() const { return m_package; }

    void viewDidLoad() override;

    int numberOfSections() const override;
    int numberOfRowsInSection(int section) const override;
    TableViewCell* cellForRowAtIndexPath(const IndexPath& indexPath) override;
    View* viewForHeaderInSection(int section) override;
    double heightForHeaderInSection(int section) const override;
    double heightForRowAtIndexPath(const IndexPath& indexPath) const override;
    void didSelectRowAtIndexPath(const IndexPath& indexPath) override;

private:
    // What an action row says and asks for, decided from the package's installed state each time it is needed.
    struct Action
    {
        QString title;
        Color textColor;
        ClassicUI::ButtonKind buttonKind;
        QueueAction code;
    };

    Action actionOfRow(int row) const;
    TableViewCell* styledCell(const QString& identifier, TableViewCell::Style style, int variant);
    TableViewCell* headerCell();
    TableViewCell* descriptionCell();
    TableViewCell* detailsCell(int row);
    TableViewCell* actionCell(int row);
    Button* actionButton(const Action& action, int row);
    double descriptionHeight() const;
    void showQueuedAlert();

    VeskPackagePtr m_package;
    PackageInstaller& m_installer;
};
