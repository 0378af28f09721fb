#include "ui/kit/view/Button.h"
#include "ui/kit/view/ImageView.h"
#include "ui/kit/view/Label.h"
#include "ui/kit/view/Switch.h"

#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

class LaidOutView : public kit::View
{
public:
    using kit::View::View;
    void layoutSubviews() override { ++layouts; }
    int layouts = 0;
};

} // namespace

TEST(View, laysItselfOutWhenItsSizeChangesAndNotWhenItMoves)
{
    LaidOutView view;
    QSignalSpy changed(&view, &kit::View::frameChanged);
    view.setFrame({ 0, 0, 10, 10 });
    EXPECT_EQ(view.layouts, 1);
    view.setFrame({ 5, 5, 10, 10 });
    EXPECT_EQ(view.layouts, 1);
    view.setFrame({ 5, 5, 10, 10 });
    EXPECT_EQ(changed.count(), 2);
    view.setNeedsLayout();
    EXPECT_EQ(view.layouts, 2);
    EXPECT_EQ(view.bounds(), QRectF(0, 0, 10, 10));
}

TEST(View, ownsItsSubviewsInTheirOrder)
{
    auto parent = std::make_unique<kit::View>();
    const QPointer<kit::View> first(new kit::View);
    const QPointer<kit::View> second(new kit::View);
    parent->addSubview(first);
    parent->addSubview(second);
    EXPECT_EQ(parent->subviews(), (QList<kit::View*>{ first, second }));
    EXPECT_EQ(parent->subviewModel()->objects(), (QList<QObject*>{ first, second }));
    parent->addSubview(first);
    EXPECT_EQ(parent->subviews(), (QList<kit::View*>{ second, first }));
    parent.reset();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(second.isNull());
}

TEST(View, movesASubviewFromOneToAnother)
{
    kit::View one;
    kit::View other;
    auto* child = new kit::View;
    one.addSubview(child);
    other.addSubview(child);
    EXPECT_TRUE(one.subviews().isEmpty());
    EXPECT_EQ(one.subviewModel()->rowCount(), 0);
    EXPECT_EQ(child->superview(), &other);
    EXPECT_EQ(child->parent(), &other);
}

TEST(View, belongsToNobodyOnceItIsRemoved)
{
    kit::View parent;
    const std::unique_ptr<kit::View> child(new kit::View);
    parent.addSubview(child.get());
    child->removeFromSuperview();
    child->removeFromSuperview();
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_EQ(child->parent(), nullptr);
    EXPECT_TRUE(parent.subviews().isEmpty());
}

TEST(View, leavesItsSuperviewWhenItIsDeleted)
{
    kit::View parent;
    auto* child = new kit::View;
    auto* stays = new kit::View;
    parent.addSubview(child);
    parent.addSubview(stays);
    delete child;
    EXPECT_EQ(parent.subviews(), QList<kit::View*>{ stays });
    EXPECT_EQ(parent.subviewModel()->rowCount(), 1);
}

TEST(View, convertsPointsToASuperviewToItselfAndToTheTop)
{
    kit::View top({ 100, 100, 300, 300 });
    auto* middle = new kit::View({ 10, 20, 100, 100 });
    auto* inner = new kit::View({ 3, 4, 10, 10 });
    top.addSubview(middle);
    middle->addSubview(inner);
    EXPECT_EQ(inner->convertPointToView({ 1, 1 }, inner), QPointF(1, 1));
    EXPECT_EQ(inner->convertPointToView({ 1, 1 }, middle), QPointF(4, 5));
    EXPECT_EQ(inner->convertPointToView({ 1, 1 }, &top), QPointF(14, 25));
    EXPECT_EQ(inner->convertPointToView({ 1, 1 }, nullptr), QPointF(114, 125));
}

TEST(View, convertsPointsDownAndAcross)
{
    kit::View top({ 100, 100, 300, 300 });
    auto* left = new kit::View({ 10, 20, 100, 100 });
    auto* right = new kit::View({ 200, 20, 100, 100 });
    top.addSubview(left);
    top.addSubview(right);
    EXPECT_EQ(top.convertPointToView({ 15, 30 }, left), QPointF(5, 10));
    EXPECT_EQ(left->convertPointToView({ 0, 0 }, right), QPointF(-190, 0));
}

