// Where a sheet stands in windows of every size.
#include "tests/ui/kit/window/KitWindowTest.h"
#include "ui/kit/alert/PanelPlace.h"

#include <QQuickItem>

#include <algorithm>

namespace {

using Style = kit::AlertAction::Style;

// A window of a size, with a sheet of a row.
class SheetTest : public KitWindowTest
{
protected:
    void resize(const QSize& size)
    {
        quick()->resize(size);
        ASSERT_TRUE(waitUntil([&] {
            return one->tableView()->width() == size.width() && one->tableView()->height() == size.height() - 44 - 49;
        }));
        grabbed();
    }
    void present(const kit::IndexPath& row, int choices = 1)
    {
        kit::AlertController* const sheet = addAlert(kit::AlertController::Style::ActionSheet);
        for (int choice = 0; choice < choices; ++choice)
            sheet->addAction(QStringLiteral("Choice %1").arg(choice), Style::Default);
        sheet->addAction(QStringLiteral("Cancel"), Style::Cancel);
        sheet->setSource(one->tableView(), [this, row] { return one->tableView()->rectForRow(row); });
        one->present(sheet);
        grabbed();
    }
    QRectF rectInWindow(const kit::IndexPath& row) const
    {
        return one->tableView()->rectForRow(row).translated(0, 44 - one->tableView()->contentOffset());
    }
    // The body of the panel that is shown.
    QRectF panel() const
    {
        const auto items = quick()->findChildren<QQuickItem*>();
        const auto found = std::find_if(
            items.begin(), items.end(), [](const QQuickItem* item) { return item->inherits("kit::PanelShape"); });
        if (found == items.end())
            return {};
        const QQuickItem* const body = (*found)->parentItem();
        return body->mapRectToScene({ 0, 0, body->width(), body->height() });
    }
    bool hasArrow() const
    {
        const auto items = quick()->findChildren<QQuickItem*>();
        return std::any_of(items.begin(), items.end(), [](const QQuickItem* item) {
            return item->inherits("kit::PanelShape") && item->isVisible()
                && item->property("place").value<kit::PanelPlace>().arrowEdge() != kit::PanelPlace::NoArrow;
        });
    }
    // Nothing that scrolls in the panel is drawn beyond its place.
    void expectClipped() const
    {
        for (const QQuickItem* item : itemDrawnBy(QLatin1String("AlertPanel"))->findChildren<QQuickItem*>())
            if (item->inherits("QQuickFlickable")) {
                EXPECT_EQ(item->clip(), item->property("contentHeight").toDouble() > item->height()) << item->y();
            }
    }
    QRectF windowRect() const { return { { 0, 0 }, QSizeF(quick()->size()) }; }
};

} // namespace

