#include "ui/kit/alert/PanelPlace.h"

#include <gtest/gtest.h>

namespace {

constexpr QSizeF Panel(290, 180);
constexpr QSizeF Large(1024, 768);
constexpr double Arrow = kit::PanelPlace::ArrowLength;

QRectF rectOf(const kit::PanelPlace& place, const QSizeF& panel = Panel)
{
    return { { place.x(), place.y() }, panel };
}

} // namespace

TEST(PanelPlace, isBelowItsAnchorAndPointsAtItsMiddle)
{
    const kit::PanelPlace place(Panel, { 0, 100, 1024, 60 }, Large);
    EXPECT_EQ(rectOf(place), QRectF(367, 160 + Arrow, 290, 180));
    EXPECT_EQ(place.arrowEdge(), kit::PanelPlace::TopEdge);
    EXPECT_EQ(place.arrowTip(), 145);
}

TEST(PanelPlace, isAboveAnAnchorThatHasNoRoomBelow)
{
    const kit::PanelPlace place(Panel, { 0, 650, 1024, 60 }, Large);
    EXPECT_EQ(rectOf(place).bottom(), 650 - Arrow);
    EXPECT_EQ(place.arrowEdge(), kit::PanelPlace::BottomEdge);
}

TEST(PanelPlace, isRightOrLeftOfATallAnchor)
{
    const kit::PanelPlace right(Panel, { 0, 0, 300, 768 }, Large);
    EXPECT_EQ(rectOf(right).topLeft(), QPointF(300 + Arrow, 294));
    EXPECT_EQ(right.arrowEdge(), kit::PanelPlace::LeftEdge);
    EXPECT_EQ(right.arrowTip(), 90);
    const kit::PanelPlace left(Panel, { 724, 0, 300, 768 }, Large);
    EXPECT_EQ(rectOf(left).right(), 724 - Arrow);
    EXPECT_EQ(left.arrowEdge(), kit::PanelPlace::RightEdge);
}

TEST(PanelPlace, keepsInsideTheWindowAndStillPointsAtAnAnchorInACorner)
{
    const kit::PanelPlace place(Panel, { 1000, 10, 20, 20 }, Large);
    EXPECT_EQ(rectOf(place).right(), 1024 - kit::PanelPlace::Margin);
    EXPECT_EQ(place.arrowEdge(), kit::PanelPlace::TopEdge);
    EXPECT_EQ(place.arrowTip(), 290 - kit::PanelPlace::CornerRadius - kit::PanelPlace::ArrowHalfWidth)
        << "as far as the round corner lets it";
}

TEST(PanelPlace, liesOverTheMiddleOfAnAnchorThatLeavesNoRoomBesideIt)
{
    const kit::PanelPlace place(Panel, { 0, 44, 1024, 675 }, Large);
    EXPECT_EQ(place.arrowEdge(), kit::PanelPlace::NoArrow);
    EXPECT_EQ(rectOf(place).center(), QPointF(512, 382));
}

TEST(PanelPlace, isInTheMiddleOfTheWindowWithoutAnAnchorThatIsSeen)
{
    for (const QRectF& anchor : { QRectF(), QRectF(0, -300, 1024, 60), QRectF(0, 900, 1024, 60) }) {
        const kit::PanelPlace place(Panel, anchor, Large);
        EXPECT_EQ(place.arrowEdge(), kit::PanelPlace::NoArrow);
        EXPECT_EQ(rectOf(place).center(), QPointF(512, 384));
    }
}

TEST(PanelPlace, pointsAtThePartOfItsAnchorThatIsSeen)
{
    const kit::PanelPlace place(Panel, { 900, 100, 4000, 60 }, Large);
    EXPECT_EQ(rectOf(place).right(), 1024 - kit::PanelPlace::Margin);
    EXPECT_EQ(place.x() + place.arrowTip(), 962);
}

TEST(PanelPlace, beginsAtTheMarginOfAWindowThatIsTooSmall)
{
    const kit::PanelPlace place(Panel, { 0, 0, 100, 20 }, { 100, 100 });
    EXPECT_EQ(rectOf(place).topLeft(), QPointF(kit::PanelPlace::Margin, kit::PanelPlace::Margin));
    EXPECT_EQ(place.arrowEdge(), kit::PanelPlace::NoArrow);
}
