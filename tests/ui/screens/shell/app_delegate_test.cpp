#include "ui/screens/shell/AppDelegate.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/screens/shell/RootViewController.h"

#include <QQuickWindow>

namespace {

class Launch : public ScreenTest
{
protected:
    Launch() { addPackage(QStringLiteral("Alpha")); }

    AppDelegate delegate{ *manager, *installer };
};

} // namespace

TEST_F(Launch, opensOneWindowOnTheTabs)
{
    EXPECT_EQ(delegate.window(), nullptr);
    EXPECT_TRUE(delegate.didFinishLaunchingWithOptions());
    ASSERT_NE(delegate.window(), nullptr);
    const auto* root = qobject_cast<RootViewController*>(delegate.window()->rootViewController());
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->viewControllers().size(), 5U);
    ASSERT_NE(delegate.window()->quickWindow(), nullptr);
    EXPECT_TRUE(delegate.window()->quickWindow()->isVisible());
    EXPECT_EQ(delegate.window()->quickWindow()->title(), QStringLiteral("Vesk"));
}

TEST_F(Launch, startsNoRefreshOfACatalogThatIsNotEmpty)
{
    delegate.didFinishLaunchingWithOptions();
    turnLoop();
    EXPECT_TRUE(network->requestedURLs().isEmpty());
}

TEST_F(Launch, hasTheHomeScreenRefreshAnEmptyCatalog)
{
    manager->setPackages({});
    delegate.didFinishLaunchingWithOptions();
    EXPECT_TRUE(waitUntil([this] { return !network->requestedURLs().isEmpty(); }));
}

TEST_F(Launch, bringsAWindowToTheFrontThatWasPutAway)
{
    delegate.didFinishLaunchingWithOptions();
    QQuickWindow& shown = *delegate.window()->quickWindow();
    QWindow other;
    other.show();
    other.requestActivate();
    shown.setWindowStates(Qt::WindowMinimized);
    ASSERT_TRUE(waitUntil([&] { return !shown.isActive(); }));
    delegate.bringToFront(QString());
    EXPECT_TRUE(waitUntil([&] { return shown.isActive(); }));
    EXPECT_EQ(shown.windowStates() & Qt::WindowMinimized, Qt::WindowStates());
}

TEST_F(Launch, wantsLightStatusBarTexts)
{
    EXPECT_EQ(delegate.preferredStatusBarStyle(), StatusBarStyle::LightContent);
}
