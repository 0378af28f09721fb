// What slides and grows on its way, and what is with the finger at once.
#include "tests/ui/kit/paint/Moving.h"
#include "tests/ui/kit/window/FingerTest.h"

namespace {

// Of a window that moves from its beginning.
class Motion : private Moving, public FingerTest
{
protected:
    Motion() { grabbed(); }

    // Where the text of a row begins, in the window.
    double leftOf(const QString& text) const { return itemWithText(text)->mapToScene({ 0, 0 }).x(); }
    void present(kit::AlertController::Style style)
    {
        kit::AlertController* const alert = addAlert(style);
        alert->addAction(QStringLiteral("Close"), kit::AlertAction::Style::Cancel);
        one->present(alert);
    }
    const QQuickItem& panel() const
    {
        for (const QQuickItem* part : itemDrawnBy(QLatin1String("AlertPanel"))->childItems())
            if (!part->inherits("QQuickRectangle") && !part->inherits("QQuickMouseArea"))
                return *part;
        return *quick()->contentItem();
    }
    const QQuickItem& shade() const
    {
        for (const QQuickItem* part : itemDrawnBy(QLatin1String("AlertPanel"))->childItems())
            if (part->inherits("QQuickRectangle"))
                return *part;
        return *quick()->contentItem();
    }
};

} // namespace

TEST_F(Motion, keepsARowUnderTheFingerThatDrawsItAside)
{
    const QString row = ListScreen::nameOf({ 0, 3 });
    const double rest = leftOf(row);
    const QPoint start(300, middleOf({ 0, 3 }).toPoint().y());
    begin(start);
    moveTo(start - QPoint(60, 0), 20);
    const double before = leftOf(row);
    EXPECT_LT(before, rest - 40);
    moveTo(start - QPoint(70, 0), 1);
    EXPECT_EQ(leftOf(row), before - 10);
    moveTo(start + QPoint(60, 0), 1);
    EXPECT_EQ(leftOf(row), rest) << "and not to the right";
    end();
}

TEST_F(Motion, opensARowByItsButtonsWidth)
{
    const QString row = ListScreen::nameOf({ 0, 3 });
    const double rest = leftOf(row);
    one->tableView()->openRow()->open(0, 3);
    EXPECT_GT(leftOf(row), rest - 88) << "it slides there";
    EXPECT_TRUE(waitUntil([&] { return leftOf(row) == rest - 88; }));
    one->tableView()->openRow()->close();
    EXPECT_LT(leftOf(row), rest) << "and back";
    EXPECT_TRUE(waitUntil([&] { return leftOf(row) == rest; }));
}

TEST_F(Motion, growsAnAlertIntoItsPlace)
{
    present(kit::AlertController::Style::Alert);
    EXPECT_EQ(panel().scale(), 0.85);
    EXPECT_EQ(shade().opacity(), 0);
    EXPECT_TRUE(waitUntil([this] { return shade().opacity() == 1; }));
    EXPECT_TRUE(waitUntil([this] { return panel().scale() == 1; }));
}

TEST_F(Motion, showsASheetInItsSizeFromTheBeginning)
{
    present(kit::AlertController::Style::ActionSheet);
    EXPECT_EQ(panel().scale(), 1);
    drawFrame();
    EXPECT_EQ(panel().scale(), 1);
    EXPECT_TRUE(waitUntil([this] { return shade().opacity() == 1; }));
}
