// What can be done with the text of a field without a keyboard.
#include "tests/ui/kit/window/FingerTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethod>

namespace {

class Editing : public FingerTest
{
protected:
    Editing()
    {
        QGuiApplication::clipboard()->clear();
        quick()->requestActivate();
    }
    static void copy(const QString& text) { QGuiApplication::clipboard()->setText(text); }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
    kit::SearchBar& searchBar() const { return *two->navigationItem()->searchController()->searchBar(); }

    void openSearch(const QString& text = {})
    {
        press(Qt::Key_F, Qt::ControlModifier);
        searchBar().setText(text);
        grabbed();
    }
    kit::AlertTextField* openAlert()
    {
        kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
        kit::AlertTextField* const field = alert->addTextField();
        alert->addAction(QStringLiteral("Cancel"), kit::AlertAction::Style::Cancel);
        alert->addAction(QStringLiteral("Add"), kit::AlertAction::Style::Default);
        one->present(alert);
        grabbed();
        return field;
    }
    // So many points from the beginning of the text of the field with the keyboard.
    QPoint inField(double distance) const
    {
        const QQuickItem& input = *quick()->activeFocusItem();
        return input.mapToScene({ distance, input.height() / 2 }).toPoint();
    }
    bool offers(const char* choice) const { return accessible(QLatin1String(choice)) != nullptr; }
    bool offersAnything() const
    {
        return offers("Select") || offers("Select All") || offers("Cut") || offers("Copy") || offers("Paste");
    }
    void hold(const QPoint& point)
    {
        begin(point);
        waitUntil([this] { return offersAnything(); });
        end();
        grabbed();
    }
    QPoint placeOf(const char* choice) const
    {
        return accessible(QLatin1String(choice))->rect().center() - quick()->position();
    }
    QRect rectOf(const char* choice) const
    {
        return accessible(QLatin1String(choice))->rect().translated(-quick()->position());
    }
    void choose(const char* choice)
    {
        ASSERT_TRUE(offers(choice)) << choice;
        touch(placeOf(choice));
        grabbed();
    }
    void clickRight(const QPoint& point)
    {
        QTest::mouseClick(quick(), Qt::RightButton, Qt::NoModifier, point);
        grabbed();
    }
};

} // namespace

TEST_F(Editing, pastesIntoAnEmptyFieldThatAFingerHolds)
{
    copy(QStringLiteral("vesk"));
    openSearch();
    hold(inField(10));
    EXPECT_FALSE(offers("Select") || offers("Select All") || offers("Cut") || offers("Copy"));
    choose("Paste");
    EXPECT_EQ(searchBar().text(), QStringLiteral("vesk"));
    EXPECT_FALSE(offersAnything());
}

TEST_F(Editing, offersTheSameToAPenThatIsHeld)
{
    openSearch(QStringLiteral("vesk"));
    const std::unique_ptr<QPointingDevice> pen(QTest::createTouchDevice(QInputDevice::DeviceType::Stylus));
    QTest::touchEvent(quick(), pen.get()).press(0, inField(8), quick());
    EXPECT_TRUE(waitUntil([this] { return offers("Select"); }));
    QTest::touchEvent(quick(), pen.get()).release(0, inField(8), quick());
}

TEST_F(Editing, offersNothingWhereThereIsNothingToDo)
{
    openSearch();
    clickRight(inField(10));
    EXPECT_FALSE(offersAnything());
}

TEST_F(Editing, selectsTheWordThatIsHeldAndThenOffersToCutIt)
{
    openSearch(QStringLiteral("small theme"));
    hold(inField(8));
    EXPECT_TRUE(offers("Select") && offers("Select All"));
    EXPECT_FALSE(offers("Cut") || offers("Copy") || offers("Paste"));
    choose("Select");
    EXPECT_FALSE(offers("Select"));
    EXPECT_TRUE(offers("Cut") && offers("Copy"));
    choose("Cut");
    EXPECT_EQ(searchBar().text(), QStringLiteral(" theme"));
    EXPECT_EQ(clipboard(), QStringLiteral("small"));
}

