#include "ui/screens/manage/InstalledAppsViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicPackageCell.h"
#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/PackageDetailViewController.h"

namespace {

const QString EmptyText = QStringLiteral("No installed packages found");

class InstalledAppsScreen : public ScreenTest
{
protected:
    InstalledAppsViewController* show()
    {
        return ScreenTest::show(new InstalledAppsViewController(*manager, *installer));
    }
    VeskPackagePtr addInstalled(const QString& name)
    {
        return addInstalledPackage(name, QStringLiteral("1.0"), QStringLiteral("1.0"));
    }
};

} // namespace

TEST_F(InstalledAppsScreen, isTitledInstalledAppsAndHasNoBarButtons)
{
    auto* screen = show();
    EXPECT_EQ(screen->title(), QStringLiteral("Installed Apps"));
    EXPECT_EQ(screen->navigationItem()->leftBarButtonItem(), nullptr);
    EXPECT_EQ(screen->navigationItem()->rightBarButtonItem(), nullptr);
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
    EXPECT_EQ(table()->layout().sectionCount(), 1);
    EXPECT_EQ(table()->layout().headerHeight(0), 25);
    EXPECT_EQ(headerText(0), QStringLiteral("INSTALLED PACKAGES"));
}

TEST_F(InstalledAppsScreen, showsOneCentredRowInTheDefaultColourWhenTheCatalogIsEmpty)
{
    show();
    EXPECT_EQ(table()->layout().rowCount(0), 1);
    EXPECT_EQ(text(0, 0), EmptyText);
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("EmptyCell"));
    EXPECT_EQ(cell(0, 0)->style(), kit::TableViewCell::Style::Default);
    EXPECT_EQ(cell(0, 0)->textLabel()->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(cell(0, 0)->textLabel()->textColor(), ClassicUI::veskTextColor());
    EXPECT_EQ(cell(0, 0)->accessoryType(), kit::TableViewCell::AccessoryType::None);
}

TEST_F(InstalledAppsScreen, onlyDeselectsTheEmptyRowWhenItIsTapped)
{
    addPackage(QStringLiteral("Not installed"));
    show();
    table()->tapRow(0, 0);
    EXPECT_TRUE(isFadingOut(cell(0, 0)));
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(InstalledAppsScreen, listsTheInstalledPackagesByNameWithoutRegardToCase)
{
    addInstalled(QStringLiteral("banana"));
    addPackage(QStringLiteral("Apricot"));
    addInstalled(QStringLiteral("Cherry"));
    addInstalled(QStringLiteral("Apple"));
    show();
    EXPECT_EQ(texts(0), QStringList({ QStringLiteral("Apple"), QStringLiteral("banana"), QStringLiteral("Cherry") }));
    EXPECT_NE(qobject_cast<ClassicPackageCell*>(cell(0, 0)), nullptr);
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("PackageCell"));
}

TEST_F(InstalledAppsScreen, countsAPackageWithAnEmptyInstalledVersionAsInstalled)
{
    addInstalledPackage(QStringLiteral("Odd"), QStringLiteral("1.0"), QStringLiteral(""));
    show();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Odd")));
}

TEST_F(InstalledAppsScreen, pushesTheTappedPackage)
{
    addInstalled(QStringLiteral("Zebra"));
    const VeskPackagePtr apple = addInstalled(QStringLiteral("Apple"));
    show();
    kit::TableView* list = table();
    EXPECT_TRUE(isPushedAnimated([&] { list->tapRow(0, 0); }));
    EXPECT_TRUE(isFadingOut(list->cellForRow({ 0, 0 })));
    ASSERT_NE(top<PackageDetailViewController>(), nullptr);
    EXPECT_EQ(top<PackageDetailViewController>()->package(), apple);
}

TEST_F(InstalledAppsScreen, isBuiltAnewAtEveryAppearanceAndNotInBetween)
{
    show();
    addInstalled(QStringLiteral("Late"));
    table()->setContentOffset(1);
    EXPECT_EQ(text(0, 0), EmptyText);
    appearAgain();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Late")));
}

TEST_F(InstalledAppsScreen, showsTheStateOfTheLastRefreshHoweverTheQueueRan)
{
    const VeskPackagePtr removed = addInstalled(QStringLiteral("Removed"));
    const VeskPackagePtr installed = addPackage(QStringLiteral("Installed since"));
    show();
    installer->enqueuePackage(removed, QueueActionUninstall);
    installer->enqueuePackage(installed, QueueActionInstall);
    for (const QueueEntryPtr& entry : installer->queue())
        entry->setStatus(QueueStatusComplete);
    appearAgain();
    appearAgain();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Removed")));
}
