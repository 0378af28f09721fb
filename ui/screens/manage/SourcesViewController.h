#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/table/TableViewController.h"

namespace kit {
class Button;
class Switch;
}

// The user's sources with a switch each, and the built-in ones with a button for those not among them. A source is
// added by its URL, removed by a swipe, and handed to another package manager by a tap. Keeps no list: each row is read
// from the catalog when it is drawn. Its "Add" bar button is disabled from the start of an add until a turn of the main
// loop after its end. How an add went is not shown.
class SourcesViewController : public kit::TableViewController
{
    Q_OBJECT

public:
    SourcesViewController(RepoManager& manager, PackageInstaller& installer);

    void viewDidLoad() override;
    void viewWillAppear() override;

    // The switch's row is found by where the switch stands.
    void toggleSource(kit::Switch* sender);
    void addSource();
    // The button's tag is the row of the built-in source.
    void addDefault(kit::Button* sender);
    // An empty text is ignored; any other goes to the catalog as it is.
    void addRepositoryURLString(const QString& urlString);

    int numberOfSections() const override;
    int numberOfRowsInSection(int section) const override;
    kit::View* viewForHeaderInSection(int section) override;
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    QString nameForRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;
    bool canEditRowAtIndexPath(const kit::IndexPath& indexPath) const override;
    void commitEditingStyle(kit::EditingStyle style, const kit::IndexPath& indexPath) override;

private:
    // Null beyond the last one.
    VeskRepositoryPtr sourceAt(const kit::IndexPath& indexPath) const;
    bool isAdded(const VeskRepository& source) const;
    void showAccessory(kit::TableViewCell& cell, const VeskRepository& source, const kit::IndexPath& indexPath);
    kit::View* enabledSwitch(const VeskRepository& repository);
    kit::View* addButton(const VeskRepository& source, int row);
    static void showAdded(kit::TableViewCell& cell);
    void addEnded();

    RepoManager& m_manager;
    PackageInstaller& m_installer;
};
