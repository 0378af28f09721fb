#include "ui/screens/browse/VeskHomeViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicPackageCell.h"
#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/PackageDetailViewController.h"
#include "ui/screens/browse/PackageListViewController.h"

namespace {

enum { Featured, Categories };

class HomeScreen : public ScreenTest
{
protected:
    // The network answers only when it is told to, so that the refresh of an empty catalog does not end by itself.
    HomeScreen() { network->hold(); }

    VeskHomeViewController* show() { return ScreenTest::show(new VeskHomeViewController(*manager, *installer)); }
    VeskHomeViewController* showFilled()
    {
        addPackage(QStringLiteral("Alpha"), QStringLiteral("Tweaks"));
        return show();
    }
    static kit::BarButtonItem* reloadButton(VeskHomeViewController* screen)
    {
        return screen->navigationItem()->rightBarButtonItem();
    }
    kit::RefreshControl* refreshControl() const { return table()->refreshControl(); }
    void addPackages(int count)
    {
        for (int number = count; number > 0; --number)
            addPackage(QStringLiteral("Package %1").arg(number, 2, 10, QLatin1Char('0')));
    }
    QList<kit::View*> partsAt(double width)
    {
        stack = std::make_unique<kit::NavigationController>(new VeskHomeViewController(*manager, *installer));
        stack->layOut({ 0, 0, width, 844 });
        return header()->subviews();
    }
    kit::View* header() const { return static_cast<VeskHomeViewController*>(stack->topViewController())->homeHeader(); }

    std::unique_ptr<kit::NavigationController> stack;
};

QList<QRectF> framesOf(const QList<kit::View*>& views)
{
    QList<QRectF> frames;
    for (const kit::View* view : views)
        frames.append(view->frame());
    return frames;
}

} // namespace

TEST_F(HomeScreen, hasATitleTwoButtonsAndABlueRefreshControl)
{
    auto* screen = showFilled();
    EXPECT_EQ(screen->title(), QStringLiteral("Welcome to Vesk"));
    ASSERT_NE(reloadButton(screen), nullptr);
    EXPECT_EQ(reloadButton(screen)->title(), QStringLiteral("Reload"));
    EXPECT_EQ(reloadButton(screen)->style(), kit::BarButtonItem::Style::Plain);
    const kit::BarButtonItem* about = screen->navigationItem()->leftBarButtonItem();
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(about->image(), kit::Image::systemNamed(QStringLiteral("info.circle")));
    EXPECT_FALSE(about->image().isNull());
    EXPECT_EQ(about->style(), kit::BarButtonItem::Style::Plain);
    EXPECT_EQ(refreshControl()->tintColor(), ClassicUI::veskBlueColor());
    EXPECT_EQ(table()->rowHeight(), 60);
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
}

// MARK: the header

TEST_F(HomeScreen, laysItsHeaderOutForTheWidthOfThePhone)
{
    const auto parts = partsAt(390);
    EXPECT_EQ(header()->frame(), QRectF(0, 0, 390, 185));
    EXPECT_EQ(framesOf(parts),
        (QList<QRectF>{ { 12, 12, 366, 72 }, { 20, 86, 350, 24 }, { 30, 112, 330, 36 }, { 32, 157, 326, 1 } }));
}

TEST_F(HomeScreen, laysItsHeaderOutFor320PointsWhenItIsNarrower)
{
    const auto parts = partsAt(240);
    EXPECT_EQ(framesOf(parts),
        (QList<QRectF>{ { 12, 12, 296, 72 }, { 20, 86, 280, 24 }, { 30, 112, 260, 36 }, { 32, 157, 256, 1 } }));
    EXPECT_EQ(header()->frame(), QRectF(0, 0, 240, 185)) << "the container follows the table";
}

TEST_F(HomeScreen, limitsItsHeadersContentTo560PointsInTheMiddle)
{
    const auto parts = partsAt(1000);
    EXPECT_EQ(framesOf(parts),
        (QList<QRectF>{ { 220, 12, 560, 72 }, { 228, 86, 544, 24 }, { 238, 112, 524, 36 }, { 240, 157, 520, 1 } }));
    EXPECT_EQ(partsAt(584).first()->frame(), QRectF(12, 12, 560, 72));
    EXPECT_EQ(partsAt(586).first()->frame(), QRectF(13, 12, 560, 72));
}

