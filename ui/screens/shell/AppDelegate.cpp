#include "ui/screens/shell/AppDelegate.h"

#include "ui/classic/ClassicUI.h"
#include "ui/kit/paint/Animations.h"
#include "ui/kit/paint/TextScale.h"
#include "ui/screens/shell/RootViewController.h"

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
    m_window = std::make_unique<kit::Window>();
    m_window->setRootViewController(new RootViewController(m_manager, m_installer));
    m_window->makeKeyAndVisible(QStringLiteral("Vesk"));
    return true;
}
