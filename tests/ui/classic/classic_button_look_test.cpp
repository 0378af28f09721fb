// How a classic button looks while it is pressed, and while it is disabled.
#include "ui/classic/ClassicUI.h"
#include "ui/kit/window/Window.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr int generousMilliseconds = 20000;

// A window that shows one button.
class ClassicButtonLook : public testing::Test
{
protected:
    ClassicButtonLook()
        : button(ClassicUI::classicButtonWithTitle(QStringLiteral("Add"), ClassicUI::ButtonKind::Normal))
    {
        auto* screen = new kit::ViewController;
        window.setRootViewController(new kit::NavigationController(screen));
        button->setFrame({ 40, 40, 120, 30 });
        screen->view()->addSubview(button);
        window.makeKeyAndVisible(QStringLiteral("Button"));
    }

    QQuickWindow& quick() const { return *window.quickWindow(); }
    bool isShown() const
    {
        return QTest::qWaitFor([this] { return item() != nullptr; }, generousMilliseconds);
    }
    const QQuickItem* item() const
    {
        for (const QQuickItem* found : quick().contentItem()->findChildren<QQuickItem*>())
            if (QLatin1String(found->metaObject()->className()).startsWith(QStringLiteral("ButtonView")))
                return found;
        return nullptr;
    }
    QPoint pointAt(const QPointF& place) const { return item()->mapToScene(place).toPoint(); }
    QColor colorAt(const QPointF& place) const { return quick().grabWindow().pixelColor(pointAt(place)); }
    // Beside the title, and beside the button.
    QColor face() const { return colorAt({ 16, 15 }); }
    QColor page() const { return colorAt({ -10, 15 }); }

    kit::Window window;
    kit::Button* button;
};

int between(int one, int other)
{
    return (one + other) / 2;
}

} // namespace

TEST_F(ClassicButtonLook, isDarkerWhileItIsPressedAndAsBeforeThen)
{
    ASSERT_TRUE(isShown());
    const QColor normal = face();
    QTest::mousePress(&quick(), Qt::LeftButton, {}, pointAt({ 60, 15 }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return face().lightness() < normal.lightness() - 10; }, generousMilliseconds));
    QTest::mouseRelease(&quick(), Qt::LeftButton, {}, pointAt({ 60, 15 }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return face() == normal; }, generousMilliseconds));
}

TEST_F(ClassicButtonLook, letsHalfOfThePageThroughWhileItIsDisabled)
{
    ASSERT_TRUE(isShown());
    const QColor normal = face();
    button->setEnabled(false);
    EXPECT_NEAR(face().red(), between(normal.red(), page().red()), 2);
    EXPECT_NEAR(face().green(), between(normal.green(), page().green()), 2);
    EXPECT_NEAR(face().blue(), between(normal.blue(), page().blue()), 2);
    EXPECT_NE(face(), normal);
}
