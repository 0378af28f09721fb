// A row that was drawn aside from its delete button.
#include "tests/ui/kit/window/FingerTest.h"

#include <algorithm>

namespace {

class OpenRowTest : public FingerTest
{
protected:
    OpenRowTest() { grabbed(); }

    kit::TableView& table() const { return *one->tableView(); }
    // The item that draws the row, by its text.
    QQuickItem* drawn(const kit::IndexPath& row) const
    {
        return qobject_cast<QQuickItem*>(accessible(ListScreen::nameOf(row))->object());
    }
};

} // namespace

TEST_F(OpenRowTest, isClosedByATouchElsewhereWhicheverRowItIs)
{
    for (int row = 0; row < one->firstSectionRows; ++row) {
        table().openRow()->open(0, row);
        grabbed();
        touch({ 370, 22 });
        EXPECT_EQ(table().openRow()->row(), -1) << row;
        EXPECT_EQ(one->reloads, 0) << row;
    }
}

TEST_F(OpenRowTest, keepsWhatItShowsInsideItself)
{
    EXPECT_FALSE(drawn({ 0, 3 })->clip());
    begin({ 300, middleOf({ 0, 3 }).toPoint().y() });
    moveTo(place - QPoint(30, 0), 10);
    EXPECT_TRUE(drawn({ 0, 3 })->clip()) << "under the finger";
    end();
    table().openRow()->open(0, 3);
    grabbed();
    EXPECT_TRUE(drawn({ 0, 3 })->clip()) << "open";
}

TEST_F(OpenRowTest, keepsTheWordDeleteInsideItsButtonHoweverNarrowThatIs)
{
    table().openRow()->open(0, 3);
    grabbed();
    const auto* const button = qobject_cast<QQuickItem*>(accessible(QStringLiteral("Delete"))->object());
    EXPECT_EQ(button->width(), 88);
    EXPECT_TRUE(button->clip());
}

TEST_F(OpenRowTest, standsAloneOpen)
{
    table().openRow()->open(0, 3);
    grabbed();
    for (const kit::IndexPath& other : { kit::IndexPath{ 0, 2 }, kit::IndexPath{ 1, 3 } })
        EXPECT_FALSE(drawn(other)->clip()) << other.section;
}

TEST_F(OpenRowTest, makesItsButtonWhenItIsDrawnAside)
{
    const auto hasButton = [this](const kit::IndexPath& row) {
        const auto parts = drawn(row)->findChildren<QQuickItem*>();
        return std::any_of(parts.begin(), parts.end(),
            [](const QQuickItem* part) { return part->property("spokenName") == QStringLiteral("Delete"); });
    };
    EXPECT_FALSE(hasButton({ 0, 3 }));
    table().openRow()->open(0, 3);
    grabbed();
    EXPECT_TRUE(hasButton({ 0, 3 }));
    EXPECT_FALSE(hasButton({ 0, 2 }));
}

TEST_F(OpenRowTest, holdsBackNoTouchOfAnotherTab)
{
    table().openRow()->open(0, 3);
    tabs->setSelectedIndex(1);
    grabbed();
    touch(middleOf({ 0, 3 }).toPoint());
    EXPECT_TRUE(stack(1)->canGoBack());
}

TEST_F(OpenRowTest, isOpenedByASwipeAndDeletedByItsButton)
{
    const QPoint start = middleOf({ 0, 3 }).toPoint() + QPoint(100, 0);
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, start);
    for (int x = 0; x <= 120; x += 10)
        QTest::mouseMove(quick(), start - QPoint(x, 0));
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, start - QPoint(120, 0));
    ASSERT_EQ(one->tableView()->openRow()->row(), 3);
    const QPointF deleteButton(390 - 20, middleOf({ 0, 3 }).y());
    ASSERT_TRUE(waitUntil([&] {
        if (one->firstSectionRows == 5)
            tap(deleteButton);
        return one->firstSectionRows == 4 || one->tableView()->openRow()->row() < 0;
    }));
    EXPECT_EQ(one->firstSectionRows, 4);
    grabbed();
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(OpenRowTest, isClosedByEscapeBeforeThatGoesBack)
{
    tap(middleOf({ 0, 3 }));
    grabbed();
    kit::TableView& table = *static_cast<ListScreen*>(stack(0)->topViewController())->tableView();
    table.openRow()->open(0, 1);
    press(Qt::Key_Escape);
    EXPECT_EQ(table.openRow()->row(), -1);
    ASSERT_TRUE(stack(0)->canGoBack());
    press(Qt::Key_Escape);
    EXPECT_FALSE(stack(0)->canGoBack());
}

TEST_F(OpenRowTest, isClosedWhenAnotherTabShows)
{
    one->tableView()->openRow()->open(0, 1);
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(one->tableView()->openRow()->row(), -1);
}

TEST_F(OpenRowTest, isClosedWhenATrackpadScrolls)
{
    one->tableView()->openRow()->open(0, 1);
    for (const int step : { -30, -50 })
        turnWheel({ 200, 300 }, step);
    EXPECT_TRUE(waitUntil([this] { return one->tableView()->contentOffset() > 0; }));
    EXPECT_EQ(one->tableView()->openRow()->row(), -1);
}
