// The search field of a bar, and the button that clears it.
#include "tests/ui/kit/window/FingerTest.h"

#include <QtMath>

namespace {

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
