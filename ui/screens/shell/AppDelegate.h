#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/window/Window.h"
#include "ui/screens/shell/DesktopPreferences.h"
#include "ui/screens/shell/StatusBarStyle.h"

#include <QObject>

#include <memory>

// The application: its one window with the tabs in it. It loads nothing and starts no refresh; the screens do.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    // Of the program's one catalog and one installer. Nothing else in the program names those two.
    AppDelegate();
    AppDelegate(RepoManager& manager, PackageInstaller& installer);
    ~AppDelegate() override;

    // Texts and movements follow what the desktop tells, now and at any change. Called before the launch; the
    // preferences outlive the application.
    void follow(DesktopPreferences& preferences);
    // Opens the window; always true.
    bool didFinishLaunchingWithOptions();
    // Shows the open window before all others, however it was put away. The token is what a Wayland desktop wants to
    // see for that; it may be empty.
    void bringToFront(const QString& activationToken);
    StatusBarStyle preferredStatusBarStyle() const { return StatusBarStyle::LightContent; }
    // Null before the launch.
    kit::Window* window() const { return m_window.get(); }

private:
    RepoManager& m_manager;
    PackageInstaller& m_installer;
    // Reads how it is drawn while the rest of the program starts.
    std::unique_ptr<kit::Window> m_prepared = std::make_unique<kit::Window>();
    std::unique_ptr<kit::Window> m_window;
};
