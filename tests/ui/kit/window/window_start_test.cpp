// What a window does as it opens, and what it takes with it.
#include "tests/ui/kit/navigation/LifeRecorder.h"
#include "ui/kit/alert/AlertController.h"
#include "ui/kit/window/Window.h"

#include <QPointer>
#include <QQuickWindow>

#include <gtest/gtest.h>

namespace {

class Start : public testing::Test
{
protected:
    Start() { window->setRootViewController(root); }

    QStringList moments;
    std::unique_ptr<kit::Window> window = std::make_unique<kit::Window>();
    LifeRecorder* const root = new LifeRecorder(QStringLiteral("root"), moments);
};

} // namespace

TEST_F(Start, tellsItsScreenThatItAppearedOnceItIsShown)
{
    window->makeKeyAndVisible(QStringLiteral("Kit"));
    EXPECT_EQ(moments,
        (QStringList{
            QStringLiteral("root loaded"), QStringLiteral("root will appear"), QStringLiteral("root did appear") }));
    EXPECT_TRUE(window->quickWindow()->isVisible());
    EXPECT_EQ(window->quickWindow()->title(), QStringLiteral("Kit"));
}

TEST_F(Start, ownsItsScreenAndTheAlertsThatArePresented)
{
    window->makeKeyAndVisible(QStringLiteral("Kit"));
    const QPointer<kit::ViewController> screen(root);
    const QPointer<kit::AlertController> alert(new kit::AlertController(
        QStringLiteral("Title"), QStringLiteral("Message"), kit::AlertController::Style::Alert));
    root->present(alert);
    ASSERT_EQ(window->presentedAlert(), alert);
    window.reset();
    EXPECT_TRUE(screen.isNull());
    EXPECT_TRUE(alert.isNull());
}
