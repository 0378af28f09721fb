#include "tests/e2e/window/WindowTest.h"

WindowTest::WindowTest() = default;

WindowTest::~WindowTest()
{
    touch.reset();
    window.reset();
}

void WindowTest::open()
{
    window = std::make_unique<kit::Window>();
    window->setRootViewController(new RootViewController(*manager, *installer));
    window->makeKeyAndVisible(QStringLiteral("Vesk"));
    touch = std::make_unique<TouchDriver>(*window);
    ASSERT_TRUE(touch->settle());
}

void WindowTest::addPackages(int count)
{
    for (int number = 1; number <= count; ++number)
        addPackage(QStringLiteral("Package %1").arg(number, 3, 10, QLatin1Char('0')),
            QStringLiteral("Section %1").arg(number % 3 + 1));
}
