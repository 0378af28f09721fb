// Where the keyboard's focus is.
#include "Gallery.h"


TEST_F(AtScale1, focusOnARow)
{
    fillCatalog();
    open({ 390, 480 });
    press(Qt::Key_Down, 2);
    expectPicture(QStringLiteral("focus-row"));
}

TEST_F(AtScale1, focusOnATab)
{
    fillCatalog();
    open(Tab::Changes, { 390, 480 });
    press(Qt::Key_Tab);
    expectPicture(QStringLiteral("focus-1"));
}

TEST_F(AtScale1, focusOnTheFirstTab)
{
    fillCatalog();
    open(Tab::Changes, { 390, 480 });
    press(Qt::Key_Backtab);
    expectPicture(QStringLiteral("focus-2"));
}
TEST_F(AtScale1, focusOnASwitch)
{
    addSources();
    fillCatalog();
    open(Tab::Manage, { 390, 480 });
    tap(0, 0);
    press(Qt::Key_Tab);
    expectPicture(QStringLiteral("focus-3"));
}

TEST_F(AtScale1, focusOnAnAlertsButton)
{
    fillCatalog();
    open({ 390, 480 });
    screen().navigationItem()->leftBarButtonItem()->press();
    press(Qt::Key_Tab);
    expectPicture(QStringLiteral("focus-alert"));
}
