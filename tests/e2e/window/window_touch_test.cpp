// What a finger does to the real window, drawn by the software renderer.
#include "tests/e2e/window/WindowTest.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/kit/paint/Animations.h"
#include "ui/screens/browse/PackageDetailViewController.h"
#include "ui/screens/browse/PackageListViewController.h"

#include <QPointingDevice>
#include <QTest>

#include <memory>

namespace {

const QPointF LowInTheList(195, 600);

class Finger : public WindowTest
{
protected:
    void TearDown() override { kit::Animations::setEnabled(false); }
    bool reaches(const QString& title)
    {
        return touch->waitUntil([&] { return touch->title() == title && !touch->stack().isTransitioning(); });
    }
    bool isHighlighted(const kit::IndexPath& row) const { return table().cellForRow(row)->isHighlighted(); }
    double topOfHeader(int section) const
    {
        const QQuickItem* item = touch->itemFor(table().headerView(section));
        return item ? item->mapToScene({ 0, 0 }).y() : -1;
    }
    // Sets the list moving a little and stops it again by a touch on the row; false where that is out of sight.
    bool stopUnderAFinger(const kit::IndexPath& row)
    {
        const double before = table().contentOffset();
        touch->flick(LowInTheList, LowInTheList + QPointF(0, -60));
        const QPointF place = touch->centreOfRow(row);
        touch->tap(place);
        return place.x() >= 0 && table().contentOffset() != before && touch->settle();
    }
    double topOfTable() const { return table().frame().top(); }
    // How much of the table's height below its pinned header holds dark writing, from 0 to 1.
    double writtenPart() const
    {
        const QImage picture = touch->picture();
        const int top = static_cast<int>(topOfTable()) + 25;
        const int bottom = static_cast<int>(topOfTable() + table().frame().height());
        int written = 0;
        for (int y = top; y < bottom; ++y) {
            bool isDark = false;
            for (int x = 12; x < picture.width() - 12 && !isDark; ++x)
                isDark = qGray(picture.pixel(x, y)) < 96;
            written += isDark ? 1 : 0;
        }
        return static_cast<double>(written) / (bottom - top);
    }
    void addPackageInEachOfManySections()
    {
        for (char letter = 'a'; letter <= 'z'; ++letter)
            addPackage(QString(QLatin1Char(letter)), QStringLiteral("Section ") + QLatin1Char(letter));
    }
    // To within a few points: a finger tells a drag from a tap by the first ones.
    void scrollTo(double offset)
    {
        constexpr double Threshold = 10;
        constexpr double LongestStroke = 400;
        while (offset - table().contentOffset() > Threshold) {
            const double before = table().contentOffset();
            const double stroke = std::min(offset - before, LongestStroke) + Threshold;
            touch->drag(LowInTheList, LowInTheList - QPointF(0, stroke));
            ASSERT_TRUE(touch->settle());
            ASSERT_GT(table().contentOffset(), before);
        }
    }
};

const QString Home = QStringLiteral("Welcome to Vesk");

QString linesOfText(int count)
{
    return QStringLiteral("A line of words that ends here.\n").repeated(count).trimmed();
}

} // namespace

TEST_F(Finger, pushesTheScreenOfATappedRowAndComesBack)
{
    addPackages(3);
    open();
    ASSERT_TRUE(touch->tapRow({ 0, 1 }));
    EXPECT_TRUE(reaches(QStringLiteral("Package 002")));
    EXPECT_NE(qobject_cast<PackageDetailViewController*>(&touch->screen()), nullptr);
    ASSERT_TRUE(touch->tapBarButton(QStringLiteral("Back")));
    EXPECT_TRUE(reaches(Home));
}

TEST_F(Finger, highlightsThePressedRowAndNoMoreOnceItIsDragged)
{
    addPackages(30);
    open();
    touch->press(touch->centreOfRow({ 0, 2 }));
    EXPECT_TRUE(isHighlighted({ 0, 2 }));
    touch->glideTo(touch->centreOfRow({ 0, 2 }) - QPointF(0, 120));
    EXPECT_FALSE(isHighlighted({ 0, 2 }));
    touch->release();
    EXPECT_EQ(touch->title(), Home);
    EXPECT_GT(table().contentOffset(), 60);
}

