#include "ui/screens/browse/CategoriesViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/PackageListViewController.h"

namespace {

class CategoriesScreen : public ScreenTest
{
protected:
    CategoriesViewController* show() { return ScreenTest::show(new CategoriesViewController(*manager, *installer)); }
};

} // namespace

TEST_F(CategoriesScreen, hasATitleAndNoBarButtonsAndNothingToPull)
{
    auto* screen = show();
    EXPECT_EQ(screen->title(), QStringLiteral("Categories"));
    EXPECT_EQ(screen->navigationItem()->leftBarButtonItem(), nullptr);
    EXPECT_EQ(screen->navigationItem()->rightBarButtonItem(), nullptr);
    EXPECT_EQ(table()->refreshControl(), nullptr);
    EXPECT_EQ(table()->rowHeight(), 60);
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
}

TEST_F(CategoriesScreen, showsOneCentredRowWhenTheCatalogIsEmpty)
{
    show();
    EXPECT_EQ(table()->layout().sectionCount(), 1);
    EXPECT_EQ(table()->layout().rowCount(0), 1);
    EXPECT_EQ(table()->layout().headerHeight(0), 25);
    EXPECT_EQ(headerText(0), QStringLiteral("ALL CATEGORIES"));
    EXPECT_EQ(table()->headerView(0)->frame(), QRectF(0, 0, 390, 25));
    const kit::TableViewCell* row = cell(0, 0);
    EXPECT_EQ(row->reuseIdentifier(), QStringLiteral("CategoryCell"));
    EXPECT_EQ(row->style(), kit::TableViewCell::Style::Value1);
    EXPECT_EQ(text(0, 0), QStringLiteral("Refresh Vesk to load categories"));
    EXPECT_EQ(row->textLabel()->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(row->textLabel()->textColor(), ClassicUI::veskSecondaryTextColor());
    EXPECT_EQ(row->accessoryType(), kit::TableViewCell::AccessoryType::None);
    EXPECT_TRUE(row->imageView()->image().isNull());
    EXPECT_EQ(detail(0, 0), QString());
}

TEST_F(CategoriesScreen, onlyDeselectsTheEmptyRowWhenItIsTapped)
{
    show();
    table()->tapRow(0, 0);
    EXPECT_TRUE(isFadingOut(cell(0, 0)));
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(CategoriesScreen, listsEveryCategoryWithItsCount)
{
    addPackage(QStringLiteral("One"), QStringLiteral("Tweaks"));
    addPackage(QStringLiteral("Two"), QStringLiteral("games"));
    addPackage(QStringLiteral("Three"), QStringLiteral("Tweaks"));
    show();
    EXPECT_EQ(texts(0), (QStringList{ QStringLiteral("games"), QStringLiteral("Tweaks") }));
    EXPECT_EQ(detail(0, 0), QStringLiteral("1"));
    EXPECT_EQ(detail(0, 1), QStringLiteral("2"));
    const kit::TableViewCell* row = cell(0, 1);
    EXPECT_EQ(row->reuseIdentifier(), QStringLiteral("CategoryCell"));
    EXPECT_EQ(row->style(), kit::TableViewCell::Style::Value1);
    EXPECT_EQ(row->imageView()->image(), ClassicUI::assetNamed(QStringLiteral("Homepage")));
    EXPECT_EQ(row->accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
    EXPECT_EQ(row->frame(), QRectF(0, 85, 390, 60));
    EXPECT_EQ(static_cast<kit::ImageView*>(row->backgroundView())->image().identity(),
        ClassicUI::assetNamed(QStringLiteral("cellback2")).identity());
}

TEST_F(CategoriesScreen, hasOneRowForOneCategory)
{
    addPackage(QStringLiteral("One"), QStringLiteral("Tweaks"));
    show();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Tweaks")));
}

TEST_F(CategoriesScreen, pushesTheListOfTheTappedCategoryByItsName)
{
    addPackage(QStringLiteral("One"), QStringLiteral("Tweaks"));
    addPackage(QStringLiteral("Two"), QStringLiteral("Games"));
    show();
    kit::TableView* categories = table();
    EXPECT_TRUE(isPushedAnimated([&] { categories->tapRow(0, 1); }));
    EXPECT_TRUE(isFadingOut(categories->cellForRow({ 0, 1 })));
    ASSERT_NE(top<PackageListViewController>(), nullptr);
    EXPECT_EQ(top<PackageListViewController>()->category(), QStringLiteral("Tweaks"));
}

TEST_F(CategoriesScreen, readsTheCatalogAtEveryAppearanceAndNotInBetween)
{
    auto* screen = show();
    addPackage(QStringLiteral("One"), QStringLiteral("Tweaks"));
    EXPECT_TRUE(screen->categories().empty());
    appearAgain();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Tweaks")));
}

TEST_F(CategoriesScreen, leavesTheOldCountAndPictureBesideTheTextOfAnEmptyRowInAReusedCell)
{
    addPackage(QStringLiteral("One"), QStringLiteral("Tweaks"));
    show();
    const kit::TableViewCell* before = cell(0, 0);
    manager->setPackages({});
    appearAgain();
    ASSERT_EQ(cell(0, 0), before);
    EXPECT_EQ(text(0, 0), QStringLiteral("Refresh Vesk to load categories"));
    EXPECT_EQ(detail(0, 0), QStringLiteral("1"));
    EXPECT_EQ(cell(0, 0)->imageView()->image(), ClassicUI::assetNamed(QStringLiteral("Homepage")));
}

TEST_F(CategoriesScreen, putsACategoryAtTheLeftInAReusedEmptyRow)
{
    show();
    const kit::TableViewCell* before = cell(0, 0);
    addPackage(QStringLiteral("One"), QStringLiteral("Tweaks"));
    appearAgain();
    ASSERT_EQ(cell(0, 0), before);
    EXPECT_EQ(cell(0, 0)->textLabel()->textAlignment(), Qt::AlignLeft);
    EXPECT_EQ(cell(0, 0)->textLabel()->textColor(), ClassicUI::veskTextColor());
    EXPECT_EQ(cell(0, 0)->accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
}

TEST_F(CategoriesScreen, keepsApartCategoriesThatDifferInCaseOnly)
{
    addPackage(QStringLiteral("One"), QStringLiteral("Tweaks"));
    addPackage(QStringLiteral("Two"), QStringLiteral("tweaks"));
    show();
    EXPECT_EQ(texts(0).size(), 2);
}
