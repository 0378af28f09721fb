#include "ui/screens/browse/PackageListViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicPackageCell.h"
#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/PackageDetailViewController.h"

namespace {

class PackageListScreen : public ScreenTest
{
protected:
    PackageListViewController* show()
    {
        return ScreenTest::show(new PackageListViewController(QStringLiteral("Tweaks"), *manager, *installer));
    }
    VeskPackagePtr addTweak(const QString& name) { return addPackage(name, QStringLiteral("Tweaks")); }
};

} // namespace

TEST_F(PackageListScreen, isTitledWithItsCategory)
{
    auto* screen = show();
    EXPECT_EQ(screen->title(), QStringLiteral("Tweaks"));
    EXPECT_EQ(screen->category(), QStringLiteral("Tweaks"));
    EXPECT_EQ(table()->rowHeight(), 60);
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
    EXPECT_EQ(table()->refreshControl(), nullptr);
}

TEST_F(PackageListScreen, showsTheBareCategoryAndOneCentredRowWhenItHasNoPackages)
{
    addPackage(QStringLiteral("Elsewhere"), QStringLiteral("tweaks"));
    show();
    EXPECT_EQ(headerText(0), QStringLiteral("TWEAKS"));
    EXPECT_EQ(table()->layout().sectionCount(), 1);
    EXPECT_EQ(table()->layout().headerHeight(0), 25);
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("No packages in this category")));
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("EmptyCell"));
    EXPECT_EQ(cell(0, 0)->style(), kit::TableViewCell::Style::Default);
    EXPECT_EQ(cell(0, 0)->textLabel()->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(cell(0, 0)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    table()->tapRow(0, 0);
    EXPECT_TRUE(isFadingOut(cell(0, 0)));
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(PackageListScreen, hasOneEmptyRowBeforeItsFirstLoad)
{
    PackageListViewController screen(QStringLiteral("Tweaks"), *manager, *installer);
    addTweak(QStringLiteral("One"));
    EXPECT_EQ(screen.numberOfRowsInSection(0), 1);
    EXPECT_TRUE(screen.packages().empty());
}

TEST_F(PackageListScreen, saysPackagesForASingleOneToo)
{
    addTweak(QStringLiteral("One"));
    show();
    EXPECT_EQ(headerText(0), QStringLiteral("TWEAKS  \u2022  1 PACKAGES"));
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("One")));
}

TEST_F(PackageListScreen, sortsByNameWithoutRegardToCase)
{
    addTweak(QStringLiteral("banana"));
    addTweak(QStringLiteral("Cherry"));
    addTweak(QStringLiteral("apple"));
    addTweak(QStringLiteral("Apricot"));
    addPackage(QStringLiteral("Aardvark"), QStringLiteral("Games"));
    show();
    EXPECT_EQ(texts(0),
        (QStringList{
            QStringLiteral("apple"), QStringLiteral("Apricot"), QStringLiteral("banana"), QStringLiteral("Cherry") }));
    EXPECT_EQ(headerText(0), QStringLiteral("TWEAKS  \u2022  4 PACKAGES"));
}

TEST_F(PackageListScreen, showsPackageCellsOfAlternatingBackgrounds)
{
    addTweak(QStringLiteral("One"));
    addTweak(QStringLiteral("Two"));
    show();
    EXPECT_NE(qobject_cast<ClassicPackageCell*>(cell(0, 0)), nullptr);
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("PackageCell"));
    const auto background
        = [this](int row) { return static_cast<kit::ImageView*>(cell(0, row)->backgroundView())->image().identity(); };
    EXPECT_EQ(background(0), ClassicUI::assetNamed(QStringLiteral("cellback1")).identity());
    EXPECT_EQ(background(1), ClassicUI::assetNamed(QStringLiteral("cellback2")).identity());
}

TEST_F(PackageListScreen, pushesTheTappedPackage)
{
    addTweak(QStringLiteral("Zebra"));
    const VeskPackagePtr apple = addTweak(QStringLiteral("Apple"));
    show();
    kit::TableView* list = table();
    EXPECT_TRUE(isPushedAnimated([&] { list->tapRow(0, 0); }));
    EXPECT_TRUE(isFadingOut(list->cellForRow({ 0, 0 })));
    ASSERT_NE(top<PackageDetailViewController>(), nullptr);
    EXPECT_EQ(top<PackageDetailViewController>()->package(), apple);
}

TEST_F(PackageListScreen, readsTheCatalogAgainAtEveryAppearance)
{
    show();
    addTweak(QStringLiteral("Late"));
    appearAgain();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Late")));
    EXPECT_EQ(headerText(0), QStringLiteral("TWEAKS  \u2022  1 PACKAGES"));
}

TEST_F(PackageListScreen, readsTheCatalogAndDownloadsNothingWhenReloadIsPressed)
{
    auto* screen = show();
    const kit::BarButtonItem* button = screen->navigationItem()->rightBarButtonItem();
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->title(), QStringLiteral("Reload"));
    EXPECT_EQ(button->style(), kit::BarButtonItem::Style::Plain);
    addTweak(QStringLiteral("Late"));
    screen->navigationItem()->rightBarButtonItem()->press();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Late")));
    EXPECT_TRUE(network->requestedURLs().isEmpty());
    EXPECT_TRUE(button->isEnabled());
}

TEST_F(PackageListScreen, canBeTheListOfACategoryWithAnEmptyName)
{
    addPackage(QStringLiteral("One"), QStringLiteral(""));
    ScreenTest::show(new PackageListViewController(QStringLiteral(""), *manager, *installer));
    EXPECT_EQ(headerText(0), QStringLiteral("  \u2022  1 PACKAGES"));
}
