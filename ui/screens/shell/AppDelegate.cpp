#include "ui/screens/shell/AppDelegate.h"

#include "ui/classic/ClassicUI.h"
#include "ui/kit/paint/Animations.h"
#include "ui/kit/text/TextScale.h"
#include "ui/screens/shell/RootViewController.h"

#include <QGuiApplication>
#include <QQuickWindow>

AppDelegate::AppDelegate()
    : AppDelegate(*RepoManager::sharedManager(), PackageInstaller::sharedInstaller())
{
}

AppDelegate::AppDelegate(RepoManager& manager, PackageInstaller& installer)
    : m_manager(manager)
    , m_installer(installer)
{
    ClassicUI::setIconNetwork(&manager.network());
}

AppDelegate::~AppDelegate()
{
    ClassicUI::setIconNetwork(nullptr);
}

void AppDelegate::follow(DesktopPreferences& preferences)
{
    const auto take = [this, &preferences] {
        kit::TextScale::set(preferences.textScale());
        kit::Animations::setEnabled(preferences.hasAnimations());
        if (m_window)
            m_window->drawAnew();
    };
    take();
    preferences.setChanged(take);
}

bool AppDelegate::didFinishLaunchingWithOptions()
{
    m_window = std::move(m_prepared);
    m_window->setRootViewController(new RootViewController(m_manager, m_installer));
    m_window->makeKeyAndVisible(QStringLiteral("Vesk"));
    return true;
}

// Qt takes the token out of the environment, and out again. While dpkg may be started the environment is left alone: a
// child could be given half of it.
void AppDelegate::bringToFront(const QString& activationToken)
{
    const bool isWayland = QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    if (isWayland && !activationToken.isEmpty() && !m_installer.isInstalling())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    QQuickWindow& window = *m_window->quickWindow();
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.raise();
    window.requestActivate();
}
