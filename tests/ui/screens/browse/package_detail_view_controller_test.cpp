#include "ui/screens/browse/PackageDetailViewController.h"

#include "http/Client.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/TestImage.h"
#include "tests/ui/screens/ScreenWorld.h"

#include <memory>

namespace {

enum { Header, Description, Details, Actions };

class PackageDetailScreen : public ScreenTest
{
protected:
    PackageDetailScreen()
    {
        package->setAuthor(QStringLiteral("Ada"));
        package->setDesc(QStringLiteral("Draws a line."));
    }

    PackageDetailViewController* show()
    {
        return ScreenTest::show(new PackageDetailViewController(package, *installer));
    }
    double rowHeight(int section, int row = 0) const { return table()->rectForRow({ section, row }).height(); }
    // What the row says, and its button too.
    QString action(int row) const
    {
        EXPECT_EQ(button(row)->title(), text(Actions, row));
        return text(Actions, row);
    }
    kit::Button* button(int row) const { return qobject_cast<kit::Button*>(cell(Actions, row)->accessoryView()); }
    kit::Color actionColor(int row) const { return cell(Actions, row)->textLabel()->textColor(); }
    bool isRed(int row) const
    {
        return button(row)->backgroundImage().identity()
            == ClassicUI::assetNamed(QStringLiteral("buttonbackred")).identity();
    }
    // The code that a tap on the row enqueues.
    qint64 codeOf(int row)
    {
        installer->clearQueue();
        table()->tapRow(Actions, row);
        return installer->queue().size() == 1 ? installer->queue().front()->action() : -1;
    }
    double descriptionHeightAt(double tableWidth)
    {
        auto* screen = new PackageDetailViewController(package, *installer);
        kit::NavigationController stack(screen);
        stack.layOut({ 0, 0, tableWidth, 844 });
        return screen->heightForRowAtIndexPath({ Description, 0 });
    }
    double heightOf(const QString& description, double width) const
    {
        return kit::Font::boundingHeight(description, kit::Font::systemFont(14), width);
    }

    VeskPackagePtr package = addPackage(QStringLiteral("Alpha"), QStringLiteral("Tweaks"));
    const QString longText = QStringLiteral("A line that is told at great length. ").repeated(40);
};

} // namespace

TEST_F(PackageDetailScreen, isTitledWithThePackagesNameAndHasNoBarButtons)
{
    auto* screen = show();
    EXPECT_EQ(screen->title(), QStringLiteral("Alpha"));
    EXPECT_EQ(screen->package(), package);
    EXPECT_EQ(screen->navigationItem()->rightBarButtonItem(), nullptr);
    EXPECT_EQ(screen->navigationItem()->leftBarButtonItem(), nullptr);
    EXPECT_EQ(table()->rowHeight(), 60);
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
}

TEST_F(PackageDetailScreen, hasFourSectionsOfTheirHeights)
{
    show();
    const kit::TableLayout& layout = table()->layout();
    ASSERT_EQ(layout.sectionCount(), 4);
    EXPECT_EQ(layout.rowCount(Header), 1);
    EXPECT_EQ(layout.rowCount(Description), 1);
    EXPECT_EQ(layout.rowCount(Details), 4);
    EXPECT_EQ(layout.rowCount(Actions), 2);
    EXPECT_EQ(layout.headerHeight(Header), 0.01);
    for (const int section : { Description, Details, Actions })
        EXPECT_EQ(layout.headerHeight(section), 25);
    EXPECT_DOUBLE_EQ(rowHeight(Header), 82);
    EXPECT_DOUBLE_EQ(rowHeight(Details, 3), 60);
    EXPECT_DOUBLE_EQ(rowHeight(Actions, 1), 60);
}

TEST_F(PackageDetailScreen, titlesEverySectionButTheFirst)
{
    show();
    EXPECT_EQ(table()->headerView(Header), nullptr);
    EXPECT_EQ(headerText(Description), QStringLiteral("DESCRIPTION"));
    EXPECT_EQ(headerText(Details), QStringLiteral("PACKAGE DETAILS"));
    EXPECT_EQ(headerText(Actions), QStringLiteral("ACTIONS"));
    EXPECT_EQ(table()->headerView(Actions)->width(), 390);
}