TEST_F(HomeScreen, showsLogoTaglineDescriptionAndDividerInItsHeader)
{
    const auto parts = partsAt(390);
    ASSERT_EQ(parts.size(), 4);
    EXPECT_EQ(header()->backgroundColor(), ClassicUI::veskBackgroundColor());

    const auto* logo = qobject_cast<kit::ImageView*>(parts[0]);
    EXPECT_EQ(logo->image(), ClassicUI::assetNamed(QStringLiteral("vesklogo@2x")));
    EXPECT_EQ(logo->contentMode(), kit::ImageView::ContentMode::AspectFit);

    const auto* tagline = qobject_cast<kit::Label*>(parts[1]);
    EXPECT_EQ(tagline->text(), QStringLiteral("The original alternative app store"));
    EXPECT_EQ(tagline->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(tagline->textColor(), ClassicUI::veskTextColor());
    EXPECT_EQ(tagline->font(), kit::Font::boldSystemFont(17));

    const auto* description = qobject_cast<kit::Label*>(parts[2]);
    EXPECT_EQ(description->text(),
        QStringLiteral("Browse packages, themes, and utilities from your favorite jailbreak sources."));
    EXPECT_EQ(description->numberOfLines(), 2);
    EXPECT_EQ(description->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(description->textColor(), ClassicUI::veskSecondaryTextColor());
    EXPECT_EQ(description->font(), kit::Font::systemFont(13));

    EXPECT_EQ(parts[3]->backgroundColor(), (kit::Color{ 0.6, 0.6, 0.6, 0.55, {} }));
}

TEST_F(HomeScreen, keepsThePartsOfItsHeaderWhereTheyAreWhenTheTableChangesItsWidth)
{
    showFilled();
    const kit::View* head = table()->tableHeaderView();
    const auto frames = framesOf(head->subviews());
    navigation->layOut({ 0, 0, 700, 844 });
    EXPECT_EQ(table()->tableHeaderView(), head);
    EXPECT_EQ(head->frame(), QRectF(0, 0, 700, 185));
    EXPECT_EQ(framesOf(head->subviews()), frames);
}

TEST_F(HomeScreen, doesNotFollowAWidthThatDiffersByHalfAPointOrLess)
{
    showFilled();
    navigation->layOut({ 0, 0, 390.5, 844 });
    EXPECT_EQ(table()->tableHeaderView()->width(), 390);
    navigation->layOut({ 0, 0, 390.75, 844 });
    EXPECT_EQ(table()->tableHeaderView()->width(), 390.75);
}

TEST_F(HomeScreen, standsItsSectionsBelowTheHeader)
{
    showFilled();
    EXPECT_EQ(table()->tableHeaderView()->height(), 185);
    EXPECT_EQ(table()->layout().sectionTop(Featured), 185);
    EXPECT_EQ(table()->rectForRow({ Featured, 0 }), QRectF(0, 210, 390, 60));
}

// MARK: the rows

TEST_F(HomeScreen, showsOneCentredRowUnderABlankBandWhenTheCatalogIsEmpty)
{
    show();
    EXPECT_EQ(table()->layout().sectionCount(), 1);
    EXPECT_EQ(table()->layout().rowCount(0), 1);
    EXPECT_EQ(table()->headerView(0), nullptr);
    EXPECT_EQ(table()->layout().headerHeight(0), 25);
    const kit::TableViewCell* row = cell(0, 0);
    EXPECT_EQ(row->reuseIdentifier(), QStringLiteral("EmptyCell"));
    EXPECT_EQ(row->style(), kit::TableViewCell::Style::Default);
    EXPECT_EQ(text(0, 0), QStringLiteral("No packages loaded. Tap Reload."));
    EXPECT_EQ(row->textLabel()->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(row->textLabel()->textColor(), ClassicUI::veskSecondaryTextColor());
    EXPECT_EQ(row->accessoryType(), kit::TableViewCell::AccessoryType::None);
    table()->tapRow(0, 0);
    EXPECT_TRUE(isFadingOut(row));
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(HomeScreen, headsItsTwoSectionsInCapitals)
{
    showFilled();
    EXPECT_EQ(table()->layout().sectionCount(), 2);
    EXPECT_EQ(headerText(Featured), QStringLiteral("HOT APPS & UTILITIES"));
    EXPECT_EQ(headerText(Categories), QStringLiteral("CATEGORIES"));
    EXPECT_EQ(table()->layout().headerHeight(Categories), 25);
}

TEST_F(HomeScreen, featuresAllOfEightPackages)
{
    addPackages(8);
    show();
    EXPECT_EQ(table()->layout().rowCount(Featured), 8);
}

TEST_F(HomeScreen, featuresTheFirstEightByNameOfNineOrMore)
{
    addPackages(9);
    addPackage(QStringLiteral("package 00"));
    auto* screen = show();
    ASSERT_EQ(screen->featured().size(), 8U);
    EXPECT_EQ(screen->featured().front()->name(), QStringLiteral("package 00"));
    EXPECT_EQ(screen->featured().back()->name(), QStringLiteral("Package 07"));
    EXPECT_EQ(table()->layout().rowCount(Featured), 8);
}

TEST_F(HomeScreen, featuresTheFirstEightOfNine)
{
    addPackages(9);
    auto* screen = show();
    ASSERT_EQ(screen->featured().size(), 8U);
    EXPECT_EQ(screen->featured().back()->name(), QStringLiteral("Package 08"));
}

TEST_F(HomeScreen, showsFeaturedPackagesInPackageCellsOfAlternatingBackgrounds)
{
    addPackages(2);
    show();
    EXPECT_NE(qobject_cast<ClassicPackageCell*>(cell(Featured, 0)), nullptr);
    EXPECT_EQ(cell(Featured, 0)->reuseIdentifier(), QStringLiteral("PackageCell"));
    const auto background = [this](int row) {
        return static_cast<kit::ImageView*>(cell(Featured, row)->backgroundView())->image().identity();
    };
    EXPECT_EQ(background(0), ClassicUI::assetNamed(QStringLiteral("cellback1")).identity());
    EXPECT_EQ(background(1), ClassicUI::assetNamed(QStringLiteral("cellback2")).identity());
}

TEST_F(HomeScreen, listsEveryCategoryWithItsCount)
{
    addPackage(QStringLiteral("One"), QStringLiteral("Tweaks"));
    addPackage(QStringLiteral("Two"), QStringLiteral("Games"));
    addPackage(QStringLiteral("Three"), QStringLiteral("Tweaks"));
    show();
    EXPECT_EQ(texts(Categories), (QStringList{ QStringLiteral("Games"), QStringLiteral("Tweaks") }));
    EXPECT_EQ(detail(Categories, 1), QStringLiteral("2"));
    const kit::TableViewCell* row = cell(Categories, 1);
    EXPECT_EQ(row->reuseIdentifier(), QStringLiteral("CategoryCell"));
    EXPECT_EQ(row->style(), kit::TableViewCell::Style::Value1);
    EXPECT_EQ(row->imageView()->image(), ClassicUI::assetNamed(QStringLiteral("Homepage")));
    EXPECT_EQ(row->accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
}

TEST_F(HomeScreen, saysSoWhenThereAreNoCategoriesYet)
{
    auto* screen = show();
    // Categories come from the packages, so only the row itself can be asked for.
    const kit::TableViewCell* row = screen->cellForRowAtIndexPath({ Categories, 0 });
    EXPECT_EQ(screen->numberOfRowsInSection(Categories), 1);
    EXPECT_EQ(row->reuseIdentifier(), QStringLiteral("CategoryCell"));
    EXPECT_EQ(row->textLabel()->text(), QStringLiteral("No categories yet"));
    EXPECT_EQ(row->textLabel()->textAlignment(), Qt::AlignLeft);
    EXPECT_EQ(row->accessoryType(), kit::TableViewCell::AccessoryType::None);
    delete row;
}

TEST_F(HomeScreen, leavesTheOldCountAndPictureBesideNoCategoriesYetInAReusedCell)
{
    auto* screen = showFilled();
    const kit::TableViewCell* before = cell(Categories, 0);
    manager->setPackages({});
    screen->reloadData();
    const kit::TableViewCell* row = screen->cellForRowAtIndexPath({ Categories, 0 });
    ASSERT_EQ(row, before);
    EXPECT_EQ(row->textLabel()->text(), QStringLiteral("No categories yet"));
    EXPECT_EQ(row->detailTextLabel()->text(), QStringLiteral("1"));
    EXPECT_EQ(row->imageView()->image(), ClassicUI::assetNamed(QStringLiteral("Homepage")));
}

TEST_F(HomeScreen, pushesTheTappedPackage)
{
    addPackage(QStringLiteral("Zebra"));
    const VeskPackagePtr apple = addPackage(QStringLiteral("Apple"));
    show();
    kit::TableView* home = table();
    EXPECT_TRUE(isPushedAnimated([&] { home->tapRow(Featured, 0); }));
    EXPECT_TRUE(isFadingOut(home->cellForRow({ Featured, 0 })));
    ASSERT_NE(top<PackageDetailViewController>(), nullptr);
    EXPECT_EQ(top<PackageDetailViewController>()->package(), apple);
}

TEST_F(HomeScreen, pushesTheListOfTheTappedCategory)
{
    showFilled();
    kit::TableView* home = table();
    EXPECT_TRUE(isPushedAnimated([&] { home->tapRow(Categories, 0); }));
    EXPECT_TRUE(isFadingOut(home->cellForRow({ Categories, 0 })));
    ASSERT_NE(top<PackageListViewController>(), nullptr);
    EXPECT_EQ(top<PackageListViewController>()->category(), QStringLiteral("Tweaks"));
}

TEST_F(HomeScreen, ignoresATapBeyondItsRecords)
{
    auto* screen = showFilled();
    screen->didSelectRowAtIndexPath({ Featured, 1 });
    screen->didSelectRowAtIndexPath({ Categories, 1 });
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(HomeScreen, readsTheCatalogAtEveryAppearance)
{
    showFilled();
    addPackage(QStringLiteral("Aardvark"), QStringLiteral("Games"));
    EXPECT_EQ(texts(Featured), QStringList(QStringLiteral("Alpha")));
    appearAgain();
    EXPECT_EQ(texts(Featured), (QStringList{ QStringLiteral("Aardvark"), QStringLiteral("Alpha") }));
    EXPECT_EQ(texts(Categories), (QStringList{ QStringLiteral("Games"), QStringLiteral("Tweaks") }));
}

// MARK: refreshing

TEST_F(HomeScreen, startsARefreshWhenItAppearsWithAnEmptyCatalog)
{
    auto* screen = show();
    EXPECT_FALSE(reloadButton(screen)->isEnabled());
    EXPECT_TRUE(refreshControl()->isRefreshing());
    EXPECT_EQ(manager->repositories().size(), 1U) << "the user's own sources stay alone";
    ASSERT_TRUE(waitUntil([this] { return !network->requestedURLs().isEmpty(); }));
    EXPECT_TRUE(network->requestedURLs().first().startsWith(QStringLiteral("http://127.0.0.1/first")));
}

TEST_F(HomeScreen, addsTheDefaultSourcesWhenThereAreNone)
{
    manager->setRepositories({});
    show();
    EXPECT_EQ(manager->repositories().size(), 4U);
    EXPECT_EQ(store->stored->size(), 4U);
}

TEST_F(HomeScreen, startsNoRefreshWhenThereArePackages)
{
    auto* screen = showFilled();
    turnLoop();
    EXPECT_TRUE(reloadButton(screen)->isEnabled());
    EXPECT_FALSE(refreshControl()->isRefreshing());
    EXPECT_TRUE(network->requestedURLs().isEmpty());
}

TEST_F(HomeScreen, startsARefreshAtEveryAppearanceWithAnEmptyCatalog)
{
    showFilled();
    manager->setPackages({});
    appearAgain();
    EXPECT_TRUE(refreshControl()->isRefreshing());
}

TEST_F(HomeScreen, isIdleAgainInALaterTurnAfterTheRefreshEnded)
{
    auto* screen = show();
    network->release();
    ASSERT_TRUE(waitUntil([&] { return reloadButton(screen)->isEnabled(); }));
    EXPECT_FALSE(refreshControl()->isRefreshing());
    EXPECT_EQ(text(0, 0), QStringLiteral("No packages loaded. Tap Reload."));
    EXPECT_TRUE(window.alerts().isEmpty());
}

TEST_F(HomeScreen, waitsForALaterTurnEvenWhenTheRefreshEndsAtOnce)
{
    manager->repositories().front()->setEnabled(false);
    auto* screen = show();
    EXPECT_FALSE(reloadButton(screen)->isEnabled());
    EXPECT_TRUE(refreshControl()->isRefreshing());
    turnLoop();
    EXPECT_TRUE(reloadButton(screen)->isEnabled());
    EXPECT_FALSE(refreshControl()->isRefreshing());
}

TEST_F(HomeScreen, showsWhatTheRefreshBrought)
{
    network->serve(QStringLiteral("http://127.0.0.1/first/Packages"),
        "Package: org.example.alpha\nName: Alpha\nVersion: 1.0\nSection: Tweaks\n\n");
    auto* screen = show();
    network->release();
    ASSERT_TRUE(waitUntil([&] { return reloadButton(screen)->isEnabled(); }));
    EXPECT_EQ(texts(Featured), QStringList(QStringLiteral("Alpha")));
    EXPECT_EQ(texts(Categories), QStringList(QStringLiteral("Tweaks")));
}

TEST_F(HomeScreen, spinsForAPressOfReload)
{
    auto* screen = showFilled();
    reloadButton(screen)->press();
    EXPECT_TRUE(refreshControl()->isRefreshing());
    EXPECT_FALSE(reloadButton(screen)->isEnabled());
}

TEST_F(HomeScreen, startsAnotherRefreshForAPullDuringOne)
{
    auto* screen = show();
    ASSERT_TRUE(waitUntil([this] { return network->requestedURLs().size() == 1; }));
    refreshControl()->pull();
    EXPECT_TRUE(waitUntil([this] { return network->requestedURLs().size() == 2; }));
    EXPECT_FALSE(reloadButton(screen)->isEnabled());
    network->release();
    EXPECT_TRUE(waitUntil([&] { return reloadButton(screen)->isEnabled(); }));
}

TEST_F(HomeScreen, isIdleAgainWhenItsOnlySourceIsRemovedDuringTheRefresh)
{
    auto* screen = show();
    ASSERT_TRUE(waitUntil([this] { return network->requestedURLs().size() == 1; }));
    manager->removeRepository(manager->repositories().front());
    network->release();
    EXPECT_TRUE(waitUntil([&] { return reloadButton(screen)->isEnabled(); }));
    EXPECT_FALSE(refreshControl()->isRefreshing());
    EXPECT_EQ(text(0, 0), QStringLiteral("No packages loaded. Tap Reload."));
}

TEST_F(HomeScreen, doesNothingWhenItIsGoneBeforeTheRefreshEnds)
{
    show();
    ASSERT_TRUE(waitUntil([this] { return !network->requestedURLs().isEmpty(); }));
    dismissScreen();
    network->release();
    EXPECT_TRUE(waitUntil([this] { return !manager->isLoading(); }));
    turnLoop();
}

TEST_F(HomeScreen, doesNothingWhenItIsGoneBetweenTheCompletionAndItsTurn)
{
    manager->repositories().front()->setEnabled(false);
    show();
    dismissScreen();
    turnLoop();
}

// MARK: about

TEST_F(HomeScreen, tellsAboutItselfInAnAlert)
{
    auto* screen = showFilled();
    screen->navigationItem()->leftBarButtonItem()->press();
    const kit::AlertController* alert = lastAlert();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->style(), kit::AlertController::Style::Alert);
    EXPECT_EQ(alert->title(), QStringLiteral("Tarnwell"));
    EXPECT_EQ(alert->message(),
        QStringLiteral(
            "A modern rootless recreation of the classic VeskApp interface. Package downloads and installs are "
            "handled by the device's APT/dpkg environment."));
    ASSERT_EQ(alert->actions().size(), 1);
    EXPECT_EQ(alert->actions().first()->title(), QStringLiteral("Close"));
    EXPECT_EQ(alert->actions().first()->style(), kit::AlertAction::Style::Default);
}
