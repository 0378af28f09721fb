#include "ui/screens/browse/SearchViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicPackageCell.h"
#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/PackageDetailViewController.h"
#include "ui/screens/browse/PackageListViewController.h"

namespace {

const QString EmptyText = QStringLiteral("Refresh Vesk before searching");

class SearchScreen : public ScreenTest
{
protected:
    SearchViewController* show() { return ScreenTest::show(new SearchViewController(*manager, *installer)); }
    kit::SearchBar* searchBar() const
    {
        return navigation->viewControllers().front()->navigationItem()->searchController()->searchBar();
    }
    void type(const QString& query) { searchBar()->setText(query); }
    void fillCatalog()
    {
        addPackage(QStringLiteral("Terminal"), QStringLiteral("Utilities"));
        addPackage(QStringLiteral("Icons"), QStringLiteral("Themes"));
        addPackage(QStringLiteral("Alarm"), QStringLiteral("Utilities"));
    }
};

} // namespace

TEST_F(SearchScreen, hasASearchFieldAndNoBarButtons)
{
    auto* screen = show();
    EXPECT_EQ(screen->title(), QStringLiteral("Search"));
    EXPECT_EQ(screen->navigationItem()->leftBarButtonItem(), nullptr);
    EXPECT_EQ(screen->navigationItem()->rightBarButtonItem(), nullptr);
    EXPECT_FALSE(screen->navigationItem()->hidesSearchBarWhenScrolling());
    ASSERT_NE(screen->searchController(), nullptr);
    EXPECT_EQ(screen->navigationItem()->searchController(), screen->searchController());
    EXPECT_FALSE(screen->navigationItem()->searchController()->obscuresBackgroundDuringPresentation());
    EXPECT_EQ(searchBar()->placeholder(), QStringLiteral("Search Vesk packages"));
    EXPECT_EQ(searchBar()->tintColor(), ClassicUI::veskBlueColor());
    EXPECT_TRUE(screen->currentQuery().isNull());
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
}