TEST_F(SheetTest, standsBelowItsRowInALargeWindow)
{
    resize({ 1'024, 768 });
    present({ 0, 1 });
    EXPECT_EQ(panel().top(), rectInWindow({ 0, 1 }).bottom() + kit::PanelPlace::ArrowLength);
    EXPECT_EQ(panel().center().x(), 512);
    EXPECT_TRUE(hasArrow());
}

TEST_F(SheetTest, standsAboveARowNearTheLowerEdge)
{
    resize({ 1'024, 768 });
    const auto rows = one->tableView()->indexPathsForVisibleRows();
    const kit::IndexPath row = rows[rows.size() - 2];
    present(row);
    EXPECT_EQ(panel().bottom(), rectInWindow(row).top() - kit::PanelPlace::ArrowLength);
    EXPECT_TRUE(hasArrow());
}

TEST_F(SheetTest, followsItsRowWhenTheWindowIsResized)
{
    resize({ 1'280, 800 });
    present({ 0, 3 });
    for (const QSize size : { QSize(1'024, 768), QSize(700, 900), QSize(1'400, 700) }) {
        resize(size);
        EXPECT_EQ(panel().center().x(), size.width() / 2);
        EXPECT_EQ(panel().top(), rectInWindow({ 0, 3 }).bottom() + kit::PanelPlace::ArrowLength);
        EXPECT_TRUE(windowRect().contains(panel()));
    }
}

TEST_F(SheetTest, followsItsRowWhenTheTableScrolls)
{
    resize({ 1'024, 768 });
    present({ 0, 3 });
    one->tableView()->setContentOffset(80);
    grabbed();
    EXPECT_EQ(panel().top(), rectInWindow({ 0, 3 }).bottom() + kit::PanelPlace::ArrowLength);
    one->tableView()->setContentOffset(1'000);
    grabbed();
    EXPECT_FALSE(hasArrow()) << "the row is out of sight";
    EXPECT_EQ(panel().center(), QPointF(512, 384));
}

TEST_F(SheetTest, liesAtTheLowerEdgeOfAPhoneUprightAndOnItsSide)
{
    for (const QSize size : { QSize(390, 844), QSize(844, 390), QSize(320, 320) }) {
        resize(size);
        if (!window->presentedAlert())
            present({ 0, 3 });
        EXPECT_EQ(panel().bottom(), size.height() - 8);
        EXPECT_EQ(panel().width(), std::min(480, size.width() - 16));
        EXPECT_FALSE(hasArrow());
    }
    resize({ 1'024, 768 });
    EXPECT_TRUE(hasArrow()) << "the same sheet in a window that became large";
}

TEST_F(SheetTest, pointsAtItsRowFromSixHundredByFourHundredAndEightyPointsOn)
{
    resize({ 600, 480 });
    present({ 0, 0 });
    EXPECT_TRUE(hasArrow());
    for (const QSize size : { QSize(599, 480), QSize(600, 479) }) {
        resize(size);
        EXPECT_FALSE(hasArrow()) << size.width() << 'x' << size.height();
    }
}

TEST_F(SheetTest, standsByASourceAtTheRightOfALargeWindowAndInTheMiddleOfAPhone)
{
    kit::AlertController* const sheet = addAlert(kit::AlertController::Style::ActionSheet);
    sheet->addAction(QStringLiteral("Cancel"), Style::Cancel);
    sheet->setSource(one->tableView(), [this] { return QRectF(one->tableView()->width() - 60, 100, 50, 40); });
    resize({ 1'024, 768 });
    one->present(sheet);
    grabbed();
    EXPECT_GT(panel().center().x(), 800);
    EXPECT_TRUE(windowRect().contains(panel()));
    EXPECT_TRUE(hasArrow());
    resize({ 390, 844 });
    EXPECT_EQ(panel().center().x(), 195);
}

TEST_F(SheetTest, standsInTheMiddleWithoutASource)
{
    resize({ 1'024, 768 });
    kit::AlertController* const sheet = addAlert(kit::AlertController::Style::ActionSheet);
    sheet->addAction(QStringLiteral("Cancel"), Style::Cancel);
    one->present(sheet);
    grabbed();
    EXPECT_EQ(panel().center(), QPointF(512, 384));
    EXPECT_FALSE(hasArrow());
}

TEST_F(SheetTest, keepsManyChoicesInsideAnyWindow)
{
    for (const QSize size : { QSize(320, 320), QSize(390, 844), QSize(844, 390), QSize(1'024, 500), QSize(600, 480) }) {
        resize(size);
        if (!window->presentedAlert())
            present({ 0, 3 }, 20);
        EXPECT_TRUE(windowRect().contains(panel())) << size.width() << 'x' << size.height();
    }
}

TEST_F(SheetTest, isClosedByATouchBesideIt)
{
    resize({ 1'024, 768 });
    present({ 0, 1 });
    tap(panel().center() - QPointF(0, panel().height() / 2 - 3));
    EXPECT_NE(window->presentedAlert(), nullptr);
    tap({ 100, 700 });
    EXPECT_EQ(window->presentedAlert(), nullptr);
}

TEST_F(SheetTest, scrollsLongTextsAndManyChoicesInALowWindow)
{
    for (const auto style : { kit::AlertController::Style::ActionSheet, kit::AlertController::Style::Alert })
        for (const int choices : { 1, 2, 5, 12 }) {
            resize({ 320, 320 });
            auto* alert = new kit::AlertController(
                QString(300, u'W'), QStringLiteral("words that go on and on ").repeated(80), style);
            for (int choice = 0; choice < choices; ++choice)
                alert->addAction(QStringLiteral("Choice %1").arg(choice), Style::Default);
            one->present(alert);
            grabbed();
            EXPECT_TRUE(windowRect().contains(panel())) << choices;
            expectClipped();
            for (int choice = 0; choice < choices; ++choice) {
                press(Qt::Key_Tab);
                const QString name = QStringLiteral("Choice %1").arg(choice);
                EXPECT_EQ(focusedItemName(), name);
                EXPECT_TRUE(panel().toRect().contains(accessible(name)->rect().translated(-quick()->position())))
                    << choices << ' ' << choice;
            }
            press(Qt::Key_Return);
            ASSERT_EQ(window->presentedAlert(), nullptr);
        }
}