TEST_F(Finger, leavesNoRowSelectedBehindAPushedScreen)
{
    addPackages(3);
    open();
    ASSERT_TRUE(touch->tapRow({ 0, 0 }));
    ASSERT_TRUE(reaches(QStringLiteral("Package 001")));
    ASSERT_TRUE(touch->tapBarButton(QStringLiteral("Back")));
    ASSERT_TRUE(reaches(Home));
    EXPECT_FALSE(isHighlighted({ 0, 0 }));
}

TEST_F(Finger, fadesTheSelectionOfATappedRow)
{
    kit::Animations::setEnabled(true);
    addPackages(3);
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Manage")));
    ASSERT_TRUE(touch->settle());
    ASSERT_TRUE(touch->scrollToRow({ 2, 0 }));
    const QImage plain = touch->picture();
    ASSERT_TRUE(touch->tapRow({ 2, 0 }));
    EXPECT_NE(touch->picture(), plain);
    EXPECT_TRUE(touch->waitUntil([&] { return touch->picture() == plain; }));
}

TEST_F(Finger, goesOnScrollingAfterAFlick)
{
    addPackages(60);
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Changes")));
    touch->flick(LowInTheList, LowInTheList - QPointF(0, 300));
    EXPECT_TRUE(touch->waitUntil([&] { return table().contentOffset() > 400; }));
    ASSERT_TRUE(touch->settle());
    EXPECT_LE(table().contentOffset(), table().contentHeight() - table().height() + 0.5);
    EXPECT_EQ(touch->stack().viewControllers().size(), 1U);
}

TEST_F(Finger, opensNothingByATouchThatStopsTheList)
{
    addPackages(60);
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Changes")));
    touch->flick(LowInTheList, LowInTheList - QPointF(0, 300));
    ASSERT_TRUE(touch->waitUntil([&] { return table().contentOffset() > 400; }));
    touch->tap(LowInTheList);
    ASSERT_TRUE(touch->settle());
    EXPECT_EQ(touch->title(), QStringLiteral("Changes"));
    touch->tap(LowInTheList);
    ASSERT_TRUE(touch->settle());
    EXPECT_EQ(touch->stack().viewControllers().size(), 2U);
}

TEST_F(Finger, queuesNothingByATouchThatStopsTheActionsOfAPackage)
{
    addInstalledPackage(QStringLiteral("Alpha"), QStringLiteral("1.0"), QStringLiteral("1.0"))
        ->setDesc(linesOfText(60));
    open();
    ASSERT_TRUE(touch->tapRow({ 0, 0 }));
    ASSERT_TRUE(reaches(QStringLiteral("Alpha")));
    const kit::IndexPath uninstall{ 3, 1 };
    ASSERT_TRUE(touch->scrollToRow(uninstall));
    ASSERT_TRUE(stopUnderAFinger(uninstall));
    EXPECT_TRUE(installer->queue().empty());
    EXPECT_EQ(alert(), nullptr);
    ASSERT_TRUE(touch->tapRow(uninstall));
    EXPECT_EQ(installer->queue().size(), 1U);
}

TEST_F(Finger, handsNoSourceOverByATouchThatStopsTheSources)
{
    addPackages(1);
    for (int number = 1; number <= 30; ++number)
        manager->repositories().push_back(VeskRepository::repositoryWithURLString(
            QStringLiteral("http://127.0.0.1/%1").arg(number), QStringLiteral("Source %1").arg(number)));
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Manage")));
    ASSERT_TRUE(touch->tapRow({ 0, 0 }));
    ASSERT_TRUE(reaches(QStringLiteral("Sources")));
    const kit::IndexPath source{ 0, 6 };
    ASSERT_TRUE(stopUnderAFinger(source));
    EXPECT_TRUE(opener.openedURLs().isEmpty());
    ASSERT_TRUE(touch->tapRow(source));
    EXPECT_EQ(opener.openedURLs().size(), 1);
}

TEST_F(Finger, pinsTheHeaderUntilTheNextOnePushesItUp)
{
    addPackageInEachOfManySections();
    open();
    scrollTo(300);
    EXPECT_NEAR(topOfHeader(0), topOfTable(), 0.5);
    const double pushing = table().layout().sectionTop(1) - 12;
    scrollTo(pushing);
    ASSERT_GT(table().contentOffset(), table().layout().sectionTop(1) - 25);
    ASSERT_LT(table().contentOffset(), table().layout().sectionTop(1));
    EXPECT_LT(topOfHeader(0), topOfTable());
    EXPECT_NEAR(topOfHeader(1), topOfHeader(0) + 25, 0.5);
}

