#include "ui/screens/manage/ManageViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicPackageCell.h"
#include "ui/classic/ClassicUI.h"
#include "ui/screens/manage/InstalledAppsViewController.h"
#include "ui/screens/manage/QueueViewController.h"
#include "ui/screens/manage/SourcesViewController.h"

namespace {

constexpr int Menu = 0;
constexpr int Settings = 1;
constexpr int Installed = 2;
const QString EmptyText = QStringLiteral("No installed packages found");

class ManageScreen : public ScreenTest
{
protected:
    ManageViewController* show() { return ScreenTest::show(new ManageViewController(*manager, *installer)); }
    VeskPackagePtr addInstalled(const QString& name)
    {
        return addInstalledPackage(name, QStringLiteral("1.0"), QStringLiteral("1.0"));
    }
    void expectMenuRow(const kit::IndexPath& at, const char* title, const char* rowDetail, const char* symbol)
    {
        const kit::TableViewCell* row = cell(at.section, at.row);
        EXPECT_EQ(row->reuseIdentifier(), QStringLiteral("ManageCell"));
        EXPECT_EQ(row->style(), kit::TableViewCell::Style::Subtitle);
        EXPECT_EQ(row->textLabel()->text(), QLatin1String(title));
        EXPECT_EQ(row->textLabel()->textAlignment(), Qt::AlignLeft);
        EXPECT_EQ(row->textLabel()->textColor(), ClassicUI::veskTextColor());
        EXPECT_EQ(row->detailTextLabel()->text(), QLatin1String(rowDetail));
        EXPECT_FALSE(row->imageView()->image().isNull()) << symbol;
        EXPECT_EQ(row->imageView()->image(), kit::Image::systemNamed(QLatin1String(symbol)));
        EXPECT_EQ(row->imageView()->tintColor(), ClassicUI::veskBlueColor());
        EXPECT_EQ(row->accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
        EXPECT_EQ(row->accessoryView(), nullptr);
    }
    void expectMenu()
    {
        expectMenuRow({ Menu, 0 }, "Manage Sources", "Add, remove, or refresh repositories", "server.rack");
        expectMenuRow({ Menu, 1 }, "Installed Apps", "Browse installed packages", "square.grid.2x2.fill");
        expectMenuRow({ Menu, 2 }, "Queued Changes", "Review and perform pending actions", "arrow.down.circle.fill");
        expectMenuRow({ Settings, 0 }, "Settings", "VeskApp behavior and package options", "gearshape.fill");
    }
    void expectEmptyRow()
    {
        const kit::TableViewCell* row = cell(Installed, 0);
        EXPECT_EQ(row->reuseIdentifier(), QStringLiteral("ManageCell"));
        EXPECT_EQ(row->textLabel()->text(), EmptyText);
        EXPECT_EQ(row->textLabel()->textAlignment(), Qt::AlignHCenter);
        EXPECT_EQ(row->textLabel()->textColor(), ClassicUI::veskSecondaryTextColor());
        EXPECT_TRUE(row->detailTextLabel()->text().isEmpty());
        EXPECT_TRUE(row->imageView()->image().isNull());
        EXPECT_EQ(row->accessoryType(), kit::TableViewCell::AccessoryType::None);
    }
};

} // namespace

TEST_F(ManageScreen, hasThreeSectionsAndNoBarButtons)
{
    auto* screen = show();
    EXPECT_EQ(screen->title(), QStringLiteral("Manage"));
    EXPECT_EQ(screen->navigationItem()->leftBarButtonItem(), nullptr);
    EXPECT_EQ(screen->navigationItem()->rightBarButtonItem(), nullptr);
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
    ASSERT_EQ(table()->layout().sectionCount(), 3);
    EXPECT_EQ(headerText(Menu), QStringLiteral("VESK"));
    EXPECT_EQ(headerText(Settings), QStringLiteral("SETTINGS"));
    EXPECT_EQ(headerText(Installed), QStringLiteral("INSTALLED PACKAGES"));
    for (int section = 0; section < 3; ++section)
        EXPECT_EQ(table()->layout().headerHeight(section), 25);
    EXPECT_EQ(table()->layout().rowCount(Menu), 3);
    EXPECT_EQ(table()->layout().rowCount(Settings), 1);
    EXPECT_EQ(table()->layout().rowCount(Installed), 1);
}

TEST_F(ManageScreen, showsItsMenuAndTheSettingsRow)
{
    show();
    expectMenu();
}

TEST_F(ManageScreen, showsOneGreyCentredRowWhenNothingIsInstalled)
{
    addPackage(QStringLiteral("Not installed"));
    show();
    expectEmptyRow();
    table()->tapRow(Installed, 0);
    EXPECT_TRUE(isFadingOut(cell(Installed, 0)));
    EXPECT_EQ(stackSize(), 1U);
    EXPECT_TRUE(window.alerts().isEmpty());
}

TEST_F(ManageScreen, keepsMenuAndEmptyRowApartWhenTheyTakeEachOthersReusedCells)
{
    addInstalled(QStringLiteral("Apple"));
    const PackageVector filled = manager->packages().all();
    manager->setPackages({});
    show();
    // The empty row's cell goes to the pool and comes out of it first.
    for (int appearance = 0; appearance < 12; ++appearance) {
        manager->setPackages(appearance % 3 == 2 ? PackageVector() : filled);
        appearAgain();
        expectMenu();
        if (manager->packages().empty())
            expectEmptyRow();
    }
}

TEST_F(ManageScreen, opensTheSources)
{
    show();
    kit::TableView* menu = table();
    menu->tapRow(Menu, 0);
    EXPECT_TRUE(isFadingOut(menu->cellForRow({ Menu, 0 })));
    EXPECT_NE(top<SourcesViewController>(), nullptr);
    EXPECT_EQ(stackSize(), 2U);
}

TEST_F(ManageScreen, opensTheInstalledPackages)
{
    show();
    table()->tapRow(Menu, 1);
    EXPECT_NE(top<InstalledAppsViewController>(), nullptr);
}

TEST_F(ManageScreen, opensTheQueue)
{
    show();
    table()->tapRow(Menu, 2);
    EXPECT_NE(top<QueueViewController>(), nullptr);
}

TEST_F(ManageScreen, pushesItsScreensByAnAnimation)
{
    for (int row = 0; row < 3; ++row) {
        show();
        EXPECT_TRUE(isPushedAnimated([&] { table()->tapRow(Menu, row); })) << row;
    }
}

TEST_F(ManageScreen, passesItsCatalogAndItsInstallerOn)
{
    addInstalled(QStringLiteral("Mine"));
    installer->enqueuePackage(manager->packages()[0], QueueActionInstall);
    show();
    table()->tapRow(Menu, 1);
    EXPECT_EQ(text(0, 0), QStringLiteral("Mine"));
    navigation->popViewController(kit::NavigationController::Animation::None);
    table()->tapRow(Menu, 2);
    EXPECT_EQ(text(0, 0), QStringLiteral("Mine"));
}

TEST_F(ManageScreen, makesANewScreenAtEveryTap)
{
    show();
    table()->tapRow(Menu, 2);
    const QPointer<kit::ViewController> first = navigation->topViewController();
    navigation->popViewController(kit::NavigationController::Animation::None);
    turnLoop();
    EXPECT_TRUE(first.isNull());
    table()->tapRow(Menu, 2);
    EXPECT_NE(top<QueueViewController>(), nullptr);
}

TEST_F(ManageScreen, informsAboutItsSettings)
{
    show();
    table()->tapRow(Settings, 0);
    EXPECT_TRUE(isFadingOut(cell(Settings, 0)));
    ASSERT_EQ(window.alerts().size(), 1);
    EXPECT_EQ(lastAlert()->style(), kit::AlertController::Style::Alert);
    EXPECT_EQ(lastAlert()->title(), QStringLiteral("Vesk Settings"));
    EXPECT_EQ(lastAlert()->message(),
        QStringLiteral("Keep Open On Confirm and Minimize On Confirm are represented by the queue screen. Package "
                       "actions are queued before they are executed."));
    ASSERT_EQ(lastAlert()->actions().size(), 1);
    EXPECT_EQ(lastAlert()->actions().first()->title(), QStringLiteral("Close"));
    EXPECT_EQ(lastAlert()->actions().first()->style(), kit::AlertAction::Style::Default);
    lastAlert()->choose(0);
    EXPECT_EQ(stackSize(), 1U);
    EXPECT_TRUE(installer->queue().empty());
}

TEST_F(ManageScreen, listsTheInstalledPackagesByNameWithoutRegardToCase)
{
    addInstalled(QStringLiteral("banana"));
    addPackage(QStringLiteral("Apricot"));
    addInstalled(QStringLiteral("Apple"));
    auto* screen = show();
    EXPECT_EQ(texts(Installed), QStringList({ QStringLiteral("Apple"), QStringLiteral("banana") }));
    EXPECT_NE(qobject_cast<ClassicPackageCell*>(cell(Installed, 0)), nullptr);
    EXPECT_EQ(cell(Installed, 0)->reuseIdentifier(), QStringLiteral("PackageCell"));
    EXPECT_EQ(screen->installed().size(), 2U);
}

TEST_F(ManageScreen, offersToUninstallATappedPackageOnASheet)
{
    addInstalled(QStringLiteral("Apple"));
    show();
    table()->tapRow(Installed, 0);
    EXPECT_TRUE(isFadingOut(cell(Installed, 0)));
    EXPECT_EQ(stackSize(), 1U);
    ASSERT_EQ(window.alerts().size(), 1);
    EXPECT_EQ(lastAlert()->style(), kit::AlertController::Style::ActionSheet);
    EXPECT_EQ(lastAlert()->title(), QStringLiteral("Apple"));
    EXPECT_EQ(lastAlert()->message(), QStringLiteral("Apple 1.0 is installed."));
    ASSERT_EQ(lastAlert()->actions().size(), 2);
    EXPECT_EQ(lastAlert()->actions()[0]->title(), QStringLiteral("Uninstall"));
    EXPECT_EQ(lastAlert()->actions()[0]->style(), kit::AlertAction::Style::Destructive);
    EXPECT_EQ(lastAlert()->actions()[1]->title(), QStringLiteral("Cancel"));
    EXPECT_EQ(lastAlert()->actions()[1]->style(), kit::AlertAction::Style::Cancel);
    EXPECT_TRUE(installer->queue().empty());
}

TEST_F(ManageScreen, anchorsTheSheetToTheTappedRowOfItsView)
{
    addInstalled(QStringLiteral("Apple"));
    addInstalled(QStringLiteral("banana"));
    auto* screen = show();
    table()->tapRow(Installed, 1);
    ASSERT_NE(lastAlert(), nullptr);
    EXPECT_EQ(lastAlert()->sourceView(), screen->view());
    const QRectF row = table()->rectForRow({ Installed, 1 });
    const QPointF origin = table()->convertPointToView(row.topLeft(), nullptr);
    EXPECT_EQ(lastAlert()->anchor(), QRectF(origin, row.size()) & QRectF(table()->frame()));
    EXPECT_FALSE(lastAlert()->anchor().isEmpty());
}

TEST_F(ManageScreen, namesTheOfferedVersionWhenAnotherOneIsInstalled)
{
    addInstalledPackage(QStringLiteral("Apple"), QStringLiteral("2.0"), QStringLiteral("1.0"));
    show();
    table()->tapRow(Installed, 0);
    ASSERT_NE(lastAlert(), nullptr);
    EXPECT_EQ(lastAlert()->message(), QStringLiteral("Apple 2.0 is installed."));
}

TEST_F(ManageScreen, takesTextsLikePlaceholdersAsTheyAre)
{
    addInstalledPackage(QStringLiteral("100%2 %1"), QStringLiteral("%2"), QStringLiteral("1.0"));
    show();
    table()->tapRow(Installed, 0);
    ASSERT_NE(lastAlert(), nullptr);
    EXPECT_EQ(lastAlert()->message(), QStringLiteral("100%2 %1 %2 is installed."));
}

TEST_F(ManageScreen, queuesTheRemovalWithoutAWord)
{
    const VeskPackagePtr package = addInstalled(QStringLiteral("Apple"));
    show();
    table()->tapRow(Installed, 0);
    lastAlert()->choose(0);
    ASSERT_EQ(installer->queue().size(), 1U);
    EXPECT_EQ(installer->queue()[0]->package(), package);
    EXPECT_EQ(installer->queue()[0]->action(), QueueActionUninstall);
    EXPECT_EQ(window.alerts().size(), 1);
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(ManageScreen, leavesItToTheQueueWhetherASecondRemovalIsADuplicate)
{
    addInstalled(QStringLiteral("Apple"));
    show();
    for (int time = 0; time < 2; ++time) {
        table()->tapRow(Installed, 0);
        lastAlert()->choose(0);
    }
    EXPECT_EQ(window.alerts().size(), 2);
    EXPECT_EQ(installer->queue().size(), 1U);
    installer->clearQueue();
    table()->tapRow(Installed, 0);
    lastAlert()->choose(0);
    EXPECT_EQ(installer->queue().size(), 1U);
}

TEST_F(ManageScreen, queuesNothingWhenTheSheetIsCancelled)
{
    addInstalled(QStringLiteral("Apple"));
    show();
    table()->tapRow(Installed, 0);
    lastAlert()->cancel();
    EXPECT_TRUE(installer->queue().empty());
}

TEST_F(ManageScreen, queuesAlsoWhenThePackageLeftTheCatalogWhileTheSheetWasOpen)
{
    const VeskPackagePtr package = addInstalled(QStringLiteral("Apple"));
    show();
    table()->tapRow(Installed, 0);
    manager->setPackages({});
    appearAgain();
    lastAlert()->choose(0);
    ASSERT_EQ(installer->queue().size(), 1U);
    EXPECT_EQ(installer->queue()[0]->package(), package);
}

TEST_F(ManageScreen, buildsTheInstalledListAnewAtEveryAppearanceAndNotInBetween)
{
    auto* screen = show();
    addInstalled(QStringLiteral("Late"));
    EXPECT_TRUE(screen->installed().empty());
    appearAgain();
    EXPECT_EQ(texts(Installed), QStringList(QStringLiteral("Late")));
}
