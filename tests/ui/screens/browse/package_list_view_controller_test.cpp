#include "ui/screens/browse/PackageListViewController.h"

#include "tests/ui/screens/ScreenWorld.h"

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
    EXPECT_EQ(table()->refreshControl(), nullptr);
}

TEST_F(PackageListScreen, showsTheBareCategoryAndSaysSoWhenItHasNoPackages)
{
    addPackage(QStringLiteral("Elsewhere"), QStringLiteral("tweaks"));
    show();
    EXPECT_EQ(headerText(0), QStringLiteral("TWEAKS"));
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("No packages in this category")));
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

TEST_F(PackageListScreen, readsTheCatalogAndDownloadsNothingWhenReloadIsPressed)
{
    auto* screen = show();
    const kit::BarButtonItem* button = screen->navigationItem()->rightBarButtonItem();
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->title(), QStringLiteral("Reload"));
    EXPECT_EQ(button->style(), kit::BarButtonItem::Style::Plain);
    EXPECT_EQ(button->shortcut(), QStringLiteral("F5; Ctrl+R"));
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
