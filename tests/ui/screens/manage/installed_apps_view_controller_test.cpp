#include "ui/screens/manage/InstalledAppsViewController.h"

#include "tests/ui/screens/ScreenWorld.h"

namespace {

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
    EXPECT_EQ(headerText(0), QStringLiteral("INSTALLED PACKAGES"));
}

TEST_F(InstalledAppsScreen, saysThatNoneAreFoundWhenTheCatalogHasNoneThatAreInstalled)
{
    addPackage(QStringLiteral("Not installed"));
    show();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("No installed packages found")));
}

TEST_F(InstalledAppsScreen, listsTheInstalledPackagesByNameWithoutRegardToCase)
{
    addInstalled(QStringLiteral("banana"));
    addPackage(QStringLiteral("Apricot"));
    addInstalled(QStringLiteral("Cherry"));
    addInstalled(QStringLiteral("Apple"));
    show();
    EXPECT_EQ(texts(0), QStringList({ QStringLiteral("Apple"), QStringLiteral("banana"), QStringLiteral("Cherry") }));
}

TEST_F(InstalledAppsScreen, countsAPackageWithAnEmptyInstalledVersionAsInstalled)
{
    addInstalledPackage(QStringLiteral("Odd"), QStringLiteral("1.0"), QStringLiteral(""));
    show();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Odd")));
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
