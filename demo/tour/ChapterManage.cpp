#include "demo/tour/Chapters.h"
#include "demo/tour/Tour.h"
#include "ui/kit/navigation/NavigationController.h"

namespace {

enum Section { MenuSection, SettingsSection, InstalledSection };

void toRoot(Tour& tour)
{
    tour.tapTab(QStringLiteral("Manage"));
    if (tour.touch().stack().canGoBack())
        tour.tapTab(QStringLiteral("Manage"));
    tour.touch().settle();
}

void menu(Tour& tour)
{
    tour.step(QStringLiteral("manage"), [&] {
        toRoot(tour);
        tour.expectTitle(QStringLiteral("Manage"));
        tour.expectHeader(MenuSection, QStringLiteral("VESK"));
        tour.expectRow({ MenuSection, 0 }, QStringLiteral("Manage Sources"),
            QStringLiteral("Add, remove, or refresh repositories"));
        tour.expectRow(
            { MenuSection, 1 }, QStringLiteral("Installed Apps"), QStringLiteral("Browse installed packages"));
        tour.expectRow(
            { MenuSection, 2 }, QStringLiteral("Queued Changes"), QStringLiteral("Review and perform pending actions"));
        tour.expectHeader(SettingsSection, QStringLiteral("SETTINGS"));
        tour.expectRow(
            { SettingsSection, 0 }, QStringLiteral("Settings"), QStringLiteral("VeskApp behavior and package options"));
        tour.expectHeader(InstalledSection, QStringLiteral("INSTALLED PACKAGES"));
        tour.expect(tour.touch().rowWithText(InstalledSection, QStringLiteral("#Hue")).row >= 0,
            QStringLiteral("\"#Hue\" is listed"));
    });
    tour.step(QStringLiteral("settings"), [&] {
        tour.tapRow({ SettingsSection, 0 });
        tour.expectAlert(QStringLiteral("Vesk Settings"),
            QStringLiteral("Keep Open On Confirm and Minimize On Confirm are represented by the queue screen. Package "
                           "actions are queued before they are executed."),
            { QStringLiteral("Close") });
    });
    tour.tapAlertButton(QStringLiteral("Close"));
}

void actionSheet(Tour& tour)
{
    const QString name = QStringLiteral("#Hue");
    const auto openSheet = [&] {
        tour.expect(tour.touch().scrollToRow(InstalledSection, name), QStringLiteral("a row \"#Hue\""));
        tour.tapRow(tour.touch().rowWithText(InstalledSection, name));
        tour.expectAlert(
            name, QStringLiteral("#Hue 3.0 is installed."), { QStringLiteral("Uninstall"), QStringLiteral("Cancel") });
    };
    tour.step(QStringLiteral("action sheet"), openSheet);
    tour.step(QStringLiteral("action sheet cancelled"), [&] {
        tour.tapAlertButton(QStringLiteral("Cancel"));
        tour.expectTitle(QStringLiteral("Manage"));
    });
    tour.step(QStringLiteral("uninstall from the sheet"), [&] {
        openSheet();
        tour.tapAlertButton(QStringLiteral("Uninstall"));
        tour.expectTitle(QStringLiteral("Manage"));
        tour.expect(tour.touch().scrollToRow({ MenuSection, 0 }), QStringLiteral("the menu"));
        tour.openRow(MenuSection, QStringLiteral("Queued Changes"), QStringLiteral("Queue"));
        tour.expectRow({ 0, 0 }, name, QStringLiteral("Uninstall  •  In Queue"));
    });
}

void installedApps(Tour& tour)
{
    tour.step(QStringLiteral("installed apps"), [&] {
        toRoot(tour);
        tour.expect(tour.touch().scrollToRow({ MenuSection, 0 }), QStringLiteral("the menu"));
        tour.openRow(MenuSection, QStringLiteral("Installed Apps"), QStringLiteral("Installed Apps"));
        tour.expectHeader(0, QStringLiteral("INSTALLED PACKAGES"));
        tour.expect(
            tour.touch().rowWithText(0, QStringLiteral("Cairn")).row >= 0, QStringLiteral("\"Cairn\" is listed now"));
    });
    tour.step(QStringLiteral("installed package"), [&] {
        tour.openRow(0, QStringLiteral("+1 Bell"), QStringLiteral("+1 Bell"));
        tour.expectRow({ 0, 0 }, QStringLiteral("+1 Bell"), QStringLiteral("Belfry  •  2.0.1"));
    });
}

} // namespace

void visitManage(Tour& tour)
{
    menu(tour);
    actionSheet(tour);
    installedApps(tour);
}
