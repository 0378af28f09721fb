#include "ui/kit/table/RefreshControl.h"
#include "ui/kit/text/Font.h"
#include "ui/kit/view/Button.h"
#include "ui/kit/view/ImageView.h"
#include "ui/kit/view/Label.h"
#include "ui/kit/view/Switch.h"

#include <QFontMetricsF>
#include <QQuickItem>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <cmath>

namespace {

// That a new view is like another one until that is changed.
template <class Kind> void expectUnlike(void (*change)(Kind&))
{
    Kind view;
    Kind other;
    EXPECT_TRUE(view.isLike(other));
    change(other);
    EXPECT_FALSE(view.isLike(other));
}

} // namespace

TEST(RefreshControl, showsThatItRefreshesWithoutCallingTheAction)
{
    kit::RefreshControl control;
    int actions = 0;
    control.setValueChanged([&] { ++actions; });
    QSignalSpy changed(&control, &kit::RefreshControl::refreshingChanged);
    control.beginRefreshing();
    control.beginRefreshing();
    EXPECT_TRUE(control.isRefreshing());
    control.endRefreshing();
    control.endRefreshing();
    EXPECT_FALSE(control.isRefreshing());
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(actions, 0);
}

TEST(RefreshControl, callsTheActionAtEveryPull)
{
    kit::RefreshControl control;
    int actions = 0;
    control.setValueChanged([&] {
        EXPECT_TRUE(control.isRefreshing());
        ++actions;
    });
    control.pull();
    control.pull();
    EXPECT_EQ(actions, 2);
    EXPECT_TRUE(control.isRefreshing());
}

TEST(RefreshControl, mayEndInItsOwnAction)
{
    kit::RefreshControl control;
    control.setValueChanged([&] { control.endRefreshing(); });
    control.pull();
    EXPECT_FALSE(control.isRefreshing());
}

TEST(Controls, doNothingMoreThanShowWhatAPersonDidWithoutAnAction)
{
    kit::RefreshControl refresh;
    refresh.pull();
    EXPECT_TRUE(refresh.isRefreshing());
    kit::Switch control;
    control.toggle();
    EXPECT_TRUE(control.isOn());
    kit::Button button;
    button.press();
    EXPECT_TRUE(button.isEnabled());
}

TEST(RefreshControl, tellsOfTheTintThatItTakes)
{
    kit::RefreshControl control;
    const QSignalSpy changed(&control, &kit::RefreshControl::tintChanged);
    EXPECT_EQ(control.tint(), QColor(Qt::black));
    control.setTintColor(kit::Color::white());
    EXPECT_EQ(control.tint(), QColor(Qt::white));
    EXPECT_EQ(changed.count(), 1);
}

TEST(Switch, tellsOfAPersonsChangeOnly)
{
    kit::Switch control;
    int changes = 0;
    control.setValueChanged([&](kit::Switch* changed) {
        EXPECT_EQ(changed, &control);
        ++changes;
    });
    control.setOn(true);
    EXPECT_EQ(changes, 0);
    control.toggle();
    EXPECT_FALSE(control.isOn());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(control.frame(), QRectF(0, 0, 51, 31));
}

TEST(Switch, tellsOnceThatItIsOnOrOff)
{
    kit::Switch control;
    const QSignalSpy changed(&control, &kit::Switch::onChanged);
    control.setOn(true);
    control.setOn(true);
    EXPECT_TRUE(control.isOn());
    EXPECT_EQ(changed.count(), 1);
    control.toggle();
    EXPECT_FALSE(control.isOn());
    EXPECT_EQ(changed.count(), 2);
}

TEST(Button, callsItsActionUnlessItIsDisabled)
{
    kit::Button button;
    int presses = 0;
    button.setAction([&](kit::Button* pressed) {
        EXPECT_EQ(pressed, &button);
        ++presses;
    });
    button.press();
    button.setEnabled(false);
    button.press();
    EXPECT_EQ(presses, 1);
}

TEST(Button, tellsOnceThatItWasDisabled)
{
    kit::Button button;
    const QSignalSpy changed(&button, &kit::Button::buttonChanged);
    button.setEnabled(true);
    EXPECT_EQ(changed.count(), 0);
    button.setEnabled(false);
    button.setEnabled(false);
    EXPECT_EQ(changed.count(), 1);
}