TEST_F(SearchScreen, browsesTheCategoriesBeforeAnythingIsTyped)
{
    fillCatalog();
    show();
    EXPECT_EQ(headerText(0), QStringLiteral("BROWSE CATEGORIES"));
    EXPECT_EQ(table()->layout().headerHeight(0), 25);
    EXPECT_EQ(texts(0), QStringList({ QStringLiteral("Themes"), QStringLiteral("Utilities") }));
    EXPECT_EQ(detail(0, 0), QStringLiteral("1"));
    EXPECT_EQ(detail(0, 1), QStringLiteral("2"));
    EXPECT_EQ(cell(0, 1)->reuseIdentifier(), QStringLiteral("CategoryCell"));
    EXPECT_EQ(cell(0, 1)->style(), kit::TableViewCell::Style::Value1);
    EXPECT_EQ(cell(0, 1)->imageView()->image(), ClassicUI::assetNamed(QStringLiteral("Homepage")));
    EXPECT_EQ(cell(0, 1)->accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
}

TEST_F(SearchScreen, showsOneCentredRowWhenTheCatalogIsEmpty)
{
    show();
    EXPECT_EQ(headerText(0), QStringLiteral("BROWSE CATEGORIES"));
    EXPECT_EQ(table()->layout().rowCount(0), 1);
    EXPECT_EQ(text(0, 0), EmptyText);
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("CategoryCell"));
    EXPECT_EQ(cell(0, 0)->textLabel()->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(cell(0, 0)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    EXPECT_TRUE(detail(0, 0).isEmpty());
    EXPECT_TRUE(cell(0, 0)->imageView()->image().isNull());
}

TEST_F(SearchScreen, onlyDeselectsTheEmptyRowWhenItIsTapped)
{
    show();
    table()->tapRow(0, 0);
    EXPECT_TRUE(isFadingOut(cell(0, 0)));
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(SearchScreen, reusesACategoryCellForTheEmptyRowWithoutItsCountAndBack)
{
    fillCatalog();
    show();
    const auto filled = manager->packages().all();
    manager->setPackages({});
    type(QStringLiteral("x"));
    type(QString());
    EXPECT_EQ(text(0, 0), EmptyText);
    EXPECT_TRUE(detail(0, 0).isEmpty());
    EXPECT_TRUE(cell(0, 0)->imageView()->image().isNull());
    manager->setPackages(filled);
    type(QStringLiteral("x"));
    type(QString());
    EXPECT_EQ(text(0, 0), QStringLiteral("Themes"));
    EXPECT_EQ(cell(0, 0)->textLabel()->textAlignment(), Qt::AlignLeft);
    EXPECT_EQ(cell(0, 0)->accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
}

TEST_F(SearchScreen, listsWhatMatchesInTheOrderOfTheCatalog)
{
    fillCatalog();
    show();
    type(QStringLiteral("AL"));
    EXPECT_EQ(headerText(0), QStringLiteral("SEARCH RESULTS"));
    EXPECT_EQ(table()->layout().headerHeight(0), 25);
    EXPECT_EQ(texts(0), QStringList({ QStringLiteral("Terminal"), QStringLiteral("Alarm") }));
    EXPECT_NE(qobject_cast<ClassicPackageCell*>(cell(0, 0)), nullptr);
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("PackageCell"));
    const auto background
        = [this](int row) { return qobject_cast<kit::ImageView*>(cell(0, row)->backgroundView())->image(); };
    EXPECT_EQ(background(0), ClassicUI::stretchableAsset(QStringLiteral("cellback1"), { 0, 12, 0, 12 }));
    EXPECT_EQ(background(1), ClassicUI::stretchableAsset(QStringLiteral("cellback2"), { 0, 12, 0, 12 }));
}

TEST_F(SearchScreen, hasNoCap)
{
    for (int number = 0; number < 500; ++number)
        addPackage(QStringLiteral("Package %1").arg(number));
    show();
    type(QStringLiteral("pack"));
    EXPECT_EQ(table()->layout().rowCount(0), 500);
}

TEST_F(SearchScreen, keepsItsHeaderAndHasNoRowsWhenNothingMatches)
{
    fillCatalog();
    show();
    type(QStringLiteral("nowhere to be found"));
    EXPECT_EQ(headerText(0), QStringLiteral("SEARCH RESULTS"));
    EXPECT_EQ(table()->layout().sectionCount(), 1);
    EXPECT_EQ(table()->layout().rowCount(0), 0);
}

TEST_F(SearchScreen, takesTheFieldsTextAsItIs)
{
    fillCatalog();
    auto* screen = show();
    type(QStringLiteral(" AbC "));
    EXPECT_EQ(screen->currentQuery(), QStringLiteral(" AbC "));
}

TEST_F(SearchScreen, searchesForASingleBlank)
{
    fillCatalog();
    addPackage(QStringLiteral("Two words"));
    show();
    type(QStringLiteral(" "));
    EXPECT_EQ(headerText(0), QStringLiteral("SEARCH RESULTS"));
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Two words")));
}

TEST_F(SearchScreen, returnsToTheCategoriesWhenTheFieldIsCleared)
{
    fillCatalog();
    show();
    type(QStringLiteral("alarm"));
    type(QStringLiteral(""));
    EXPECT_EQ(headerText(0), QStringLiteral("BROWSE CATEGORIES"));
    EXPECT_EQ(texts(0), QStringList({ QStringLiteral("Themes"), QStringLiteral("Utilities") }));
}

TEST_F(SearchScreen, returnsToTheCategoriesWhenTheSearchIsCancelled)
{
    fillCatalog();
    auto* screen = show();
    searchBar()->setActive(true);
    type(QStringLiteral("alarm"));
    searchBar()->cancel();
    EXPECT_FALSE(searchBar()->isActive());
    EXPECT_TRUE(screen->currentQuery().isEmpty());
    EXPECT_EQ(headerText(0), QStringLiteral("BROWSE CATEGORIES"));
}

TEST_F(SearchScreen, readsTheCategoriesAnewWhenAnEmptySearchIsCancelled)
{
    show();
    EXPECT_EQ(texts(0), QStringList(EmptyText));
    fillCatalog();
    searchBar()->setActive(true);
    searchBar()->cancel();
    EXPECT_EQ(texts(0), QStringList({ QStringLiteral("Themes"), QStringLiteral("Utilities") }));
}

TEST_F(SearchScreen, reloadsOnlyWhenItsQueryChanges)
{
    show();
    fillCatalog();
    appearAgain();
    EXPECT_EQ(text(0, 0), EmptyText);
    type(QStringLiteral("alarm"));
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Alarm")));
}

TEST_F(SearchScreen, pushesTheTappedPackage)
{
    fillCatalog();
    show();
    type(QStringLiteral("alarm"));
    kit::TableView* results = table();
    EXPECT_TRUE(isPushedAnimated([&] { results->tapRow(0, 0); }));
    EXPECT_TRUE(isFadingOut(results->cellForRow({ 0, 0 })));
    ASSERT_NE(top<PackageDetailViewController>(), nullptr);
    EXPECT_EQ(top<PackageDetailViewController>()->package(), manager->packages()[2]);
}

TEST_F(SearchScreen, pushesTheListOfTheTappedCategory)
{
    fillCatalog();
    show();
    kit::TableView* categories = table();
    EXPECT_TRUE(isPushedAnimated([&] { categories->tapRow(0, 1); }));
    EXPECT_TRUE(isFadingOut(categories->cellForRow({ 0, 1 })));
    ASSERT_NE(top<PackageListViewController>(), nullptr);
    EXPECT_EQ(top<PackageListViewController>()->category(), QStringLiteral("Utilities"));
}

TEST_F(SearchScreen, asksTheCatalogAgainAtATap)
{
    fillCatalog();
    show();
    type(QStringLiteral("al"));
    ASSERT_EQ(table()->layout().rowCount(0), 2);
    manager->setPackages({ manager->packages()[0] });
    table()->tapRow(0, 1);
    EXPECT_EQ(stackSize(), 1U);
    EXPECT_TRUE(isFadingOut(cell(0, 1)));
    table()->tapRow(0, 0);
    EXPECT_NE(top<PackageDetailViewController>(), nullptr);
}

TEST_F(SearchScreen, asksForTheCategoriesAgainAtATap)
{
    fillCatalog();
    show();
    manager->setPackages({});
    table()->tapRow(0, 1);
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(SearchScreen, showsNothingInARowWhosePackageIsGoneByTheTimeItIsDrawn)
{
    for (int number = 0; number < 40; ++number)
        addPackage(QStringLiteral("Package %1").arg(number), QStringLiteral("Section %1").arg(number));
    show();
    manager->setPackages({});
    table()->setContentOffset(600);
    EXPECT_TRUE(text(0, 20).isNull());
    fillCatalog();
    type(QStringLiteral("al"));
    manager->setPackages({});
    navigation->layOut({ 0, 0, 320, 600 });
    EXPECT_EQ(table()->layout().rowCount(0), 2);
}

TEST_F(SearchScreen, showsNothingInARowThatScrollsInAfterItsResultIsGone)
{
    for (int number = 0; number < 60; ++number)
        addPackage(QStringLiteral("Package %1").arg(number));
    show();
    type(QStringLiteral("package"));
    ASSERT_EQ(table()->layout().rowCount(0), 60);
    manager->setPackages({ manager->packages()[0] });
    table()->setContentOffset(1800);
    ASSERT_NE(cell(0, 32), nullptr);
    EXPECT_EQ(cell(0, 32)->reuseIdentifier(), QStringLiteral("GoneCell"));
    EXPECT_TRUE(text(0, 32).isNull());
    EXPECT_EQ(cell(0, 32)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    const auto* const background = qobject_cast<kit::ImageView*>(cell(0, 32)->backgroundView());
    ASSERT_NE(background, nullptr) << "it is drawn as the rows around it are";
    EXPECT_EQ(background->image(), ClassicUI::stretchableAsset(QStringLiteral("cellback1"), { 0, 12, 0, 12 }));
}
