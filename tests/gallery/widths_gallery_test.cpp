// From the narrowest phone to a wide desktop window, upright and on the side.
#include "tests/gallery/Gallery.h"

namespace {

constexpr QSize Tablet(768, 440);
constexpr QSize Desktop(1280, 440);
constexpr QSize LargeTablet(1024, 768);
constexpr QSize LargeDesktop(1280, 800);

} // namespace

// What a person comes by on the way to installing something, one after the other.
void Gallery::expectTheWay(const QString& device, const QSize& size)
{
    fillCatalog();
    queue(QStringLiteral("Birdsong"), QueueActionInstall, QueueStatusDownloading);
    queue(QStringLiteral("Driftwood"), QueueActionUpgrade, QueueStatusFailed);
    open(size);
    expectPicture(device + QStringLiteral("-home"));
    tap(0, 3);
    expectPicture(device + QStringLiteral("-package"));
    select(Tab::Search);
    expectPicture(device + QStringLiteral("-search"));
    select(Tab::Manage);
    expectPicture(device + QStringLiteral("-manage"));
    tap(0, 2);
    expectPicture(device + QStringLiteral("-queue"));
}

TEST_F(OnASmallPhone, theWayUpright)
{
    expectTheWay(QStringLiteral("way"), {});
}

TEST_F(OnAPhoneOnItsSide, theWay)
{
    expectTheWay(QStringLiteral("way"), {});
}

TEST_F(AtScale1, theWayOnATablet)
{
    expectTheWay(QStringLiteral("tablet-upright"), { 768, 1024 });
}

TEST_F(AtScale1, theWayOnATabletOnItsSide)
{
    expectTheWay(QStringLiteral("tablet-on-its-side"), { 1024, 768 });
}

TEST_F(AtScale1, theWayOnADesktop)
{
    expectTheWay(QStringLiteral("desktop"), { 1280, 720 });
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

TEST_F(OnAPhoneOnItsSide, sheet)
{
    fillCatalog();
    open(Tab::Manage);
    tap(2, 0);
    expectPicture(QStringLiteral("sheet"));
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
