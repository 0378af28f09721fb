// How the cursor of the search field blinks.
#include "tests/ui/kit/window/FingerTest.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace {

class Cursor : public FingerTest
{
protected:
    Cursor()
    {
        press(Qt::Key_F, Qt::ControlModifier);
        grabbed();
    }
    ~Cursor() override { blinkEvery(m_usual); }

    // As the desktop says, in milliseconds; never, by 0.
    static void blinkEvery(int milliseconds) { QGuiApplication::styleHints()->setCursorFlashTime(milliseconds); }
    QQuickItem& cursor() const { return *itemDrawnBy(QLatin1String("TextCursor")); }
    bool isSeen() const { return cursor().isVisible() && cursor().opacity() == 1; }
    kit::SearchBar& searchBar() const { return *two->navigationItem()->searchController()->searchBar(); }

private:
    const int m_usual = QGuiApplication::styleHints()->cursorFlashTime();
};

} // namespace

TEST_F(Cursor, comesAndGoes)
{
    blinkEvery(20);
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(waitUntil([this] { return cursor().opacity() == 0; }));
        EXPECT_TRUE(waitUntil([this] { return cursor().opacity() == 1; }));
    }
}

TEST_F(Cursor, isSeenAtOnceWhereTheTextChanges)
{
    blinkEvery(20);
    ASSERT_TRUE(waitUntil([this] { return cursor().opacity() == 0; }));
    searchBar().setText(QStringLiteral("vesk"));
    EXPECT_TRUE(isSeen());
}

TEST_F(Cursor, standsStillWhereTheDesktopsCursorsDo)
{
    blinkEvery(20);
    ASSERT_TRUE(waitUntil([this] { return cursor().opacity() == 0; }));
    blinkEvery(0);
    EXPECT_TRUE(isSeen()) << "not left out of sight";
    searchBar().setText(QStringLiteral("vesk"));
    for (int frame = 0; frame < 12; ++frame) {
        drawFrame();
        EXPECT_TRUE(isSeen()) << frame;
    }
}

TEST_F(Cursor, isTwoPointsWide)
{
    EXPECT_EQ(cursor().width(), 2);
}
