// What the window shows half-way between two screens.
#include "tests/ui/kit/paint/AnimationClock.h"
#include "tests/ui/kit/window/FingerTest.h"
#include "ui/kit/paint/Animations.h"

#include <cmath>

namespace {

// A stack of three screens, of which the upper two take part.
class Transition : public FingerTest
{
protected:
    Transition()
    {
        below = push(QStringLiteral("Below"));
        titleOfBelow = placeOfTitle(*below);
        above = push(QStringLiteral("Above"));
        titleOfAbove = placeOfTitle(*above);
    }
    ~Transition() override { kit::Animations::setEnabled(false); }

    ListScreen* push(const QString& title)
    {
        auto* const screen = new ListScreen(title);
        stack(0)->pushViewController(screen, kit::NavigationController::Animation::None);
        grabbed();
        return screen;
    }
    // The item of that kind that shows the screen, by the property that holds it.
    QQuickItem* itemOf(QLatin1String kind, const char* property, const kit::ViewController& screen) const
    {
        std::vector<QQuickItem*> open{ quick()->contentItem() };
        while (!open.empty()) {
            QQuickItem* const item = open.back();
            open.pop_back();
            if (QLatin1String(item->metaObject()->className()).startsWith(kind)
                && item->property(property).value<QObject*>() == &screen)
                return item;
            for (QQuickItem* child : item->childItems())
                open.push_back(child);
        }
        return nullptr;
    }
    QQuickItem& page(const kit::ViewController& screen) const
    {
        return *itemOf(QLatin1String("ScreenPage"), "controller", screen);
    }
    QQuickItem& bar(const kit::ViewController& screen) const
    {
        return *itemOf(QLatin1String("BarContents"), "page", screen);
    }
    double placeOfTitle(const kit::ViewController& screen) const
    {
        for (const QQuickItem* child : bar(screen).childItems())
            if (child->property("text").toString() == screen.title())
                return child->x();
        return -1;
    }
    double shadeOver(const kit::ViewController& screen) const
    {
        for (const QQuickItem* child : page(screen).childItems())
            if (child->inherits("QQuickRectangle") && child->isVisible())
                return child->opacity();
        return 0;
    }
    // With the upper screen drawn to the right by so much of the width; the lower one follows a third as far.
    void expectApart(double share) const
    {
        const double width = quick()->width();
        EXPECT_EQ(page(*above).x(), std::round(share * width));
        EXPECT_EQ(page(*below).x(), -std::round((1 - share) * 0.3 * width));
        EXPECT_EQ(shadeOver(*above), 0);
        EXPECT_NEAR(shadeOver(*below), (1 - share) * 0.3, 0.002);
        EXPECT_NEAR(bar(*above).opacity(), 1 - share, 0.001);
        EXPECT_NEAR(bar(*below).opacity(), share, 0.001);
        EXPECT_NEAR(placeOfTitle(*above), titleOfAbove + share * width * 0.3, 0.6);
        EXPECT_NEAR(placeOfTitle(*below), titleOfBelow - (1 - share) * width * 0.3, 0.6);
        for (const ListScreen* screen : { above, below })
            EXPECT_EQ(placeOfTitle(*screen), std::round(placeOfTitle(*screen))) << "crisp on its way too";
        EXPECT_FALSE(page(*one).isVisible() || bar(*one).isVisible()) << "it has no part in this";
        EXPECT_FALSE(page(*one).mapRectToScene({ 0, 0, 1, 1 }).intersects({ 0, 0, width, 1 }));
    }

    ListScreen* below;
    ListScreen* above;
    double titleOfBelow;
    double titleOfAbove;
};

} // namespace

TEST_F(Transition, followsAFingerWithBothPagesAndTheirTitles)
{
    begin({ 5, 400 });
    for (const int x : { 105, 205, 305 }) {
        moveTo({ x, 400 });
        ASSERT_TRUE(stack(0)->isSwipingBack());
        ASSERT_NEAR(stack(0)->progress(), (x - 5) / 390.0, 0.06);
        expectApart(stack(0)->progress());
    }
    end();
}

TEST_F(Transition, movesBothPagesAndTheirTitlesBothWays)
{
    kit::Animations::setEnabled(true);
    AnimationClock clock;
    auto* const next = new ListScreen(QStringLiteral("Next"));
    below = above;
    titleOfBelow = titleOfAbove;
    stack(0)->pushViewController(next, kit::NavigationController::Animation::Animated);
    above = next;
    titleOfAbove = placeOfTitle(*next) - std::round((1 - stack(0)->progress()) * quick()->width() * 0.3);
    clock.goTo(kit::Animations::Push / 4);
    ASSERT_TRUE(stack(0)->isTransitioning());
    EXPECT_GT(stack(0)->progress(), 0.1);
    expectApart(1 - stack(0)->progress());
    clock.goTo(kit::Animations::Push);
    ASSERT_FALSE(stack(0)->isTransitioning());
    EXPECT_EQ(placeOfTitle(*next), titleOfAbove) << "at rest";
    stack(0)->popViewController(kit::NavigationController::Animation::Animated);
    clock.goTo(2 * kit::Animations::Push - kit::Animations::Push / 4);
    ASSERT_TRUE(stack(0)->isTransitioning());
    EXPECT_GT(stack(0)->progress(), 0.1);
    expectApart(stack(0)->progress());
}

TEST_F(Transition, leavesAFingerFromTheTabBarsEdgeToTheTabs)
{
    begin({ 5, quick()->height() - 25 });
    moveTo({ 205, quick()->height() - 25 });
    EXPECT_FALSE(stack(0)->isSwipingBack());
    end();
    EXPECT_EQ(stack(0)->topViewController(), above);
}

TEST_F(Transition, leavesAFingerFromTheEdgeOfTheBarToTheBar)
{
    begin({ 5, 43 });
    moveTo({ 205, 43 });
    EXPECT_FALSE(stack(0)->isSwipingBack());
    end();
    EXPECT_EQ(stack(0)->topViewController(), above);
}
