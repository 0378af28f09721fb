// From the narrowest phone to a wide desktop window, upright and on the side.
#include "Gallery.h"

namespace {

constexpr QSize Tablet(768, 440);
constexpr QSize Desktop(1280, 440);
constexpr QSize LargeTablet(1024, 768);
constexpr QSize LargeDesktop(1280, 800);

} // namespace

TEST_F(OnASmallPhone, home)
{
    fillCatalog();
    open();
    expectPicture(QStringLiteral("home"));
}

TEST_F(OnASmallPhone, package)
{
    fillCatalog();
    open();
    tap(0, 3);
    scrollToEnd();
    expectPicture(QStringLiteral("package"));
}

TEST_F(OnASmallPhone, sources)
{
    addSources();
    fillCatalog();
    open(Tab::Manage);
    tap(0, 0);
    expectPicture(QStringLiteral("sources"));
}

TEST_F(OnASmallPhone, excessiveQueue)
{
    fillCatalogExcessively();
    queue(manager->packagesSortedByName()[1]->name(), QueueActionUninstall, QueueStatusDownloading);
    open(Tab::Manage);
    tap(0, 2);
    expectPicture(QStringLiteral("queue"));
}

TEST_F(AtScale1, alertInALowWindow)
{
    fillCatalog();
    open(Tab::Manage, { 320, 320 });
    tap(1, 0);
    expectPicture(QStringLiteral("alert-low-window"));
}

TEST_F(OnAPhoneOnItsSide, home)
{
    fillCatalog();
    open();
    expectPicture(QStringLiteral("home"));
}

TEST_F(OnAPhoneOnItsSide, sheet)
{
    fillCatalog();
    open(Tab::Manage);
    tap(2, 0);
    expectPicture(QStringLiteral("sheet"));
}

TEST_F(OnAPhoneOnItsSide, search)
{
    fillCatalog();
    open(Tab::Search);
    expectPicture(QStringLiteral("search"));
}

TEST_F(AtScale1, tabletManage)
{
    fillCatalog();
    open(Tab::Manage, Tablet);
    expectPicture(QStringLiteral("tablet-manage"));
}

TEST_F(AtScale1, tabletSources)
{
    addSources();
    fillCatalog();
    open(Tab::Manage, Tablet);
    tap(0, 0);
    expectPicture(QStringLiteral("tablet-sources"));
}

TEST_F(AtScale1, sheetBelowItsRow)
{
    fillCatalog();
    open(Tab::Manage, LargeTablet);
    tap(2, 0);
    expectPicture(QStringLiteral("tablet-sheet"));
}

TEST_F(AtScale1, sheetAboveItsRow)
{
    fillCatalog();
    open(Tab::Manage, LargeDesktop);
    scrollToEnd();
    tap(2, 5);
    expectPicture(QStringLiteral("desktop-sheet"));
}

TEST_F(AtScale1, desktopChanges)
{
    fillCatalog();
    open(Tab::Changes, Desktop);
    expectPicture(QStringLiteral("desktop-changes"));
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
    scrollToEnd();
    expectPicture(QStringLiteral("desktop-package"));
}
