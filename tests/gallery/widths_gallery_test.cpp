// From the narrowest phone to a wide desktop window, upright and on the side.
#include "Gallery.h"

#include "SearchController.h"

namespace {

constexpr QSize Narrow(320, 568);
constexpr QSize Landscape(844, 390);
constexpr QSize Tablet(768, 1024);
constexpr QSize Desktop(1280, 720);

} // namespace

TEST_F(AtScale1, narrowHome)
{
    fillCatalog();
    open(Narrow);
    expectPicture(QStringLiteral("narrow-home"));
}

TEST_F(AtScale1, narrowPackage)
{
    fillCatalog();
    open(Narrow);
    tap(0, 3);
    scrollToEnd();
    expectPicture(QStringLiteral("narrow-package"));
}

TEST_F(AtScale1, narrowSources)
{
    addSources();
    fillCatalog();
    open(Tab::Manage, Narrow);
    tap(0, 0);
    expectPicture(QStringLiteral("narrow-sources"));
}

TEST_F(AtScale1, narrowAlert)
{
    fillCatalog();
    open(Tab::Manage, { 320, 320 });
    tap(1, 0);
    expectPicture(QStringLiteral("narrow-alert"));
}

TEST_F(AtScale1, landscapeHome)
{
    fillCatalog();
    open(Landscape);
    expectPicture(QStringLiteral("landscape-home"));
}

TEST_F(AtScale1, landscapeSheet)
{
    fillCatalog();
    open(Tab::Manage, Landscape);
    tap(2, 0);
    expectPicture(QStringLiteral("landscape-sheet"));
}

TEST_F(AtScale1, tabletHome)
{
    fillCatalog();
    open(Tablet);
    expectPicture(QStringLiteral("tablet-home"));
}

TEST_F(AtScale1, tabletManage)
{
    fillCatalog();
    open(Tab::Manage, Tablet);
    expectPicture(QStringLiteral("tablet-manage"));
}

TEST_F(AtScale1, desktopHome)
{
    fillCatalog();
    open(Desktop);
    expectPicture(QStringLiteral("desktop-home"));
}

TEST_F(AtScale1, desktopSearch)
{
    fillCatalog();
    open(Tab::Search, Desktop);
    expectPicture(QStringLiteral("desktop-search"));
}

TEST_F(AtScale1, desktopPackage)
{
    fillCatalog();
    open(Desktop);
    tap(0, 3);
    expectPicture(QStringLiteral("desktop-package"));
}

// The layout follows the window, also where the screen was made for another width.
TEST_F(AtScale1, widenedHome)
{
    fillCatalog();
    open(Narrow);
    quickWindow().resize(Landscape);
    ASSERT_TRUE(waitUntil([this] { return tabs().view()->width() == Landscape.width(); }));
    expectPicture(QStringLiteral("widened-home"));
}