TEST_F(PackageDetailScreen, headsThePackageWithItsNameAuthorAndVersion)
{
    show();
    const kit::TableViewCell* row = cell(Header, 0);
    EXPECT_EQ(row->reuseIdentifier(), QStringLiteral("HeaderCell"));
    EXPECT_EQ(row->style(), kit::TableViewCell::Style::Subtitle);
    EXPECT_EQ(text(Header, 0), QStringLiteral("Alpha"));
    EXPECT_EQ(row->textLabel()->font(), kit::Font::boldSystemFont(20));
    EXPECT_EQ(detail(Header, 0), QStringLiteral("Ada  \u2022  1.0"));
    EXPECT_EQ(row->imageView()->image(), ClassicUI::assetNamed(QStringLiteral("Homepage")));
    EXPECT_EQ(row->imageView()->cornerRadius(), 9);
    EXPECT_TRUE(row->imageView()->clipsToBounds());
}

TEST_F(PackageDetailScreen, headsThePackageWithItsIconAsSoonAsThatHasArrived)
{
    LoopbackServer server;
    http::Client client;
    ClassicUI::setIconNetwork(&client);
    server.serve("/icon.png", pngOf(Qt::red, { 120, 120 }));
    package->setIconURLString(server.url(QStringLiteral("/icon.png")));
    show();
    const kit::ImageView* const icon = cell(Header, 0)->imageView();
    const kit::Image placeholder = ClassicUI::assetNamed(QStringLiteral("Homepage"));
    EXPECT_EQ(icon->image(), placeholder);
    EXPECT_TRUE(waitUntil([&] { return icon->image() != placeholder; }));
    EXPECT_EQ(icon->image().pixels(1).pixelColor(60, 60), QColor(Qt::red));
    EXPECT_EQ(icon->contentMode(), kit::ImageView::ContentMode::AspectFit);
    EXPECT_EQ(icon->frame().size(), QSizeF(74, 74));
    ClassicUI::setIconNetwork(nullptr);
}

// A view with the proportions of its picture: an empty margin would have the round corners otherwise.
TEST_F(PackageDetailScreen, roundsTheCornersOfAnIconOfAnyProportions)
{
    show();
    kit::ImageView* const icon = cell(Header, 0)->imageView();
    for (const QSize& size : { QSize(120, 120), QSize(120, 60), QSize(60, 120), QSize(30, 20) }) {
        icon->setImage(kit::Image::fromData(pngOf(Qt::red, size), 1));
        turnLoop();
        EXPECT_EQ(icon->radius(), 9);
        EXPECT_EQ(icon->width() * size.height(), icon->height() * size.width());
    }
}

TEST_F(PackageDetailScreen, headsAPackageWithoutAnAuthorWithItsVersionAlone)
{
    for (const QString& author : { QString(), QStringLiteral("") }) {
        package->setAuthor(author);
        show();
        EXPECT_EQ(detail(Header, 0), QStringLiteral("1.0"));
    }
}

TEST_F(PackageDetailScreen, describesThePackageOnAsManyLinesAsItTakes)
{
    package->setDesc(longText);
    show();
    const kit::TableViewCell* row = cell(Description, 0);
    EXPECT_EQ(row->reuseIdentifier(), QStringLiteral("DescriptionCell"));
    EXPECT_EQ(row->style(), kit::TableViewCell::Style::Default);
    EXPECT_EQ(text(Description, 0), longText);
    EXPECT_EQ(row->textLabel()->numberOfLines(), 0);
    EXPECT_EQ(row->textLabel()->font(), kit::Font::systemFont(14));
    EXPECT_EQ(row->textLabel()->textColor(), ClassicUI::veskTextColor());
    EXPECT_EQ(static_cast<kit::ImageView*>(row->backgroundView())->image().identity(),
        ClassicUI::assetNamed(QStringLiteral("cellback2")).identity());
}

TEST_F(PackageDetailScreen, saysSoWhenThereIsNoDescription)
{
    for (const QString& description : { QString(), QStringLiteral("") }) {
        package->setDesc(description);
        show();
        EXPECT_EQ(text(Description, 0), QStringLiteral("No description was supplied by this source."));
        EXPECT_DOUBLE_EQ(rowHeight(Description), 68);
    }
}

TEST_F(PackageDetailScreen, givesTheDescriptionItsMeasuredHeightAndNeverLessThan68)
{
    EXPECT_EQ(descriptionHeightAt(390), 68);
    package->setDesc(longText);
    EXPECT_GT(heightOf(longText, 362), 40);
    EXPECT_EQ(descriptionHeightAt(390), heightOf(longText, 362) + 28);
}