TEST(Button, tellsOfItsTitleAndOfItsPicture)
{
    kit::Button button;
    const QSignalSpy changed(&button, &kit::Button::buttonChanged);
    button.setTitle(QStringLiteral("Install"));
    EXPECT_EQ(button.title(), QStringLiteral("Install"));
    EXPECT_EQ(changed.count(), 1);
    button.setBackgroundImage(kit::Image::named(QStringLiteral("buttonback")));
    EXPECT_EQ(button.backgroundImage(), kit::Image::named(QStringLiteral("buttonback")));
    EXPECT_EQ(changed.count(), 2);
}

TEST(Button, hasAWhiteTitleOfFifteenPointsInTheMiddleUnlessToldOtherwise)
{
    const kit::Button button;
    EXPECT_EQ(button.titleLabel()->font(), kit::Font::systemFont(15));
    EXPECT_EQ(button.titleLabel()->textColor(), kit::Color::white());
    EXPECT_EQ(button.titleLabel()->textAlignment(), Qt::AlignHCenter);
}

TEST(Button, isReadByItselfAndNotByItsTitleToo)
{
    kit::Button button;
    button.setTitle(QStringLiteral("Install"));
    EXPECT_TRUE(button.isAccessibilityElement());
    EXPECT_EQ(button.accessibilityLabel(), QStringLiteral("Install"));
    EXPECT_FALSE(button.titleLabel()->isAccessibilityElement());
}

TEST(Button, isAsLargeAsItsTitleAndInsets)
{
    kit::Button button;
    button.setContentEdgeInsets({ 6, 14, 6, 14 });
    button.setTitle(QStringLiteral("Install"));
    button.sizeToFit();
    const double title = button.titleLabel()->naturalWidth();
    EXPECT_GE(button.width(), title + 28);
    EXPECT_LT(button.width(), title + 30);
    EXPECT_EQ(button.height(), std::ceil(6 + QFontMetricsF(button.titleLabel()->shownFont()).height() + 6));
    EXPECT_EQ(button.titleLabel()->frame().top(), 0);
    EXPECT_EQ(button.titleLabel()->height(), button.height());
    EXPECT_EQ(button.titleLabel()->frame().left(), 14);
    EXPECT_EQ(button.accessibilityLabel(), QStringLiteral("Install"));
    button.setContentEdgeInsets({ 6, 20, 6, 8 });
    EXPECT_EQ(button.titleLabel()->frame().left(), 20);
    EXPECT_EQ(button.titleLabel()->frame().right(), button.width() - 8);
}

TEST(Label, isLikeAnotherUnlessItIsDrawnInAnotherWay)
{
    expectUnlike<kit::Label>([](kit::Label& label) { label.setText(QStringLiteral("Text")); });
    expectUnlike<kit::Label>([](kit::Label& label) { label.setFont(kit::Font::boldSystemFont(17)); });
    expectUnlike<kit::Label>([](kit::Label& label) { label.setTextColor(kit::Color::white()); });
    expectUnlike<kit::Label>([](kit::Label& label) { label.setTextAlignment(Qt::AlignRight); });
    expectUnlike<kit::Label>([](kit::Label& label) { label.setNumberOfLines(2); });
    expectUnlike<kit::Label>([](kit::Label& label) { label.setAdjustsFontSizeToFitWidth(true); });
    expectUnlike<kit::Label>([](kit::Label& label) { label.setShadow(kit::Label::Shadow::Below, {}); });
    expectUnlike<kit::Label>([](kit::Label& label) { label.setShadow(kit::Label::Shadow::None, kit::Color::black()); });
    expectUnlike<kit::Label>([](kit::Label& label) { label.setHidden(true); });
}

TEST(ImageView, isLikeAnotherUnlessItIsDrawnInAnotherWay)
{
    expectUnlike<kit::ImageView>(
        [](kit::ImageView& view) { view.setImage(kit::Image::named(QStringLiteral("Homepage"))); });
    expectUnlike<kit::ImageView>(
        [](kit::ImageView& view) { view.setContentMode(kit::ImageView::ContentMode::AspectFit); });
    expectUnlike<kit::ImageView>([](kit::ImageView& view) { view.setTintColor(kit::Color::white()); });
    expectUnlike<kit::ImageView>([](kit::ImageView& view) { view.setCornerRadius(7); });
}

