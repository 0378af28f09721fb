// Where the keyboard's focus is.
#include "tests/gallery/Gallery.h"

TEST_F(AtScale1, focusOnARow)
{
    fillCatalog();
    open(Low);
    press(Qt::Key_Down, 2);
    expectPicture(QStringLiteral("focus-row"));
}

TEST_F(AtScale1, focusOnABarButton)
{
    fillCatalog();
    open(Tab::Changes, Low);
    press(Qt::Key_Backtab);
    expectPicture(QStringLiteral("focus-bar-button"));
}

TEST_F(AtScale1, focusOnATab)
{
    fillCatalog();
    open(Tab::Changes, Low);
    press(Qt::Key_Tab);
    expectPicture(QStringLiteral("focus-tab"));
}

TEST_F(AtScale1, focusOnASwitch)
{
    addSources();
    fillCatalog();
    open(Tab::Manage, Low);
    tap(0, 0);
    press(Qt::Key_Tab);
    expectPicture(QStringLiteral("focus-switch"));
}

TEST_F(AtScale1, focusOnAnAlertsButton)
{
    fillCatalog();
    open(Low);
    screen().navigationItem()->leftBarButtonItem()->press();
    press(Qt::Key_Tab);
    expectPicture(QStringLiteral("focus-alert"));
}
