// What a list shows of a refresh, and one that has none.
#include "tests/ui/kit/window/FingerTest.h"
#include "ui/kit/paint/KitLook.h"

#include <algorithm>
#include <vector>

namespace {

class Refresh : public FingerTest
{
protected:
    Refresh() { grabbed(); }

    kit::TableView& table() const { return *one->tableView(); }
    // Of the spinner that a screen reader finds, in the table.
    QRectF spinner() const
    {
        QAccessibleInterface* const found = accessible(QStringLiteral("Refreshing"));
        return QRectF(found->rect().translated(-quick()->position() - QPoint(0, 44)));
    }
    // How many spinners turn: each that runs and is seen, and no other.
    static int turningIn(const QQuickItem& item)
    {
        int count = 0;
        for (const QObject* const part : item.children())
            if (part->inherits("QQuickNumberAnimation") && item.property("phase").isValid()) {
                const bool turns = part->property("running").toBool();
                EXPECT_EQ(turns, item.property("running").toBool() && item.isVisible());
                count += turns ? 1 : 0;
            }
        for (const QQuickItem* const child : item.childItems())
            count += turningIn(*child);
        return count;
    }
    static int seenIn(const QQuickItem& item)
    {
        int count = item.property("phase").isValid() && item.isVisible() ? 1 : 0;
        for (const QQuickItem* const child : item.childItems())
            count += seenIn(*child);
        return count;
    }
    int seen() const { return seenIn(*quick()->contentItem()); }
    int turning() const { return turningIn(*quick()->contentItem()); }
};

} // namespace

TEST_F(Refresh, spinsInTheMiddleBelowAPinnedHeaderWhereTheListWasScrolledOn)
{
    table().refreshControl()->beginRefreshing();
    table().setContentOffset(300);
    grabbed();
    EXPECT_EQ(spinner().center().x(), 195);
    EXPECT_EQ(spinner().center().y(), 25 + 10 + 22);
}

TEST_F(Refresh, leavesAListThatWasScrolledOnWhereItIs)
{
    table().setContentOffset(300);
    table().refreshControl()->beginRefreshing();
    grabbed();
    EXPECT_EQ(table().contentOffset(), 300);
    table().refreshControl()->endRefreshing();
    grabbed();
    EXPECT_EQ(table().contentOffset(), 300);
}

TEST_F(Refresh, spinsOnAPanelWhereTheListWasScrolledOn)
{
    table().refreshControl()->beginRefreshing();
    table().setContentOffset(300);
    grabbed();
    const auto* const turning = qobject_cast<QQuickItem*>(accessible(QStringLiteral("Refreshing"))->object());
    const QQuickItem& panel = *turning->parentItem();
    const kit::KitLook look;
    EXPECT_EQ(panel.size(), QSizeF(44, 44));
    EXPECT_EQ(panel.opacity(), 0.9) << "the rows show through";
    EXPECT_EQ(panel.property("upper"), look.property("panelTop"));
    EXPECT_EQ(panel.property("lower"), look.property("panelBottom"));
    EXPECT_EQ(panel.property("edge"), look.property("edge"));
    EXPECT_EQ(turning->property("tint"), look.property("panelText"));
}

TEST_F(Refresh, spinsInTheRoomAboveAListThatIsAtItsBeginning)
{
    table().refreshControl()->beginRefreshing();
    ASSERT_TRUE(waitUntil([this] { return table().contentOffset() == -60; }));
    grabbed();
    EXPECT_EQ(spinner().center(), QPointF(195, 30));
}

TEST_F(Refresh, hasItsRoomOnAScreenThatComesWhileItRuns)
{
    auto* const page = new ListScreen(QStringLiteral("Page"));
    page->tableView()->refreshControl()->beginRefreshing();
    stack(0)->pushViewController(page, kit::NavigationController::Animation::None);
    EXPECT_TRUE(waitUntil([&] { return page->tableView()->contentOffset() == -60; }));
}

