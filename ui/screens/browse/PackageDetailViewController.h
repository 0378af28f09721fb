#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/records/VeskPackage.h"
#include "ui/classic/ClassicUI.h"
#include "ui/kit/table/TableViewController.h"

// One package: its icon, name, author and version, its description, four details, and the two actions that can be
// queued.
class PackageDetailViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    PackageDetailViewController(const VeskPackagePtr& package, PackageInstaller& installer);

    const VeskPackagePtr& package() const { return m_package; }

    void viewDidLoad() override;

    int numberOfSections() const override;
    int numberOfRowsInSection(int section) const override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    kit::View* viewForHeaderInSection(int section) override;
    double heightForHeaderInSection(int section) const override;
    bool rowsDifferInHeight() const override { return true; }
    double heightForRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;

private:
    // What an action row says and asks for, decided from the package's installed state each time it is needed.
    struct Action
    {
        QString title;
        kit::Color textColor;
        ClassicUI::ButtonKind buttonKind;
        QueueAction code;
    };

    Action actionOfRow(int row) const;
    kit::TableViewCell* styledCell(const QString& identifier, kit::TableViewCell::Style style, int variant);
    kit::TableViewCell* headerCell();
    kit::TableViewCell* descriptionCell();
    kit::TableViewCell* detailsCell(int row);
    kit::TableViewCell* actionCell(int row);
    kit::Button* actionButton(const Action& action, int row);
    double descriptionHeight() const;
    void showQueuedAlert();

    VeskPackagePtr m_package;
    PackageInstaller& m_installer;
};
