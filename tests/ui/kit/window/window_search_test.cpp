// The search field of a bar, and the button that clears it.
#include "tests/ui/kit/window/FingerTest.h"

#include <QtMath>

namespace {

// With the keyboard in it.
class SearchFieldTest : public FingerTest
{
protected:
    SearchFieldTest()
    {
        press(Qt::Key_F, Qt::ControlModifier);
        grabbed();
    }

    kit::SearchBar& searchBar() const { return *two->navigationItem()->searchController()->searchBar(); }
    bool offersToClear() const { return accessible(QStringLiteral("Clear text")) != nullptr; }
    // In the window.
    QRectF placeOf(const QString& spokenName) const
    {
        return QRectF(accessible(spokenName)->rect().translated(-quick()->position()));
    }
    void setText(const QString& text)
    {
        searchBar().setText(text);
        grabbed();
    }
};

// Of a window that has not been searched in yet.
class SearchTest : public KitWindowTest
{
};

} // namespace

TEST_F(SearchFieldTest, offersToClearWhatIsTypedFromTheFirstLetterOn)
{
    EXPECT_FALSE(offersToClear());
    type(QStringLiteral("v"));
    EXPECT_TRUE(offersToClear());
    press(Qt::Key_Backspace);
    EXPECT_FALSE(offersToClear());
}

TEST_F(SearchFieldTest, leavesItsClearButtonOutOfTheWayOfTab)
{
    setText(QStringLiteral("vesk"));
    QStringList names;
    for (int step = 0; step < 10; ++step) {
        press(Qt::Key_Tab);
        names.append(focusedItemName());
    }
    EXPECT_TRUE(names.contains(QStringLiteral("Cancel"))) << names.join(u',').toStdString();
    EXPECT_FALSE(names.contains(QStringLiteral("Clear text"))) << "keys clear in the field itself";
}

TEST_F(SearchFieldTest, keepsTheKeyboardWhenItIsCleared)
{
    setText(QStringLiteral("vesk"));
    press(Qt::Key_Tab);
    touch(placeOf(QStringLiteral("Clear text")).center().toPoint());
    EXPECT_TRUE(searchBar().text().isEmpty());
    type(QStringLiteral("new"));
    EXPECT_EQ(searchBar().text(), QStringLiteral("new"));
}

TEST_F(SearchFieldTest, findsItsClearButtonWithinTenPointsAroundIt)
{
    setText(QStringLiteral("vesk"));
    const QQuickItem& button = *qobject_cast<QQuickItem*>(accessible(QStringLiteral("Clear text"))->object());
    EXPECT_EQ(QSizeF(button.width(), button.height()), QSizeF(18, 18));
    const QRectF exact = button.mapRectToScene({ -10, -10, 38, 38 });
    // The points that are wholly inside.
    const QRect reach(
        QPoint(qCeil(exact.left()), qCeil(exact.top())), QPoint(qCeil(exact.right()) - 1, qCeil(exact.bottom()) - 1));
    const QPoint middle = reach.center();
    for (const QPoint& inside : { QPoint(reach.left(), middle.y()), QPoint(reach.right(), middle.y()),
             QPoint(middle.x(), reach.top()), QPoint(middle.x(), reach.bottom()) }) {
        setText(QStringLiteral("vesk"));
        touch(inside);
        EXPECT_TRUE(searchBar().text().isEmpty()) << inside.x() << ", " << inside.y();
    }
    setText(QStringLiteral("vesk"));
    for (const QPoint& outside : { QPoint(reach.left() - 1, middle.y()), QPoint(middle.x(), reach.top() - 1),
             QPoint(middle.x(), reach.bottom() + 1) }) {
        touch(outside);
        EXPECT_EQ(searchBar().text(), QStringLiteral("vesk")) << outside.x() << ", " << outside.y();
    }
}

TEST_F(SearchFieldTest, leavesALongTextAsMuchRoomAtTheRightAsAtTheLeft)
{
    setText(QString(200, u'W'));
    const QQuickItem& input = *quick()->activeFocusItem();
    const QQuickItem& box = *input.parentItem();
    EXPECT_EQ(input.x(), 32) << "right of the glyph";
    EXPECT_EQ(box.width() - input.x() - input.width(), 32) << "left of the clear button";
    EXPECT_TRUE(input.clip());
}

TEST_F(SearchFieldTest, goesWithTheSearchOfItsScreen)
{
    two->navigationItem()->setSearchController(nullptr);
    grabbed();
    EXPECT_EQ(itemDrawnBy(QLatin1String("SearchField")), nullptr);
}

TEST_F(SearchTest, typesIntoTheSearchFieldAndCancels)
{
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(tabs->selectedIndex(), 1);
    kit::SearchBar* const bar = two->navigationItem()->searchController()->searchBar();
    ASSERT_TRUE(bar->isActive());
    grabbed();
    type(QStringLiteral("vesk"));
    EXPECT_EQ(bar->text(), QStringLiteral("vesk"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(bar->text().isEmpty());
    EXPECT_FALSE(bar->isActive());
    grabbed();
}

TEST_F(SearchTest, makesTheSearchFieldOnceAScreenHasOne)
{
    grabbed();
    EXPECT_EQ(itemDrawnBy(QLatin1String("SearchField")), nullptr);
    tabs->setSelectedIndex(1);
    grabbed();
    EXPECT_NE(itemDrawnBy(QLatin1String("SearchField")), nullptr);
}

TEST_F(SearchTest, takesTheKeyboardOffTheSearchFieldThatAScreenCancels)
{
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    kit::SearchBar* const bar = two->navigationItem()->searchController()->searchBar();
    type(QStringLiteral("v"));
    bar->cancel();
    type(QStringLiteral("esk"));
    EXPECT_TRUE(bar->text().isEmpty()) << bar->text().toStdString();
    EXPECT_FALSE(bar->isActive());
}

TEST_F(SearchTest, leavesTheKeyboardWhereItIsWhenAScreenCancelsASearchElsewhere)
{
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    press(Qt::Key_1, Qt::ControlModifier);
    press(Qt::Key_Down);
    ASSERT_EQ(one->tableView()->rowFocus()->row(), 0);
    two->navigationItem()->searchController()->searchBar()->cancel();
    press(Qt::Key_Down);
    EXPECT_EQ(one->tableView()->rowFocus()->row(), 1);
}

TEST_F(SearchTest, tintsTheCursorAndTheEdgeOfTheSearchFieldInUse)
{
    const QColor tint(48, 88, 145);
    two->navigationItem()->searchController()->searchBar()->setTintColor(
        kit::Color{ 48 / 255.0, 88 / 255.0, 145 / 255.0, 1, {} });
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    const QQuickItem* const cursor = itemDrawnBy(QLatin1String("TextCursor"));
    ASSERT_NE(cursor, nullptr);
    EXPECT_TRUE(cursor->isVisible());
    EXPECT_EQ(cursor->property("color").value<QColor>(), tint);
    const auto* const input = qobject_cast<QQuickItem*>(cursor->property("field").value<QObject*>());
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->property("selectionColor").value<QColor>(), tint);
    EXPECT_EQ(input->parentItem()->property("edge").value<QColor>(), tint);
}

TEST_F(SearchTest, comesBackIntoAnActiveSearchField)
{
    press(Qt::Key_F, Qt::ControlModifier);
    grabbed();
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_F, Qt::ControlModifier);
    type(QStringLiteral("again"));
    EXPECT_EQ(two->navigationItem()->searchController()->searchBar()->text(), QStringLiteral("again"));
}