TEST_F(Refresh, turnsTwelveSpokesOfWhichEachIsFainterThanTheNext)
{
    table().refreshControl()->beginRefreshing();
    table().setContentOffset(300);
    grabbed();
    const auto& spinner = *qobject_cast<QQuickItem*>(accessible(QStringLiteral("Refreshing"))->object());
    std::vector<double> rotations;
    std::vector<double> opacities;
    for (const QQuickItem* part : spinner.childItems())
        if (part->width() > 0) {
            rotations.push_back(part->rotation());
            opacities.push_back(part->opacity());
        }
    ASSERT_EQ(rotations.size(), 12U);
    std::sort(opacities.begin(), opacities.end());
    for (int spoke = 0; spoke < 12; ++spoke) {
        EXPECT_EQ(rotations[static_cast<std::size_t>(spoke)], spoke * 30);
        EXPECT_NEAR(opacities[static_cast<std::size_t>(spoke)], 1 - 0.07 * (11 - spoke), 0.001);
    }
}

TEST_F(Refresh, turnsOnlyWhileItRunsAndIsSeen)
{
    EXPECT_EQ(turning(), 0);
    table().setContentOffset(-40);
    EXPECT_EQ(turning(), 0) << "seen, but drawn down only";
    table().refreshControl()->beginRefreshing();
    ASSERT_TRUE(waitUntil([this] { return table().contentOffset() == -60; }));
    EXPECT_EQ(turning(), 1);
    tabs->setSelectedIndex(1);
    EXPECT_EQ(turning(), 0) << "behind another tab";
    tabs->setSelectedIndex(0);
    EXPECT_EQ(turning(), 1);
    table().refreshControl()->endRefreshing();
    EXPECT_EQ(turning(), 0);
}

TEST_F(Refresh, showsOnceTheListIsDrawnDownByMoreThanTwelvePoints)
{
    table().setContentOffset(-12);
    EXPECT_EQ(seen(), 0);
    table().setContentOffset(-12.5);
    EXPECT_EQ(seen(), 1);
}

TEST_F(Refresh, isNothingToAListThatHasNone)
{
    auto* const page = new ListScreen(QStringLiteral("Page"));
    page->tableView()->setRefreshControl(nullptr);
    stack(0)->pushViewController(page, kit::NavigationController::Animation::None);
    grabbed();
    begin({ 200, 200 });
    moveTo({ 200, 600 });
    EXPECT_LT(page->tableView()->contentOffset(), 0) << "drawn down";
    EXPECT_EQ(accessible(QStringLiteral("Refreshing")), nullptr);
    end();
    EXPECT_TRUE(waitUntil([&] { return page->tableView()->contentOffset() == 0; }));
    EXPECT_EQ(page->refreshes, 0);
}

TEST_F(Refresh, makesRoomForTheSpinnerWhileItRefreshes)
{
    table().refreshControl()->beginRefreshing();
    EXPECT_TRUE(waitUntil([this] { return table().contentOffset() == -60; }));
    grabbed();
    table().refreshControl()->endRefreshing();
    EXPECT_TRUE(waitUntil([this] { return table().contentOffset() == 0; }));
    EXPECT_EQ(one->refreshes, 0);
}

TEST_F(Refresh, showsThatItRefreshesWhereverTheListStands)
{
    const QRect below(quick()->position() + QPoint(0, 44), quick()->size() - QSize(0, 44 + 49));
    table().refreshControl()->beginRefreshing();
    for (const double offset : { -60.0, -42.0, -30.0, 0.0, 200.0, 1'500.0 }) {
        table().setContentOffset(offset);
        grabbed();
        QAccessibleInterface* const spinner = accessible(QStringLiteral("Refreshing"));
        ASSERT_NE(spinner, nullptr) << offset;
        EXPECT_TRUE(below.contains(spinner->rect())) << offset;
    }
    table().refreshControl()->endRefreshing();
    grabbed();
    EXPECT_EQ(accessible(QStringLiteral("Refreshing")), nullptr);
}

TEST_F(Refresh, refreshesByAPull)
{
    const QPoint start(200, 200);
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, start);
    for (int y = 0; y <= 400; y += 20)
        QTest::mouseMove(quick(), start + QPoint(0, y));
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, start + QPoint(0, 400));
    EXPECT_TRUE(waitUntil([this] { return one->refreshes == 1; }));
    EXPECT_TRUE(table().refreshControl()->isRefreshing());
    EXPECT_FALSE(stack(0)->canGoBack());
}