TEST_F(Finger, staysWithinTheListWhenPulledBeyondItsEnd)
{
    addPackages(20);
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Changes")));
    ASSERT_TRUE(touch->scrollToRow({ 0, 19 }));
    touch->drag(LowInTheList, LowInTheList - QPointF(0, 300));
    ASSERT_TRUE(touch->settle());
    EXPECT_NEAR(table().contentOffset(), table().contentHeight() - table().height(), 0.5);
}

TEST_F(Finger, keepsThePlaceOfEachTabAndOfEachScreen)
{
    addPackages(60);
    open();
    scrollTo(120);
    const double atHome = table().contentOffset();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Changes")));
    scrollTo(500);
    const double atChanges = table().contentOffset();
    ASSERT_NE(atChanges, atHome);
    ASSERT_TRUE(touch->tapRow(table().indexPathsForVisibleRows()[3]));
    ASSERT_TRUE(touch->settle());
    ASSERT_TRUE(touch->tapBarButton(QStringLiteral("Back")));
    ASSERT_TRUE(reaches(QStringLiteral("Changes")));
    EXPECT_EQ(table().contentOffset(), atChanges);
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Vesk")));
    ASSERT_TRUE(touch->settle());
    EXPECT_EQ(table().contentOffset(), atHome);
}

TEST_F(Finger, goesBackToTheRootOnASecondTapOnTheTab)
{
    addPackages(3);
    open();
    ASSERT_TRUE(touch->tapRow({ 1, 0 }));
    ASSERT_TRUE(touch->settle());
    ASSERT_TRUE(touch->tapRow({ 0, 0 }));
    ASSERT_TRUE(touch->settle());
    ASSERT_EQ(touch->stack().viewControllers().size(), 3U);
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Vesk")));
    EXPECT_TRUE(reaches(Home));
    EXPECT_EQ(touch->stack().viewControllers().size(), 1U);
}

TEST_F(Finger, goesBackToTheRootAlsoWhenTheSecondTapFollowsTheFirstAtOnce)
{
    addPackages(3);
    open();
    ASSERT_TRUE(touch->tapRow({ 0, 0 }));
    ASSERT_TRUE(reaches(QStringLiteral("Package 001")));
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Changes")));
    ASSERT_TRUE(reaches(QStringLiteral("Changes")));
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Vesk")));
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Vesk")));
    EXPECT_TRUE(touch->waitUntil([&] { return touch->title() == Home; }, 5000));
}

TEST_F(Finger, uncoversTheDeleteButtonBySwipingAndDeletesTheEntry)
{
    const VeskPackagePtr first = addPackage(QStringLiteral("Alpha"));
    const VeskPackagePtr second = addPackage(QStringLiteral("Beta"));
    installer->enqueuePackage(first, QueueActionInstall);
    installer->enqueuePackage(second, QueueActionInstall);
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Manage")));
    ASSERT_TRUE(touch->tapRow({ 0, 2 }));
    ASSERT_TRUE(reaches(QStringLiteral("Queue")));
    ASSERT_TRUE(touch->swipeOpen({ 0, 0 }));
    ASSERT_TRUE(touch->settle());
    EXPECT_EQ(installer->queue().size(), 2U);
    ASSERT_TRUE(touch->tap(touch->find(QAccessible::Button, QStringLiteral("Delete"))));
    ASSERT_EQ(installer->queue().size(), 1U);
    EXPECT_EQ(installer->queue().front()->package(), second);
    EXPECT_EQ(touch->rowText({ 0, 0 }), QStringLiteral("Beta"));
    EXPECT_EQ(touch->find(QAccessible::Button, QStringLiteral("Delete")), nullptr);
}

