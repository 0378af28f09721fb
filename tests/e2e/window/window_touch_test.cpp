// What a finger does to the real window, drawn by the software renderer.
#include "WindowTest.h"

#include "PackageDetailViewController.h"
#include "PackageListViewController.h"

TEST_F(WindowTest, pushesTheScreenOfATappedRowAndComesBack)
{
    addPackages(3);
    open();
    ASSERT_TRUE(touch->tapRow({ 0, 1 }));
    EXPECT_TRUE(touch->waitUntil([&] { return touch->title() == QStringLiteral("Package 002"); }));
    EXPECT_NE(qobject_cast<PackageDetailViewController*>(&touch->screen()), nullptr);
    ASSERT_TRUE(touch->tapBarButton(QStringLiteral("Back")));
    EXPECT_TRUE(touch->waitUntil([&] { return touch->title() == QStringLiteral("Welcome to Vesk"); }));
}