TEST_F(Editing, selectsAWordHoweverQuicklyThatIsTouchedTwice)
{
    openSearch(QStringLiteral("small theme"));
    hold(inField(8));
    const QPoint select = placeOf("Select");
    touch(select);
    touch(select);
    grabbed();
    choose("Copy");
    EXPECT_EQ(clipboard(), QStringLiteral("small"));
}

TEST_F(Editing, offersToSelectASingleLetter)
{
    openSearch(QStringLiteral("v"));
    hold(inField(3));
    choose("Select");
    EXPECT_TRUE(offers("Cut"));
    EXPECT_FALSE(offers("Select"));
}

TEST_F(Editing, takesAScreenReadersPress)
{
    openSearch(QStringLiteral("small theme"));
    hold(inField(8));
    for (const char* choice : { "Select All", "Copy" }) {
        ASSERT_TRUE(offers(choice));
        accessible(QLatin1String(choice))->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        grabbed();
    }
    EXPECT_EQ(clipboard(), QStringLiteral("small theme"));
}

TEST_F(Editing, goesWithTheFieldThatMakesRoomForAKeyboard)
{
    copy(QStringLiteral("vesk"));
    openAlert();
    hold(inField(10));
    const int below = placeOf("Paste").y() - inField(0).y();
    const int field = inField(0).y();
    quick()->setProperty("keyboard", QRectF(0, quick()->height() / 2.0, 390, quick()->height() / 2.0));
    Q_EMIT QGuiApplication::inputMethod()->keyboardRectangleChanged();
    grabbed();
    ASSERT_LT(inField(0).y(), field);
    ASSERT_TRUE(offers("Paste"));
    EXPECT_EQ(placeOf("Paste").y() - inField(0).y(), below);
}

TEST_F(Editing, takesTheKeyboardToTheFieldThatItStandsOver)
{
    openSearch(QStringLiteral("small theme"));
    const QPoint onText = inField(8);
    searchBar().cancel();
    grabbed();
    copy(QStringLiteral("vesk"));
    clickRight(onText);
    EXPECT_TRUE(searchBar().isActive());
    type(QStringLiteral("new"));
    EXPECT_EQ(searchBar().text(), QStringLiteral("new"));
}

TEST_F(Editing, offersWhatAMouseSelected)
{
    openSearch(QStringLiteral("small theme"));
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, inField(0));
    for (int distance = 0; distance <= 200; distance += 20)
        QTest::mouseMove(quick(), inField(distance));
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, inField(200));
    clickRight(inField(8));
    choose("Copy");
    EXPECT_EQ(clipboard(), QStringLiteral("small theme"));
}

TEST_F(Editing, movesWithItsChoices)
{
    openSearch(QStringLiteral("small theme of many words"));
    hold(inField(120));
    choose("Select");
    ASSERT_TRUE(offers("Cut"));
    const QRect moved = rectOf("Cut");
    press(Qt::Key_Escape);
    ASSERT_FALSE(offersAnything());
    clickRight(inField(120));
    ASSERT_TRUE(offers("Cut"));
    EXPECT_EQ(rectOf("Cut"), moved) << "where it stands when it opens with them";
}

TEST_F(Editing, copiesTheWholeText)
{
    openSearch(QStringLiteral("small theme"));
    hold(inField(8));
    choose("Select All");
    EXPECT_FALSE(offers("Select") || offers("Select All"));
    choose("Copy");
    EXPECT_FALSE(offersAnything());
    EXPECT_EQ(clipboard(), QStringLiteral("small theme"));
    EXPECT_EQ(searchBar().text(), QStringLiteral("small theme"));
}

TEST_F(Editing, pastesIntoTheFieldOfAnAlert)
{
    copy(QStringLiteral("http://127.0.0.1/"));
    const kit::AlertTextField* const field = openAlert();
    hold(inField(10));
    ASSERT_TRUE(offers("Paste"));
    EXPECT_GT(placeOf("Paste").y(), inField(0).y() + kit::Metrics::FieldHeight) << "clear of the field";
    choose("Paste");
    EXPECT_EQ(field->text(), QStringLiteral("http://127.0.0.1/"));
}