TEST_F(Finger, shutsAnOpenRowWithATapAnywhereInTheList)
{
    installer->enqueuePackage(addPackage(QStringLiteral("Alpha")), QueueActionInstall);
    installer->enqueuePackage(addPackage(QStringLiteral("Beta")), QueueActionInstall);
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Manage")));
    ASSERT_TRUE(touch->tapRow({ 0, 2 }));
    ASSERT_TRUE(reaches(QStringLiteral("Queue")));
    ASSERT_TRUE(touch->swipeOpen({ 0, 0 }));
    ASSERT_TRUE(touch->settle());
    ASSERT_TRUE(touch->tapRow({ 0, 1 }));
    EXPECT_EQ(table().openRow()->row(), -1);
    EXPECT_EQ(installer->queue().size(), 2U);
}

TEST_F(Finger, refreshesOnceForAPullThatIsLongEnough)
{
    addPackages(30);
    network->hold();
    open();
    touch->drag({ 195, 300 }, { 195, 360 });
    ASSERT_TRUE(touch->settle());
    EXPECT_TRUE(network->requestedURLs().isEmpty());
    touch->drag({ 195, 300 }, { 195, 560 });
    ASSERT_TRUE(touch->waitUntil([&] { return !network->requestedURLs().isEmpty(); }));
    EXPECT_EQ(network->requestedURLs(), QStringList{ QStringLiteral("http://127.0.0.1/first/Packages.bz2") });
    EXPECT_TRUE(table().refreshControl()->isRefreshing());
    EXPECT_TRUE(touch->waitUntil([&] { return table().contentOffset() == -60; }));
    EXPECT_FALSE(touch->barButton(QStringLiteral("Reload"))->isEnabled());
    network->release();
    EXPECT_TRUE(
        touch->waitUntil([&] { return !table().refreshControl()->isRefreshing() && table().contentOffset() == 0; }));
    EXPECT_TRUE(touch->barButton(QStringLiteral("Reload"))->isEnabled());
}

TEST_F(Finger, holdsBackEverythingBehindAnAlertUntilItsButtonIsTapped)
{
    addPackages(3);
    open();
    // A screen reader does not find it behind the alert, but a finger does.
    const QPointF tab = TouchDriver::centre(*touch->tabButton(QStringLiteral("Search")));
    ASSERT_TRUE(touch->tapBarButton(QStringLiteral("About")));
    ASSERT_NE(alert(), nullptr);
    ASSERT_TRUE(touch->settle());
    touch->tap(tab);
    touch->tap({ 195, 500 });
    EXPECT_EQ(touch->tabs().selectedIndex(), 0);
    EXPECT_NE(alert(), nullptr);
    ASSERT_TRUE(touch->tapAlertButton(QStringLiteral("Close")));
    EXPECT_TRUE(touch->waitUntil([&] { return alert() == nullptr; }));
    EXPECT_EQ(touch->title(), Home);
}

TEST_F(Finger, cancelsASheetByATouchBesideIt)
{
    addInstalledPackage(QStringLiteral("Alpha"), QStringLiteral("2.0"), QStringLiteral("1.0"));
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Manage")));
    ASSERT_TRUE(touch->settle());
    ASSERT_TRUE(touch->tapRow({ 2, 0 }));
    ASSERT_NE(alert(), nullptr);
    ASSERT_TRUE(touch->settle());
    touch->tap({ 195, 100 });
    EXPECT_TRUE(touch->waitUntil([&] { return alert() == nullptr; }));
    EXPECT_TRUE(installer->queue().empty());
}

TEST_F(Finger, scrollsByTheWheelAndSelectsByTheMouse)
{
    addPackages(60);
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Changes")));
    touch->wheel({ 195, 400 }, 3);
    EXPECT_TRUE(touch->waitUntil([&] { return table().contentOffset() > 60; }));
    ASSERT_TRUE(touch->settle());
    const kit::IndexPath row = table().indexPathsForVisibleRows()[4];
    const QString name = touch->rowText(row);
    touch->click(touch->centreOfRow(row));
    EXPECT_TRUE(reaches(name));
}

TEST_F(Finger, showsAnEmptyCatalogWhereALongOneWasScrolled)
{
    addPackageInEachOfManySections();
    network->hold();
    open();
    scrollTo(1200);
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Manage")));
    ASSERT_TRUE(reaches(QStringLiteral("Manage")));
    manager->packages().clear();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Vesk")));
    ASSERT_TRUE(reaches(Home));
    EXPECT_EQ(touch->rowText({ 0, 0 }), QStringLiteral("No packages loaded. Tap Reload."));
    EXPECT_LE(table().contentOffset(), 0);
    network->release();
}

