// Every alert, and the sheet.
#include "tests/gallery/Gallery.h"

TEST_F(AtScale1, aboutAlert)
{
    fillCatalog();
    open(Low);
    screen().navigationItem()->leftBarButtonItem()->press();
    expectPicture(QStringLiteral("alert-about"));
}

TEST_F(AtScale1, settingsAlert)
{
    fillCatalog();
    open(Tab::Manage, Low);
    tap(1, 0);
    expectPicture(QStringLiteral("alert-settings"));
}

TEST_F(AtScale1, addSourceAlert)
{
    fillCatalog();
    open(Tab::Manage, Low);
    tap(0, 0);
    screen().navigationItem()->rightBarButtonItem()->press();
    expectPicture(QStringLiteral("alert-add-source"));
}

TEST_F(AtScale1, addSourceAlertWithAText)
{
    fillCatalog();
    open(Tab::Manage, Low);
    tap(0, 0);
    screen().navigationItem()->rightBarButtonItem()->press();
    alert().textFields().first()->setText(QStringLiteral("http://127.0.0.1/shelf"));
    expectPicture(QStringLiteral("alert-add-source-typed"));
}

TEST_F(AtScale1, whatCanBeDoneWithTheFieldOfAnAlert)
{
    fillCatalog();
    open(Tab::Manage, Low);
    tap(0, 0);
    screen().navigationItem()->rightBarButtonItem()->press();
    turnLoop();
    clickRightIntoField(QStringLiteral("http://127.0.0.1/shelf"));
    expectPicture(QStringLiteral("alert-edit-menu"));
}

TEST_F(AtScale1, queuedAlert)
{
    fillCatalog();
    open(Low);
    tap(0, 0);
    tap(3, 0);
    expectPicture(QStringLiteral("alert-queued"));
}

TEST_F(AtScale1, reportOfARun)
{
    fillCatalog();
    open(Tab::Manage, Low);
    tap(0, 2);
    screen().navigationItem()->rightBarButtonItem()->press();
    ASSERT_TRUE(waitUntil([this] { return delegate->window()->presentedAlert(); }));
    expectPicture(QStringLiteral("alert-run"));
}

TEST_F(AtScale1, uninstallSheet)
{
    fillCatalog();
    open(Tab::Manage, Low);
    tap(2, 0);
    expectPicture(QStringLiteral("sheet-uninstall"));
}

TEST_F(AtScale1, uninstallSheetOfALongName)
{
    fillCatalogExcessively();
    open(Tab::Manage, Low);
    tap(2, 0);
    expectPicture(QStringLiteral("sheet-excessive"));
}
