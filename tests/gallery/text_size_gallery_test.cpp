// Every kind of screen for a person who wants texts twice as large: nothing overlaps, nothing leaves its row, and what
// was not cut short before is not cut short now.
#include "tests/gallery/Gallery.h"

#include "ui/kit/navigation/SearchController.h"

TEST_F(WithLargeTexts, home)
{
    fillCatalog();
    open();
    expectPicture(QStringLiteral("home"));
}

TEST_F(WithLargeTexts, changesOnASmallPhone)
{
    fillCatalog();
    open(Tab::Changes, { 320, 568 });
    expectPicture(QStringLiteral("small-changes"));
}

TEST_F(WithLargeTexts, homeAtItsEnd)
{
    fillCatalog();
    open(Low);
    scrollToEnd();
    expectPicture(QStringLiteral("home-end"));
}

TEST_F(WithLargeTexts, excessiveTexts)
{
    fillCatalogExcessively();
    open(Tab::Changes);
    expectPicture(QStringLiteral("list"));
}

TEST_F(WithLargeTexts, package)
{
    fillCatalog();
    open();
    tap(0, 0);
    expectPicture(QStringLiteral("package"));
}

TEST_F(WithLargeTexts, packageAtItsEnd)
{
    fillCatalog();
    open(Tab::Changes);
    tap(0, 3);
    scrollToEnd();
    expectPicture(QStringLiteral("package-end"));
}

TEST_F(WithLargeTexts, excessivePackage)
{
    fillCatalogExcessively();
    open(Tab::Changes, { 320, 568 });
    tap(0, 1);
    scrollToEnd();
    expectPicture(QStringLiteral("small-package"));
}

TEST_F(WithLargeTexts, category)
{
    fillCatalog();
    open(Tab::Categories, Low);
    tap(0, 7);
    expectPicture(QStringLiteral("category"));
}

TEST_F(WithLargeTexts, searchInUse)
{
    fillCatalog();
    open(Tab::Search, Low);
    kit::SearchBar& bar = *screen().navigationItem()->searchController()->searchBar();
    bar.setActive(true);
    bar.setText(QStringLiteral("wa"));
    expectPicture(QStringLiteral("search"));
}

TEST_F(WithLargeTexts, emptySearch)
{
    open(Tab::Search, Low);
    expectPicture(QStringLiteral("empty-search"));
}

TEST_F(WithLargeTexts, manage)
{
    fillCatalog();
    open(Tab::Manage);
    expectPicture(QStringLiteral("manage"));
}

TEST_F(WithLargeTexts, sources)
{
    addSources();
    fillCatalog();
    open(Tab::Manage);
    tap(0, 0);
    shownTable().openRow()->open(0, 1);
    expectPicture(QStringLiteral("sources"));
}

TEST_F(WithLargeTexts, queueWithEveryStatus)
{
    fillCatalog();
    queueEveryStatus(QueueStatusInstalling);
    open(Tab::Manage);
    tap(0, 2);
    expectPicture(QStringLiteral("queue"));
}

TEST_F(WithLargeTexts, aboutAlert)
{
    fillCatalog();
    open({ 390, 520 });
    screen().navigationItem()->leftBarButtonItem()->press();
    expectPicture(QStringLiteral("alert-about"));
}

TEST_F(WithLargeTexts, addSourceAlert)
{
    fillCatalog();
    open(Tab::Manage, Low);
    tap(0, 0);
    screen().navigationItem()->rightBarButtonItem()->press();
    alert().textFields().first()->setText(QStringLiteral("http://127.0.0.1/shelf"));
    expectPicture(QStringLiteral("alert-add-source"));
}

TEST_F(WithLargeTexts, uninstallSheet)
{
    fillCatalog();
    open(Tab::Manage, { 390, 520 });
    tap(2, 0);
    expectPicture(QStringLiteral("sheet"));
}