TEST(ImageView, tellsOnceOfEachChangeOfItsLook)
{
    kit::ImageView view;
    const QSignalSpy changed(&view, &kit::ImageView::imageChanged);
    for (int time = 0; time < 2; ++time) {
        view.setImage(kit::Image::named(QStringLiteral("Homepage")));
        view.setContentMode(kit::ImageView::ContentMode::AspectFit);
        view.setTintColor(kit::Color::white());
    }
    EXPECT_EQ(changed.count(), 3);
}

TEST(ImageView, isAsLargeAsTheImageThatItIsMadeOf)
{
    const kit::Image image = kit::Image::named(QStringLiteral("Homepage"));
    EXPECT_EQ(kit::ImageView(image).frame(), QRectF({ 0, 0 }, image.size()));
    EXPECT_EQ(kit::ImageView().frame(), QRectF());
}

TEST(Label, tellsNullFromEmpty)
{
    kit::Label label;
    EXPECT_TRUE(label.text().isNull());
    QSignalSpy changed(&label, &kit::Label::labelChanged);
    label.setText(QLatin1String(""));
    EXPECT_FALSE(label.text().isNull());
    label.setText(QLatin1String(""));
    EXPECT_EQ(changed.count(), 1);
}

TEST(Label, keepsAllOfATextButShowsNoMoreThanCouldBeSeen)
{
    kit::Label label;
    label.setText(QString(3'000'000, u'x'));
    EXPECT_EQ(label.text().size(), 3'000'000);
    EXPECT_EQ(label.shownText().size(), 1'000);
    label.setNumberOfLines(2);
    EXPECT_EQ(label.shownText().size(), 2'000);
    label.setNumberOfLines(0);
    EXPECT_EQ(label.shownText().size(), 20'000);
    EXPECT_TRUE(label.shownText().endsWith(QChar(0x2026)));
    label.setText(QString(20'000, u'x'));
    EXPECT_EQ(label.shownText(), label.text());
}

TEST(Label, tellsWhereItsShadowFalls)
{
    kit::Label label;
    EXPECT_EQ(label.shadow(), kit::Label::Shadow::None);
    label.setShadow(kit::Label::Shadow::Below, kit::Color::black(0.42));
    EXPECT_EQ(label.shadow(), kit::Label::Shadow::Below);
    label.setShadow(kit::Label::Shadow::Above, kit::Color::black(0.42));
    EXPECT_EQ(label.shadow(), kit::Label::Shadow::Above);
}

TEST(Label, isWrittenInSeventeenPointsUnlessToldOtherwise)
{
    EXPECT_EQ(kit::Label().font(), kit::Font::systemFont(17));
}

TEST(Label, shrinksToEightPointsAtLeastAndOnlyWhereItIsToldTo)
{
    kit::Label label({ 0, 0, 100, 20 });
    EXPECT_EQ(label.smallestFontSize(), 17);
    label.setAdjustsFontSizeToFitWidth(true);
    EXPECT_EQ(label.smallestFontSize(), 8);
}

TEST(Label, tellsOnceOfEachChangeOfItsLook)
{
    kit::Label label;
    const QSignalSpy changed(&label, &kit::Label::labelChanged);
    for (int time = 0; time < 2; ++time) {
        label.setText(QStringLiteral("Text"));
        label.setFont(kit::Font::boldSystemFont(17));
        label.setTextColor(kit::Color::white());
        label.setTextAlignment(Qt::AlignRight);
        label.setNumberOfLines(2);
        label.setAdjustsFontSizeToFitWidth(true);
    }
    EXPECT_EQ(changed.count(), 6);
    label.setShadow(kit::Label::Shadow::Below, kit::Color::white());
    EXPECT_EQ(changed.count(), 7);
}

TEST(Label, letsNothingOfALongTextBeLeftOut)
{
    QQuickItem item;
    item.setFlag(QQuickItem::ItemObservesViewport);
    kit::Label::drawWhole(&item);
    EXPECT_FALSE(item.flags() & QQuickItem::ItemObservesViewport);
}
