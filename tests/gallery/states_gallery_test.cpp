// Empty states, and what a finger or a text leaves on the screen.
#include "tests/gallery/Gallery.h"

#include "ui/kit/navigation/SearchController.h"

namespace {

kit::SearchBar& searchBarOf(const kit::ViewController& screen)
{
    return *const_cast<kit::ViewController&>(screen).navigationItem()->searchController()->searchBar();
}

} // namespace

// The home screen has tried to load the catalog and got nothing.
TEST_F(AtScale1, emptyHome)
{
    open(Low);
    const auto* const reload = screen().navigationItem()->rightBarButtonItem();
    ASSERT_TRUE(waitUntil([&] { return !network->requestedURLs().isEmpty() && reload->isEnabled(); }));
    expectPicture(QStringLiteral("empty-home"));
}

TEST_F(AtScale1, emptyChanges)
{
    open(Tab::Changes, Low);
    expectPicture(QStringLiteral("empty-changes"));
}

TEST_F(AtScale1, emptyCategories)
{
    open(Tab::Categories, Low);
    expectPicture(QStringLiteral("empty-categories"));
}

TEST_F(AtScale1, emptyCategory)
{
    fillCatalog();
    open(Tab::Categories, Low);
    manager->setPackages({});
    tap(0, 2);
    expectPicture(QStringLiteral("empty-category"));
}

TEST_F(AtScale1, emptySearch)
{
    open(Tab::Search, Low);
    expectPicture(QStringLiteral("empty-search"));
}

TEST_F(AtScale1, emptyManage)
{
    open(Tab::Manage, Low);
    expectPicture(QStringLiteral("empty-manage"));
}

TEST_F(AtScale1, emptyInstalledApps)
{
    open(Tab::Manage, Low);
    tap(0, 1);
    expectPicture(QStringLiteral("empty-installed"));
}

TEST_F(AtScale1, emptyQueue)
{
    open(Tab::Manage, Low);
    tap(0, 2);
    expectPicture(QStringLiteral("empty-queue"));
}

TEST_F(AtScale1, emptySources)
{
    fillCatalog();
    open(Tab::Manage, Low);
    manager->setRepositories({});
    tap(0, 0);
    expectPicture(QStringLiteral("empty-sources"));
}

TEST_F(AtScale1, searchInUse)
{
    fillCatalog();
    open(Tab::Search, Low);
    searchBarOf(screen()).setActive(true);
    expectPicture(QStringLiteral("search-in-use"));
}

TEST_F(AtScale1, whatCanBeDoneWithTheSearchField)
{
    fillCatalog();
    open(Tab::Search, Low);
    searchBarOf(screen()).setActive(true);
    searchBarOf(screen()).setText(QStringLiteral("theme"));
    turnLoop();
    clickRightIntoField(QStringLiteral("shelf"));
    expectPicture(QStringLiteral("search-edit-menu"));
}

TEST_F(AtScale1, searchWithResults)
{
    fillCatalog();
    open(Tab::Search, Low);
    searchBarOf(screen()).setActive(true);
    searchBarOf(screen()).setText(QStringLiteral("wa"));
    expectPicture(QStringLiteral("search-results"));
}

TEST_F(AtScale1, searchWithoutResults)
{
    fillCatalog();
    open(Tab::Search, Low);
    searchBarOf(screen()).setActive(true);
    searchBarOf(screen()).setText(QStringLiteral("zzz"));
    expectPicture(QStringLiteral("search-no-results"));
}

TEST_F(AtScale1, pullOfTheTable)
{
    fillCatalog();
    open(Low);
    scrollTo(-52);
    expectPicture(QStringLiteral("pull"));
}

TEST_F(AtScale1, rowUnderThePointer)
{
    fillCatalog();
    open(Low);
    pointAt({ 200, 260 });
    expectPicture(QStringLiteral("hovered-row"));
}

TEST_F(AtScale1, buttonUnderThePointer)
{
    addSources();
    open(Tab::Manage, { 390, 520 });
    tap(0, 0);
    pointAt({ 350, 355 });
    expectPicture(QStringLiteral("hovered-button"));
}

// And a bar button that is disabled meanwhile.
TEST_F(AtScale1, pressedRow)
{
    fillCatalog();
    open(Low);
    screen().navigationItem()->rightBarButtonItem()->setEnabled(false);
    shownTable().pressRow(0, 1, true);
    expectPicture(QStringLiteral("pressed-row"));
}

TEST_F(AtScale1, openDeleteRowOfASource)
{
    addSources();
    fillCatalog();
    open(Tab::Manage, Low);
    tap(0, 0);
    shownTable().openRow()->open(0, 1);
    expectPicture(QStringLiteral("delete-source"));
}

TEST_F(AtScale1, openDeleteRowOfTheQueue)
{
    fillCatalog();
    queue(QStringLiteral("Almanac"), QueueActionInstall, QueueStatusQueued);
    queue(QStringLiteral("Signalbox"), QueueActionUpgrade, QueueStatusFailed);
    open(Tab::Manage, Low);
    tap(0, 2);
    shownTable().openRow()->open(0, 0);
    expectPicture(QStringLiteral("delete-queued"));
}

TEST_F(AtScale1, excessiveTexts)
{
    fillCatalogExcessively();
    open(Tab::Changes, Low);
    expectPicture(QStringLiteral("excessive-list"));
}

TEST_F(AtScale1, excessivePackage)
{
    fillCatalogExcessively();
    open(Tab::Changes, Low);
    tap(0, 1);
    expectPicture(QStringLiteral("excessive-package"));
}

TEST_F(AtScale1, excessiveCategories)
{
    fillCatalogExcessively();
    open(Tab::Categories, Low);
    expectPicture(QStringLiteral("excessive-categories"));
}

TEST_F(AtScale1, excessiveQueue)
{
    fillCatalogExcessively();
    const QString name = manager->packagesSortedByName()[1]->name();
    queue(name, QueueActionUninstall, QueueStatusDownloading);
    queue(QStringLiteral("Long Version"), QueueActionUpgrade, QueueStatusInstalling);
    open(Tab::Manage, Low);
    tap(0, 2);
    expectPicture(QStringLiteral("excessive-queue"));
}

TEST_F(AtScale1, excessiveSource)
{
    fillCatalog();
    manager->repositories().front()->setName(QStringLiteral("A Source Called After Everybody Who Ever Uploaded to It"));
    manager->repositories().front()->setUrlString(
        QStringLiteral("http://127.0.0.1/a/path/that/goes/down/and/down/and/never/seems/to/reach/a/file"));
    open(Tab::Manage, Low);
    tap(0, 0);
    expectPicture(QStringLiteral("excessive-source"));
}