TEST_F(Editing, offersTheSameAtTheOtherButtonOfAMouse)
{
    copy(QStringLiteral("vesk"));
    openSearch(QStringLiteral("small theme"));
    clickRight(inField(8));
    EXPECT_TRUE(offers("Select") && offers("Select All") && offers("Paste"));
    press(Qt::Key_Escape);
    press(Qt::Key_A, Qt::ControlModifier);
    clickRight(inField(8));
    ASSERT_TRUE(offers("Cut") && offers("Copy") && offers("Paste")) << "of the selection, which stays";
    tap(placeOf("Paste"));
    EXPECT_EQ(searchBar().text(), QStringLiteral("vesk"));
}

TEST_F(Editing, onlyClosesByATouchElsewhere)
{
    openSearch(QStringLiteral("small theme"));
    hold(inField(8));
    ASSERT_TRUE(offersAnything());
    touch({ 200, 400 });
    EXPECT_FALSE(offersAnything());
    EXPECT_FALSE(stack(1)->canGoBack());
    EXPECT_TRUE(searchBar().isActive());
}

TEST_F(Editing, closesByEscapeBeforeTheSearchIsCancelled)
{
    openSearch(QStringLiteral("small theme"));
    hold(inField(8));
    press(Qt::Key_Escape);
    EXPECT_FALSE(offersAnything());
    EXPECT_TRUE(searchBar().isActive());
    press(Qt::Key_Escape);
    EXPECT_FALSE(searchBar().isActive());
}

TEST_F(Editing, closesByEscapeBeforeTheAlertDoes)
{
    copy(QStringLiteral("vesk"));
    openAlert();
    hold(inField(10));
    press(Qt::Key_Escape);
    EXPECT_FALSE(offersAnything());
    EXPECT_NE(window->presentedAlert(), nullptr);
}

TEST_F(Editing, closesWhenAPersonTypes)
{
    openSearch(QStringLiteral("small theme"));
    hold(inField(8));
    type(QStringLiteral("x"));
    EXPECT_FALSE(offersAnything());
}

TEST_F(Editing, closesWhenTheKeyboardGoesElsewhere)
{
    openSearch(QStringLiteral("small theme"));
    hold(inField(8));
    ASSERT_TRUE(offersAnything());
    press(Qt::Key_Tab);
    EXPECT_FALSE(offersAnything());
}

TEST_F(Editing, closesWhenTheWindowBecomesWiderOrLower)
{
    openSearch(QStringLiteral("lantern"));
    const QSize before = quick()->size();
    for (const QSize size : { before + QSize(30, 0), before + QSize(30, -100) }) {
        hold(inField(4));
        ASSERT_TRUE(offersAnything());
        quick()->resize(size);
        EXPECT_TRUE(waitUntil([this] { return !offersAnything(); })) << size.width() << 'x' << size.height();
        grabbed();
    }
}

TEST_F(Editing, standsAtTheMiddleOfWhatIsSelected)
{
    openSearch(QStringLiteral("a small theme for the lantern"));
    press(Qt::Key_A, Qt::ControlModifier);
    const QQuickItem& input = *quick()->activeFocusItem();
    const double textWidth = input.property("cursorRectangle").toRectF().x();
    clickRight(inField(textWidth / 4));
    ASSERT_TRUE(offers("Cut") && offers("Copy") && !offers("Paste"));
    const int middle = (rectOf("Cut").left() + rectOf("Copy").left() + rectOf("Copy").width()) / 2;
    EXPECT_NEAR(middle, inField(textWidth / 2).x(), 1);
}

TEST_F(Editing, staysInsideANarrowWindow)
{
    copy(QStringLiteral("vesk"));
    quick()->resize(320, 480);
    ASSERT_TRUE(waitUntil([this] { return one->view()->frame().width() == 320; }));
    openSearch(QStringLiteral("small theme of many words that goes on"));
    for (const double distance : { 5.0, 150.0 }) {
        hold(inField(distance));
        ASSERT_TRUE(offers("Select") && offers("Paste"));
        EXPECT_GE(rectOf("Select").left(), 0);
        EXPECT_LT(rectOf("Paste").right(), 320);
        choose("Select");
        ASSERT_TRUE(offers("Select All") && offers("Paste")) << "and with more of them";
        EXPECT_GE(rectOf("Select All").left(), 0);
        EXPECT_LT(rectOf("Paste").right(), 320);
        press(Qt::Key_Escape);
    }
}