TEST_F(PackageDetailScreen, measuresTheDescriptionIn260PointsOnANarrowTable)
{
    package->setDesc(longText);
    EXPECT_EQ(descriptionHeightAt(300), heightOf(longText, 272) + 28);
    EXPECT_EQ(descriptionHeightAt(200), heightOf(longText, 260) + 28);
}

TEST_F(PackageDetailScreen, tellsFourDetails)
{
    show();
    EXPECT_EQ(texts(Details),
        (QStringList{ QStringLiteral("Version"), QStringLiteral("Package"), QStringLiteral("Section"),
            QStringLiteral("Repository") }));
    EXPECT_EQ(detail(Details, 0), QStringLiteral("1.0"));
    EXPECT_EQ(detail(Details, 1), QStringLiteral("org.example.alpha"));
    EXPECT_EQ(detail(Details, 2), QStringLiteral("Tweaks"));
    EXPECT_EQ(detail(Details, 3), QStringLiteral("First"));
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(cell(Details, row)->reuseIdentifier(), QStringLiteral("DetailsCell"));
        EXPECT_EQ(cell(Details, row)->style(), kit::TableViewCell::Style::Value1);
        EXPECT_TRUE(cell(Details, row)->detailTextLabel()->adjustsFontSizeToFitWidth());
    }
}

TEST_F(PackageDetailScreen, fillsInForMissingDetails)
{
    package->setVersion(QString());
    package->setPackageID(QString());
    package->setSection(QString());
    package->repository()->setName(QString());
    show();
    EXPECT_EQ(detail(Details, 0), QStringLiteral(""));
    EXPECT_EQ(detail(Details, 1), QStringLiteral(""));
    EXPECT_EQ(detail(Details, 2), QStringLiteral("Other"));
    EXPECT_EQ(detail(Details, 3), QStringLiteral("Unknown"));
}

// What a source tells as an empty text is not missing.
TEST_F(PackageDetailScreen, showsAnEmptyTextWhereTheSourceTellsOne)
{
    package->setSection(QStringLiteral(""));
    package->repository()->setName(QStringLiteral(""));
    show();
    EXPECT_EQ(detail(Details, 2), QStringLiteral(""));
    EXPECT_EQ(detail(Details, 3), QStringLiteral(""));
}

TEST_F(PackageDetailScreen, callsTheSourceUnknownWhenThereIsNone)
{
    package->setRepository(nullptr);
    show();
    EXPECT_EQ(detail(Details, 3), QStringLiteral("Unknown"));
}