TEST_F(Finger, scrollsByATrackpadAsFarAsTheFingersGo)
{
    addPackages(60);
    open();
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Changes")));
    const QPointF place(195, 400);
    ulong time = 1000;
    const auto moveFingers = [&](Qt::ScrollPhase phase, int points) {
        QWheelEvent event(place, touch->quickWindow().mapToGlobal(place), { 0, -points }, { 0, -points * 8 },
            Qt::NoButton, Qt::NoModifier, phase, false, Qt::MouseEventSynthesizedBySystem);
        event.setTimestamp(time += 16);
        QCoreApplication::sendEvent(&touch->quickWindow(), &event);
        QCoreApplication::processEvents();
    };
    moveFingers(Qt::ScrollBegin, 0);
    for (int step = 0; step < 10; ++step)
        moveFingers(Qt::ScrollUpdate, 20);
    moveFingers(Qt::ScrollEnd, 0);
    ASSERT_TRUE(touch->settle());
    // But for the first moves, which only tell a scroll from a rest.
    EXPECT_NEAR(table().contentOffset(), 200, 45);
}

TEST_F(Finger, opensOneScreenWhenTwoFingersTapTwoRowsAtOnce)
{
    addPackages(10);
    open();
    const std::unique_ptr<QPointingDevice> hand(QTest::createTouchDevice());
    const QPoint first = touch->centreOfRow({ 0, 1 }).toPoint();
    const QPoint second = touch->centreOfRow({ 0, 4 }).toPoint();
    QTest::touchEvent(&touch->quickWindow(), hand.get()).press(0, first).press(1, second);
    QTest::touchEvent(&touch->quickWindow(), hand.get()).release(0, first).release(1, second);
    ASSERT_TRUE(touch->settle());
    EXPECT_EQ(touch->stack().viewControllers().size(), 2U);
}

TEST_F(Finger, opensOneScreenHoweverQuicklyARowIsTapped)
{
    kit::Animations::setEnabled(true);
    addPackages(10);
    open();
    const QPointF row = touch->centreOfRow({ 0, 1 });
    for (int time = 0; time < 6; ++time)
        touch->tap(row);
    ASSERT_TRUE(touch->settle());
    EXPECT_EQ(touch->stack().viewControllers().size(), 2U);
    EXPECT_EQ(touch->title(), QStringLiteral("Package 002"));
}

TEST_F(Finger, changesTheTabWhileAScreenIsStillSlidingIn)
{
    kit::Animations::setEnabled(true);
    addPackages(10);
    open();
    ASSERT_TRUE(touch->tapRow({ 0, 1 }));
    ASSERT_TRUE(touch->stack().isTransitioning());
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Changes")));
    ASSERT_TRUE(reaches(QStringLiteral("Changes")));
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Vesk")));
    ASSERT_TRUE(reaches(QStringLiteral("Package 002")));
    ASSERT_TRUE(touch->tapBarButton(QStringLiteral("Back")));
    EXPECT_TRUE(reaches(Home));
    EXPECT_FALSE(isHighlighted({ 0, 1 }));
}

TEST_F(Finger, readsALongDescriptionWhereverItIsScrolledTo)
{
    addPackage(QStringLiteral("Package 001"))->setDesc(linesOfText(500));
    open();
    ASSERT_TRUE(touch->tapRow({ 0, 0 }));
    ASSERT_TRUE(reaches(QStringLiteral("Package 001")));
    for (int stroke = 0; stroke < 4; ++stroke) {
        touch->drag(LowInTheList, LowInTheList - QPointF(0, 400));
        ASSERT_TRUE(touch->settle());
        EXPECT_GT(writtenPart(), 0.5) << "after stroke " << stroke;
    }
}

TEST_F(Finger, findsWritingAtTheEndOfADescriptionOfAnyLength)
{
    addPackage(QStringLiteral("Package 001"))->setDesc(linesOfText(30'000));
    open();
    ASSERT_TRUE(touch->tapRow({ 0, 0 }));
    ASSERT_TRUE(reaches(QStringLiteral("Package 001")));
    table().setContentOffset(table().rectForRow({ 1, 0 }).bottom() - table().frame().height());
    ASSERT_TRUE(touch->settle());
    EXPECT_GT(writtenPart(), 0.5);
}