TEST(View, isLikeAnotherUnlessAnyPartOfItsLookOrSpeechDiffers)
{
    const auto expectUnlike = [](const std::function<void(kit::View&)>& change) {
        kit::View view({ 0, 0, 10, 10 });
        kit::View other({ 0, 0, 10, 10 });
        EXPECT_TRUE(view.isLike(other));
        change(other);
        EXPECT_FALSE(view.isLike(other));
        EXPECT_FALSE(other.isLike(view));
    };
    expectUnlike([](kit::View& view) { view.setFrame({ 0, 0, 10, 11 }); });
    expectUnlike([](kit::View& view) { view.setHidden(true); });
    expectUnlike([](kit::View& view) { view.setBackgroundColor(kit::Color::white()); });
    expectUnlike([](kit::View& view) { view.setGradient({ kit::Color::white(), kit::Color::black() }); });
    expectUnlike([](kit::View& view) { view.setCornerRadius(1); });
    expectUnlike([](kit::View& view) { view.setClipsToBounds(true); });
    expectUnlike([](kit::View& view) { view.setAccessibilityLabel(QStringLiteral("Label")); });
    expectUnlike([](kit::View& view) { view.setAccessibilityElement(false); });
    expectUnlike([](kit::View& view) { view.setTag(1); });
    expectUnlike([](kit::View& view) { view.addSubview(new kit::View); });
}

TEST(View, isLikeAnotherThatStandsElsewhereWithLikeSubviewsAtTheSamePlaces)
{
    const auto made = [](const QRectF& subviewFrame, const QString& text) {
        auto view = std::make_unique<kit::View>(QRectF(0, 0, 10, 10));
        auto* label = new kit::Label(subviewFrame);
        label->setText(text);
        view->addSubview(label);
        return view;
    };
    const auto view = made({ 1, 1, 5, 5 }, QStringLiteral("Text"));
    view->setFrame({ 30, 40, 10, 10 });
    EXPECT_TRUE(view->isLike(*made({ 1, 1, 5, 5 }, QStringLiteral("Text"))));
    EXPECT_FALSE(view->isLike(*made({ 1, 2, 5, 5 }, QStringLiteral("Text"))));
    EXPECT_FALSE(view->isLike(*made({ 1, 1, 5, 5 }, QStringLiteral("Other text"))));
}

TEST(View, isLikeNoneOfAnotherClassAndNothingThatAPersonWorks)
{
    EXPECT_FALSE(kit::View().isLike(kit::Label()));
    EXPECT_FALSE(kit::Label().isLike(kit::View()));
    EXPECT_FALSE(kit::View().isLike(LaidOutView()));
    EXPECT_FALSE(kit::Button().isLike(kit::Button()));
    EXPECT_FALSE(kit::Switch().isLike(kit::Switch()));
}

TEST(View, isFilledByAColorOrAPatternButNotByBoth)
{
    kit::View view;
    EXPECT_FALSE(view.isFilled());
    view.setBackgroundColor(kit::Color{ 1, 0, 0, 1, {} });
    EXPECT_TRUE(view.isFilled());
    EXPECT_EQ(view.fillColor(), QColor(Qt::red));
    EXPECT_TRUE(view.fillPattern().isNull());
    view.setBackgroundColor(kit::Color::withPatternImage(kit::Image::named(QStringLiteral("AppViewBack"))));
    EXPECT_EQ(view.fillColor().alpha(), 0);
    EXPECT_FALSE(view.fillPattern().isNull());
    EXPECT_TRUE(view.isFilled());
    view.setBackgroundColor(kit::Color::clear());
    EXPECT_FALSE(view.isFilled());
    view.setGradient({ kit::Color::white(), kit::Color::black() });
    EXPECT_TRUE(view.isFilled());
}

TEST(View, tellsOfEachChangeOfItsLookOnce)
{
    kit::View view;
    QSignalSpy changed(&view, &kit::View::appearanceChanged);
    for (int time = 0; time < 2; ++time) {
        view.setHidden(true);
        view.setCornerRadius(8);
        view.setClipsToBounds(true);
        view.setAccessibilityLabel(QStringLiteral("Label"));
        view.setAccessibilityElement(false);
        view.setBackgroundColor(kit::Color::white());
    }
    EXPECT_EQ(changed.count(), 6);
    view.setGradient({ kit::Color::white(), kit::Color::black() });
    EXPECT_EQ(changed.count(), 7);
}
