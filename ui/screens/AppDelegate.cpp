#include "AppDelegate.h"

#include "RootViewController.h"

bool AppDelegate::didFinishLaunchingWithOptions()
{
    m_window = std::make_unique<Window>();
    m_window->setRootViewController(new RootViewController);
    m_window->makeKeyAndVisible(QStringLiteral("Vesk"));
    return true;
}
