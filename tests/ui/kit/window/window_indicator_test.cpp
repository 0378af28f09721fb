// The bar that shows which part of a list is seen, and what a finger does with it.
#include "tests/ui/kit/window/FingerTest.h"
#include "ui/kit/paint/Animations.h"

#include <cmath>

namespace {

class Indicator : public FingerTest
{
protected:
    Indicator() { grabbed(); }

    kit::TableView& table() const { return *one->tableView(); }
    QQuickItem& bar() const { return *itemDrawnBy(QLatin1String("ScrollIndicator")); }
    // The bar's, in the table.
    double top() const { return bar().y(); }
    double bottom() const { return bar().y() + bar().height(); }
    double furthest() const { return table().contentHeight() - table().height(); }
    // Where the bar is, in the window.
    QRectF place() const { return bar().mapRectToScene({ 0, 0, bar().width(), bar().height() }); }

    // Lets the bar show. Not by a finger, whose speed would depend on that of the machine.
    void flick()
    {
        constexpr qreal upwards = -3000;
        table().setContentOffset(600);
        auto* const scroller = bar().property("flickable").value<QObject*>();
        QMetaObject::invokeMethod(scroller, "flick", Q_ARG(qreal, 0), Q_ARG(qreal, upwards));
        drawFrame();
        ASSERT_TRUE(bar().isVisible());
    }
    // Whether a finger that comes down there, while the list moves, takes hold of the bar.
    bool isHeldAt(double x, double y)
    {
        const double before = bar().width();
        begin({ static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y)) });
        const bool isHeld = bar().width() > before;
        end();
        return isHeld;
    }
};

} // namespace

TEST_F(Indicator, showsByItsPlaceAndItsLengthWhichPartIsSeen)
{
    const double way = table().height() - 6;
    EXPECT_NEAR(bar().height(), way * table().height() / table().contentHeight(), 0.01);
    EXPECT_EQ(bar().x() + bar().width(), table().width() - 3);
    EXPECT_EQ(top(), 3);
    table().setContentOffset(furthest() / 2);
    EXPECT_NEAR((top() + bottom()) / 2, table().height() / 2, 1);
    table().setContentOffset(furthest());
    EXPECT_NEAR(bottom(), table().height() - 3, 0.01);
}

TEST_F(Indicator, staysInsideTheListThatIsDrawnBeyondItsEnds)
{
    table().setContentOffset(-50);
    EXPECT_EQ(top(), 3);
    table().setContentOffset(furthest() + 50);
    EXPECT_NEAR(bottom(), table().height() - 3, 0.01);
}

TEST_F(Indicator, isLongEnoughForAFingerHoweverLongTheListIs)
{
    one->firstSectionRows = 20'000;
    table().reloadData();
    grabbed();
    EXPECT_EQ(bar().height(), 36);
    EXPECT_EQ(top(), 3);
    table().setContentOffset(furthest());
    EXPECT_NEAR(bottom(), table().height() - 3, 0.01);
}

TEST_F(Indicator, isNotThereForAListOfWhichEverythingIsSeen)
{
    quick()->resize(390, 3'100);
    ASSERT_TRUE(waitUntil([this] { return table().height() > table().contentHeight(); }));
    begin({ 200, 400 });
    moveTo({ 200, 460 });
    ASSERT_LT(table().contentOffset(), 0);
    EXPECT_FALSE(bar().isVisible());
    end();
}

TEST_F(Indicator, isTakenHoldOfWithinTwelvePointsBesideItAndEightAboveAndBelow)
{
    for (const auto& [x, y, isWithin] : { std::tuple{ -12.0, 0.5, true }, { -13.0, 0.5, false } }) {
        flick();
        EXPECT_EQ(isHeldAt(place().left() + x, place().center().y()), isWithin) << x << ' ' << y;
    }
    flick();
    EXPECT_TRUE(isHeldAt(place().right() + 2, place().center().y())) << "up to the edge of the window";
    flick();
    EXPECT_TRUE(isHeldAt(place().left(), std::ceil(place().top() - 8)));
    flick();
    EXPECT_FALSE(isHeldAt(place().left(), std::ceil(place().top() - 8) - 1));
    flick();
    EXPECT_TRUE(isHeldAt(place().left(), std::ceil(place().bottom() + 8) - 1));
    flick();
    EXPECT_FALSE(isHeldAt(place().left(), std::ceil(place().bottom() + 8)));
}

TEST_F(Indicator, staysAwayWhereAPersonWantsNothingToComeAndGo)
{
    press(Qt::Key_End);
    ASSERT_GT(table().contentOffset(), 0);
    EXPECT_FALSE(bar().isVisible());
}

TEST_F(Indicator, showsAndIsWideWhileItIsHeldThoughNothingMoves)
{
    flick();
    EXPECT_EQ(bar().width(), 4);
    EXPECT_EQ(bar().property("radius").toDouble(), 2) << "its ends are round";
    begin(place().center().toPoint());
    drawFrame();
    drawFrame();
    EXPECT_TRUE(bar().isVisible());
    EXPECT_EQ(bar().width(), 9);
    end();
    EXPECT_EQ(bar().width(), 4);
}

TEST_F(Indicator, goesAsFarAsTheFingerThatHoldsIt)
{
    flick();
    begin(place().center().toPoint());
    const double before = top();
    const QPoint hand = FingerTest::place;
    moveTo(hand + QPoint(0, 300));
    EXPECT_NEAR(top(), before + 300, 0.2);
    moveTo(hand + QPoint(0, 40));
    EXPECT_NEAR(top(), before + 40, 0.2);
    end();
}
