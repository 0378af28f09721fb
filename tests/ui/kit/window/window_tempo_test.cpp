// How long what slides, fades and grows takes, by a clock that goes as far as the test lets it.
#include "tests/ui/kit/paint/AnimationClock.h"
#include "tests/ui/kit/paint/Moving.h"
#include "tests/ui/kit/window/FingerTest.h"
#include "ui/kit/table/TableViewCell.h"

#include <QVariant>

namespace {

constexpr int Shift = 200;
constexpr int Fade = 250;

class Tempo : private Moving, public FingerTest
{
protected:
    Tempo() { grabbed(); }

    QQuickItem& rowNamed(const QString& name) const { return *qobject_cast<QQuickItem*>(accessible(name)->object()); }
    // What has just begun to move gets where it is to stand after that time and not before.
    void expectToTake(int milliseconds, const std::function<bool()>& isThere)
    {
        EXPECT_FALSE(isThere()) << "at once";
        clock.goTo(milliseconds * 3 / 4);
        EXPECT_FALSE(isThere()) << "too early";
        clock.goTo(milliseconds);
        EXPECT_TRUE(isThere());
    }

    AnimationClock clock;
};

} // namespace

TEST_F(Tempo, ofARowThatOpensIsThatOfAShift)
{
    const QQuickItem& text = *itemWithText(ListScreen::nameOf({ 0, 3 }));
    const double rest = text.mapToScene({ 0, 0 }).x();
    one->tableView()->openRow()->open(0, 3);
    expectToTake(Shift, [&] { return text.mapToScene({ 0, 0 }).x() == rest - 88; });
}

TEST_F(Tempo, ofRowsThatCloseAGapIsThatOfAFade)
{
    const QQuickItem& row = rowNamed(ListScreen::nameOf({ 0, 4 }));
    const auto& cell = *row.property("view").value<kit::TableViewCell*>();
    one->tableView()->openRow()->deleteRow(0, 1);
    expectToTake(Fade, [&] { return row.y() == cell.frame().y(); });
}

TEST_F(Tempo, ofASelectionThatGoesIsThatOfAFade)
{
    const QQuickItem& row = rowNamed(ListScreen::nameOf({ 0, 3 }));
    auto& cell = *row.property("view").value<kit::TableViewCell*>();
    const QQuickItem* selection = nullptr;
    for (const QQuickItem* part : row.findChildren<QQuickItem*>())
        if (part->inherits("kit::ViewSlot")
            && part->property("view").value<kit::View*>() == cell.selectedBackgroundView())
            selection = part;
    ASSERT_NE(selection, nullptr);
    one->tableView()->tapRow(0, 3);
    ASSERT_EQ(selection->opacity(), 1);
    one->tableView()->deselectRow({ 0, 3 }, kit::TableView::Animation::Animated);
    expectToTake(Fade, [&] { return selection->opacity() == 0; });
}

TEST_F(Tempo, ofASearchFieldThatMakesRoomIsThatOfAShift)
{
    tabs->setSelectedIndex(1);
    grabbed();
    const QQuickItem* box = nullptr;
    for (const QQuickItem* part : itemDrawnBy(QLatin1String("SearchField"))->childItems())
        if (part->inherits("kit::RoundedBox"))
            box = part;
    ASSERT_NE(box, nullptr);
    const double alone = box->width();
    press(Qt::Key_F, Qt::ControlModifier);
    const double cancel = rowNamed(QStringLiteral("Cancel")).width();
    expectToTake(Shift, [&] { return box->width() == alone - cancel; });
}

TEST_F(Tempo, ofAnAlertIsThatOfAShift)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("Close"), kit::AlertAction::Style::Cancel);
    one->present(alert);
    const QQuickItem& panel = *rowNamed(QStringLiteral("Close")).parentItem();
    const auto shown = [](const QQuickItem& item) {
        double clearness = 1;
        double size = 1;
        for (const QQuickItem* around = &item; around; around = around->parentItem()) {
            clearness *= around->opacity();
            size *= around->scale();
        }
        return clearness == 1 && size == 1;
    };
    expectToTake(Shift, [&] { return shown(panel); });
}

TEST_F(Tempo, ofAListThatMakesRoomForItsRefreshIsThatOfAFade)
{
    one->tableView()->refreshControl()->beginRefreshing();
    expectToTake(Fade, [this] { return one->tableView()->contentOffset() == -60; });
    one->tableView()->refreshControl()->endRefreshing();
    EXPECT_EQ(one->tableView()->contentOffset(), -60);
    clock.goTo(2 * Fade);
    EXPECT_EQ(one->tableView()->contentOffset(), 0);
}

TEST_F(Tempo, ofAScrollIndicatorThatComesIsThatOfAFade)
{
    const QQuickItem& indicator = *itemDrawnBy(QLatin1String("ScrollIndicator"));
    ASSERT_EQ(indicator.opacity(), 0);
    press(Qt::Key_End);
    expectToTake(Fade, [&] { return indicator.opacity() == 1; });
}