TEST_F(PackageDetailScreen, hasNoDisclosureOnAnyRow)
{
    show();
    for (const kit::IndexPath& indexPath : table()->indexPathsForVisibleRows())
        EXPECT_EQ(table()->cellForRow(indexPath)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    EXPECT_EQ(cell(Details, 0)->accessoryView(), nullptr);
}

TEST_F(PackageDetailScreen, alternatesTheBackgroundsOfTheDetailsAndActions)
{
    show();
    const auto background = [this](int section, int row) {
        return static_cast<kit::ImageView*>(cell(section, row)->backgroundView())->image().identity();
    };
    const quint64 even = ClassicUI::assetNamed(QStringLiteral("cellback1")).identity();
    const quint64 odd = ClassicUI::assetNamed(QStringLiteral("cellback2")).identity();
    EXPECT_EQ(background(Header, 0), even);
    EXPECT_EQ(background(Details, 2), even);
    EXPECT_EQ(background(Details, 3), odd);
    EXPECT_EQ(background(Actions, 0), even);
    EXPECT_EQ(background(Actions, 1), odd);
}

TEST_F(PackageDetailScreen, offersToInstallAPackageThatIsNot)
{
    show();
    EXPECT_EQ(action(0), QStringLiteral("Install"));
    EXPECT_EQ(actionColor(0), ClassicUI::veskOrangeColor());
    EXPECT_FALSE(isRed(0));
    EXPECT_EQ(codeOf(0), QueueActionInstall);
    EXPECT_EQ(action(1), QStringLiteral("Add to Queue"));
    EXPECT_EQ(actionColor(1), ClassicUI::veskBlueColor());
    EXPECT_FALSE(isRed(1));
    EXPECT_EQ(codeOf(1), QueueActionInstall);
}

TEST_F(PackageDetailScreen, offersToUpgradeAPackageOfAnotherVersion)
{
    package->setInstalledVersion(QStringLiteral("2.0"));
    show();
    EXPECT_EQ(action(0), QStringLiteral("Upgrade to 1.0"));
    EXPECT_EQ(actionColor(0), ClassicUI::veskOrangeColor());
    EXPECT_FALSE(isRed(0));
    EXPECT_EQ(codeOf(0), QueueActionUpgrade);
}

TEST_F(PackageDetailScreen, offersToReinstallAPackageOfTheSameVersion)
{
    package->setInstalledVersion(QStringLiteral("1.0"));
    show();
    EXPECT_EQ(action(0), QStringLiteral("Reinstall"));
    EXPECT_EQ(actionColor(0), ClassicUI::veskOrangeColor());
    EXPECT_EQ(codeOf(0), QueueActionInstall);
}

TEST_F(PackageDetailScreen, offersToUninstallAnInstalledPackageInRed)
{
    package->setInstalledVersion(QStringLiteral("1.0"));
    show();
    EXPECT_EQ(action(1), QStringLiteral("Uninstall"));
    EXPECT_EQ(actionColor(1), ClassicUI::colorWithRed(175, 40, 35, 1));
    EXPECT_TRUE(isRed(1));
    EXPECT_EQ(codeOf(1), QueueActionUninstall);
}

TEST_F(PackageDetailScreen, confirmsWhatWasQueuedWithAnAlert)
{
    show();
    table()->tapRow(Actions, 0);
    EXPECT_TRUE(isFadingOut(cell(Actions, 0)));
    kit::AlertController* alert = lastAlert();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->style(), kit::AlertController::Style::Alert);
    EXPECT_EQ(alert->title(), QStringLiteral("Vesk"));
    EXPECT_EQ(alert->message(), QStringLiteral("Alpha added to the queue."));
    ASSERT_EQ(alert->actions().size(), 1);
    EXPECT_EQ(alert->actions().first()->title(), QStringLiteral("OK"));
    EXPECT_EQ(alert->actions().first()->style(), kit::AlertAction::Style::Default);
    EXPECT_EQ(installer->queue().front()->package(), package);
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(PackageDetailScreen, alertsTwiceForTwoTapsButQueuesOnce)
{
    show();
    table()->tapRow(Actions, 0);
    table()->tapRow(Actions, 0);
    EXPECT_EQ(window.alerts().size(), 2);
    EXPECT_EQ(installer->queue().size(), 1U);
}

TEST_F(PackageDetailScreen, queuesAnUninstallBesideAnUpgrade)
{
    package->setInstalledVersion(QStringLiteral("0.9"));
    show();
    table()->tapRow(Actions, 0);
    table()->tapRow(Actions, 1);
    ASSERT_EQ(installer->queue().size(), 2U);
    EXPECT_EQ(installer->queue()[0]->action(), QueueActionUpgrade);
    EXPECT_EQ(installer->queue()[1]->action(), QueueActionUninstall);
}

TEST_F(PackageDetailScreen, decidesAtTheMomentOfTheTapWithoutReloading)
{
    show();
    package->setInstalledVersion(QStringLiteral("0.9"));
    EXPECT_EQ(codeOf(0), QueueActionUpgrade);
    EXPECT_EQ(text(Actions, 0), QStringLiteral("Install"));
    appearAgain();
    EXPECT_EQ(text(Actions, 0), QStringLiteral("Install"));
    table()->reloadData();
    EXPECT_EQ(text(Actions, 0), QStringLiteral("Upgrade to 1.0"));
}

TEST_F(PackageDetailScreen, onlyDeselectsARowOfTheOtherSections)
{
    show();
    for (const kit::IndexPath& indexPath :
        { kit::IndexPath{ Header, 0 }, kit::IndexPath{ Description, 0 }, kit::IndexPath{ Details, 3 } }) {
        table()->tapRow(indexPath.section, indexPath.row);
        EXPECT_TRUE(isFadingOut(cell(indexPath.section, indexPath.row)));
    }
    EXPECT_TRUE(window.alerts().isEmpty());
    EXPECT_TRUE(installer->queue().empty());
}

TEST_F(PackageDetailScreen, takesAPressOfAButtonForATapOnItsRow)
{
    show();
    button(0)->press();
    EXPECT_EQ(installer->queue().size(), 1U);
    EXPECT_EQ(window.alerts().size(), 1);
}

TEST_F(PackageDetailScreen, keepsTheButtonOfAVeryLongVersionWithinHalfTheTable)
{
    package->setVersion(QStringLiteral("1.0-").repeated(2000));
    package->setInstalledVersion(QStringLiteral("1"));
    show();
    EXPECT_EQ(button(0)->width(), 195);
    EXPECT_LT(button(1)->width(), 195);
    EXPECT_GT(cell(Actions, 0)->textLabel()->width(), 100);
}
