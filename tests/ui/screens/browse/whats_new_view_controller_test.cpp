#include "ui/screens/browse/WhatsNewViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicUI.h"

namespace {

const QString EmptyText = QStringLiteral("No changes available. Tap Reload.");

class WhatsNewScreen : public ScreenTest
{
protected:
    WhatsNewViewController* show() { return ScreenTest::show(new WhatsNewViewController(*manager, *installer)); }
    static bool isRefreshing(WhatsNewViewController* screen)
    {
        return screen->tableView()->refreshControl()->isRefreshing();
    }
    static kit::BarButtonItem* reloadButton(WhatsNewViewController* screen)
    {
        return screen->navigationItem()->rightBarButtonItem();
    }
    // Presses the button and waits for the refresh to be over.
    void refresh(WhatsNewViewController* screen)
    {
        reloadButton(screen)->press();
        ASSERT_TRUE(waitUntil([&] { return reloadButton(screen)->isEnabled(); }));
    }
    static QByteArray stanza(const char* name)
    {
        return QByteArray("Package: org.example.") + name + "\nName: " + name + "\nVersion: 1.0\n\n";
    }
};

} // namespace

TEST_F(WhatsNewScreen, isTitledChangesAndHasAReloadButtonAndABlueRefreshControl)
{
    auto* screen = show();
    EXPECT_EQ(screen->title(), QStringLiteral("Changes"));
    EXPECT_EQ(screen->navigationItem()->leftBarButtonItem(), nullptr);
    ASSERT_NE(reloadButton(screen), nullptr);
    EXPECT_EQ(reloadButton(screen)->title(), QStringLiteral("Reload"));
    EXPECT_EQ(reloadButton(screen)->style(), kit::BarButtonItem::Style::Plain);
    EXPECT_TRUE(reloadButton(screen)->isEnabled());
    ASSERT_NE(screen->tableView()->refreshControl(), nullptr);
    EXPECT_EQ(screen->tableView()->refreshControl()->tintColor(), ClassicUI::veskBlueColor());
    EXPECT_FALSE(isRefreshing(screen));
}

TEST_F(WhatsNewScreen, saysThatThereAreNoChangesWhenTheCatalogIsEmpty)
{
    show();
    EXPECT_EQ(headerText(0), QStringLiteral("RECENT UPDATES"));
    EXPECT_EQ(texts(0), QStringList(EmptyText));
}

TEST_F(WhatsNewScreen, listsEveryPackageByNameWithoutRegardToCase)
{
    addPackage(QStringLiteral("banana"));
    addPackage(QStringLiteral("Cherry"));
    addInstalledPackage(QStringLiteral("apple"), QStringLiteral("1"), QStringLiteral("1"));
    addPackage(QStringLiteral("Date"));
    auto* screen = show();
    const QStringList expected{ QStringLiteral("apple"), QStringLiteral("banana"), QStringLiteral("Cherry"),
        QStringLiteral("Date") };
    EXPECT_EQ(texts(0), expected);
    EXPECT_EQ(screen->packages().size(), 4U);
    EXPECT_EQ(headerText(0), QStringLiteral("RECENT UPDATES"));
}

TEST_F(WhatsNewScreen, hasNoCap)
{
    for (int number = 0; number < 500; ++number)
        addPackage(QStringLiteral("Package %1").arg(number));
    show();
    EXPECT_EQ(table()->layout().rowCount(0), 500);
}

TEST_F(WhatsNewScreen, spinsWithItsButtonDisabledUntilTheRefreshHasEnded)
{
    network->hold();
    auto* screen = show();
    reloadButton(screen)->press();
    EXPECT_TRUE(isRefreshing(screen));
    EXPECT_FALSE(reloadButton(screen)->isEnabled());
    turnLoop();
    EXPECT_TRUE(isRefreshing(screen));
    EXPECT_FALSE(reloadButton(screen)->isEnabled());
    network->release();
    EXPECT_TRUE(waitUntil([&] { return reloadButton(screen)->isEnabled(); }));
    EXPECT_FALSE(isRefreshing(screen));
}

TEST_F(WhatsNewScreen, listsThePackagesOfEverySourceAfterARefresh)
{
    const auto second
        = VeskRepository::repositoryWithURLString(QStringLiteral("http://127.0.0.1/second"), QStringLiteral("Second"));
    const auto disabled
        = VeskRepository::repositoryWithURLString(QStringLiteral("http://127.0.0.1/third"), QStringLiteral("Third"));
    disabled->setEnabled(false);
    manager->repositories().push_back(second);
    manager->repositories().push_back(disabled);
    network->serve(QStringLiteral("http://127.0.0.1/first/Packages"), stanza("pear") + stanza("Apple"));
    network->serve(QStringLiteral("http://127.0.0.1/second/Packages"), stanza("Quince") + stanza("banana"));
    network->serve(QStringLiteral("http://127.0.0.1/third/Packages"), stanza("Cherry"));
    auto* screen = show();
    refresh(screen);
    const QStringList expected{ QStringLiteral("Apple"), QStringLiteral("banana"), QStringLiteral("pear"),
        QStringLiteral("Quince") };
    EXPECT_EQ(texts(0), expected);
}

TEST_F(WhatsNewScreen, endsAFailedRefreshLikeAnyOtherAndShowsNoError)
{
    addPackage(QStringLiteral("Old"));
    auto* screen = show();
    refresh(screen);
    EXPECT_FALSE(isRefreshing(screen));
    EXPECT_EQ(texts(0), QStringList(EmptyText));
    EXPECT_FALSE(manager->errorMessage().isEmpty());
    EXPECT_TRUE(window.alerts().isEmpty());
}

TEST_F(WhatsNewScreen, waitsForALaterTurnOfTheLoopAlsoWhenTheRefreshEndsAtOnce)
{
    manager->repositories().front()->setEnabled(false);
    auto* screen = show();
    reloadButton(screen)->press();
    EXPECT_FALSE(reloadButton(screen)->isEnabled());
    EXPECT_TRUE(isRefreshing(screen));
    turnLoop();
    EXPECT_TRUE(reloadButton(screen)->isEnabled());
    EXPECT_FALSE(isRefreshing(screen));
}

TEST_F(WhatsNewScreen, startsARefreshByAPullAlsoWhileAnotherRuns)
{
    network->hold();
    auto* screen = show();
    reloadButton(screen)->press();
    ASSERT_TRUE(waitUntil([&] { return network->requestedURLs().size() == 1; }));
    screen->tableView()->refreshControl()->pull();
    ASSERT_TRUE(waitUntil([&] { return network->requestedURLs().size() == 2; }));
    network->release();
    EXPECT_TRUE(waitUntil([&] { return reloadButton(screen)->isEnabled() && !isRefreshing(screen); }));
}

TEST_F(WhatsNewScreen, mayBeGoneWhenTheRefreshEnds)
{
    network->hold();
    const QPointer<WhatsNewViewController> screen(show());
    reloadButton(screen)->press();
    ASSERT_TRUE(waitUntil([&] { return network->requestedURLs().size() == 1; }));
    dismissScreen();
    EXPECT_TRUE(screen.isNull());
    network->release();
    EXPECT_TRUE(waitUntil([&] { return !manager->isLoading(); }));
    turnLoop();
}

TEST_F(WhatsNewScreen, mayBeGoneBetweenTheRefreshsEndAndTheTurnThatShowsIt)
{
    manager->repositories().front()->setEnabled(false);
    reloadButton(show())->press();
    dismissScreen();
    turnLoop();
    EXPECT_EQ(navigation, nullptr);
}
