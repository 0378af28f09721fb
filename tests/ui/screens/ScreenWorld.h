#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "tests/support/MemorySourceStore.h"
#include "tests/support/RecordingOpener.h"
#include "tests/ui/screens/ScriptedNetwork.h"
#include "ui/kit/alert/AlertController.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/table/TableViewController.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

// Stands where the window does and keeps every alert that a screen presents.
class AlertRecorder : public QObject, public kit::AlertPresenter
{
public:
    void presentAlert(kit::AlertController* alert) override
    {
        alert->setParent(this);
        m_alerts.append(alert);
    }
    const QList<kit::AlertController*>& alerts() const { return m_alerts; }

private:
    QList<kit::AlertController*> m_alerts;
};

// The world of a screen under test: a catalog and an installer of its own, no network, and a real stack of screens of
// 390 by 800 points without anything that draws it.
class ScreenTest : public testing::Test
{
protected:
    ScreenTest();
    ~ScreenTest() override;

    // Puts the screen on a stack and makes it appear.
    template <typename Screen> Screen* show(Screen* screen)
    {
        showOnStack(screen);
        return screen;
    }
    void appearAgain();
    void dismissScreen() { navigation.reset(); }

    kit::TableView* table() const { return static_cast<kit::TableView*>(navigation->topViewController()->view()); }
    kit::TableViewCell* cell(int section, int row) const { return table()->cellForRow({ section, row }); }
    QString text(int section, int row) const { return cell(section, row)->textLabel()->text(); }
    QString detail(int section, int row) const { return cell(section, row)->detailTextLabel()->text(); }
    QStringList texts(int section) const;
    QString headerText(int section) const;
    std::size_t stackSize() const { return navigation->viewControllers().size(); }
    // The screen on top of the stack, null when it is of another kind.
    template <typename Screen> Screen* top() const { return dynamic_cast<Screen*>(navigation->topViewController()); }
    kit::AlertController* lastAlert() const { return window.alerts().isEmpty() ? nullptr : window.alerts().last(); }

    // Whether the row has lost its selection by an animation.
    static bool isFadingOut(const kit::TableViewCell* row) { return !row->isSelected() && row->fadesSelection(); }
    // Whether a screen is on its way in by an animation when the step is done.
    bool isPushedAnimated(const std::function<void()>& step) const;

    VeskPackagePtr addPackage(const QString& name, const QString& section = QStringLiteral("Other"));
    VeskPackagePtr addInstalledPackage(const QString& name, const QString& version, const QString& installedVersion);

    // Lets the main loop turn until the condition holds; fails after a generous while.
    static bool waitUntil(const std::function<bool()>& condition);
    // Lets every task run that is posted by now.
    static void turnLoop();

    std::shared_ptr<StoreRecord> store = std::make_shared<StoreRecord>();
    ScriptedNetwork* network = nullptr;
    QTemporaryDir directory;
    OpenerRecord opener;
    std::unique_ptr<RepoManager> manager;
    std::unique_ptr<PackageInstaller> installer;
    AlertRecorder window;
    std::unique_ptr<kit::NavigationController> navigation;

private:
    void showOnStack(kit::ViewController* screen);
};
