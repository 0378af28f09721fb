// Every screen with a catalog, and where it scrolls to.
#include "tests/gallery/Gallery.h"

#include "ui/kit/navigation/SearchController.h"

TEST_F(AtScale1, home)
{
    fillCatalog();
    open();
    expectPicture(QStringLiteral("home"));
}

TEST_F(AtScale1, homePinsASectionsHeader)
{
    fillCatalog();
    open(Low);
    scrollTo(290);
    expectPicture(QStringLiteral("home-pinned-header"));
}

TEST_F(AtScale1, homePushesThePinnedHeaderUp)
{
    fillCatalog();
    open(Low);
    scrollTo(185 + 25 + 8 * 60 - 12);
    expectPicture(QStringLiteral("home-pushed-header"));
}

TEST_F(AtScale1, homeAtItsEnd)
{
    fillCatalog();
    open(Low);
    scrollToEnd();
    expectPicture(QStringLiteral("home-end"));
}

TEST_F(AtScale1, changes)
{
    fillCatalog();
    open(Tab::Changes, Low);
    expectPicture(QStringLiteral("changes"));
}

TEST_F(AtScale1, categories)
{
    fillCatalog();
    open(Tab::Categories, Low);
    expectPicture(QStringLiteral("categories"));
}

TEST_F(AtScale1, packagesOfACategory)
{
    fillCatalog();
    open(Tab::Categories, Low);
    tap(0, 7);
    expectPicture(QStringLiteral("category"));
}

TEST_F(AtScale1, search)
{
    fillCatalog();
    open(Tab::Search, Low);
    expectPicture(QStringLiteral("search"));
}

TEST_F(AtScale1, manage)
{
    fillCatalog();
    open(Tab::Manage);
    expectPicture(QStringLiteral("manage"));
}

TEST_F(AtScale1, sources)
{
    addSources();
    fillCatalog();
    open(Tab::Manage, Low);
    tap(0, 0);
    expectPicture(QStringLiteral("sources"));
}

TEST_F(AtScale1, installedApps)
{
    fillCatalog();
    open(Tab::Manage, Low);
    tap(0, 1);
    expectPicture(QStringLiteral("installed"));
}

TEST_F(AtScale1, queueWithEveryStatus)
{
    fillCatalog();
    queueEveryStatus();
    open(Tab::Manage);
    tap(0, 2);
    expectPicture(QStringLiteral("queue"));
}

TEST_F(AtScale1, packageToInstall)
{
    fillCatalog();
    open();
    tap(0, 0);
    expectPicture(QStringLiteral("package"));
}

TEST_F(AtScale1, packageThatIsInstalled)
{
    fillCatalog();
    open(Low);
    tap(0, 1);
    expectPicture(QStringLiteral("package-installed"));
}

TEST_F(AtScale1, packageWithAnUpdate)
{
    fillCatalog();
    open(Tab::Changes, Low);
    tap(0, 3);
    expectPicture(QStringLiteral("package-update"));
}

TEST_F(AtScale1, packageWithoutDescription)
{
    fillCatalog();
    packageNamed(QStringLiteral("Daybreak"))->setRepository(nullptr);
    open(Tab::Categories, Low);
    showPackage(packageNamed(QStringLiteral("Daybreak")));
    expectPicture(QStringLiteral("package-without-description"));
}
