#include "demo/tour/Chapters.h"
#include "demo/tour/Tour.h"
#include "ui/kit/navigation/NavigationController.h"

#include <QFileInfo>

namespace {

enum Section { HeaderSection, DescriptionSection, DetailsSection, ActionsSection };

// From the list of all categories to a package's own screen.
void openPackage(Tour& tour, const QString& category, const QString& package)
{
    tour.tapTab(QStringLiteral("Categories"));
    if (tour.touch().stack().canGoBack())
        tour.tapTab(QStringLiteral("Categories"));
    tour.touch().settle();
    tour.openRow(0, category, category);
    tour.openRow(0, package, package);
}

// Taps an action row and expects its confirmation.
void queueIt(Tour& tour, int actionRow, const QString& package)
{
    tour.expect(tour.touch().scrollToRow({ ActionsSection, actionRow }), QStringLiteral("the action's row"));
    tour.tapRow({ ActionsSection, actionRow });
    tour.expectAlert(
        QStringLiteral("Vesk"), QStringLiteral("%1 added to the queue.").arg(package), { QStringLiteral("OK") });
}

void expectActions(Tour& tour, const QString& first, const QString& second)
{
    tour.expect(tour.touch().scrollToRow({ ActionsSection, 1 }), QStringLiteral("the last action's row"));
    tour.expectHeader(ActionsSection, QStringLiteral("ACTIONS"));
    tour.expectRow({ ActionsSection, 0 }, first);
    tour.expectRow({ ActionsSection, 1 }, second);
}

void queueAnInstall(Tour& tour)
{
    const QString name = QStringLiteral("Cairn");
    tour.step(QStringLiteral("package not installed"), [&] {
        openPackage(tour, QStringLiteral("Navigation"), name);
        tour.expectRow({ HeaderSection, 0 }, name);
        tour.expectHeader(DescriptionSection, QStringLiteral("DESCRIPTION"));
        tour.expectHeader(DetailsSection, QStringLiteral("PACKAGE DETAILS"));
        tour.expectRow({ DetailsSection, 0 }, QStringLiteral("Version"), QStringLiteral("3.3"));
        tour.expectRow({ DetailsSection, 1 }, QStringLiteral("Package"), QStringLiteral("demo.northgate.cairn"));
        tour.expectRow({ DetailsSection, 2 }, QStringLiteral("Section"), QStringLiteral("Navigation"));
        tour.expectRow({ DetailsSection, 3 }, QStringLiteral("Repository"), QStringLiteral("Vesk Demo"));
        expectActions(tour, QStringLiteral("Install"), QStringLiteral("Add to Queue"));
    });
    tour.step(QStringLiteral("added to the queue"), [&] { queueIt(tour, 0, name); });
    tour.step(QStringLiteral("added once more"), [&] {
        tour.tapAlertButton(QStringLiteral("OK"));
        queueIt(tour, 1, name);
    });
    tour.step(QStringLiteral("still to install"), [&] {
        tour.tapAlertButton(QStringLiteral("OK"));
        expectActions(tour, QStringLiteral("Install"), QStringLiteral("Add to Queue"));
    });
}

void queueThe(Tour& tour, const QString& step, const QString& category, const QString& package, const QString& action,
    int actionRow, const QString& otherAction)
{
    tour.step(step, [&] {
        openPackage(tour, category, package);
        expectActions(tour, actionRow == 0 ? action : otherAction, actionRow == 0 ? otherAction : action);
    });
    tour.step(QStringLiteral("%1 queued").arg(step), [&] { queueIt(tour, actionRow, package); });
    tour.tapAlertButton(QStringLiteral("OK"));
}

QString inQueue(const char* action)
{
    return QStringLiteral("%1  •  In Queue").arg(QLatin1String(action));
}

void openQueue(Tour& tour)
{
    tour.tapTab(QStringLiteral("Manage"));
    if (tour.touch().stack().canGoBack())
        tour.tapTab(QStringLiteral("Manage"));
    tour.openRow(0, QStringLiteral("Queued Changes"), QStringLiteral("Queue"));
    tour.expectHeader(0, QStringLiteral("QUEUED CHANGES"));
}

void lookAtQueue(Tour& tour)
{
    tour.step(QStringLiteral("queue"), [&] {
        openQueue(tour);
        tour.expectBarButton(QStringLiteral("Clear"), Tour::Item::Enabled);
        tour.expectBarButton(QStringLiteral("Install"), Tour::Item::Enabled);
        tour.expectRowCount(0, 6);
        tour.expectRow({ 0, 0 }, QStringLiteral("Cairn"), inQueue("Install"));
        tour.expectRow({ 0, 1 }, QStringLiteral("Lantern"), inQueue("Upgrade"));
        tour.expectRow({ 0, 2 }, QStringLiteral("Standing Order"), inQueue("Install"));
        tour.expectRow({ 0, 3 }, QStringLiteral("Thunderstone"), inQueue("Install"));
        tour.expectRow({ 0, 4 }, QStringLiteral("Tidewheel"), inQueue("Uninstall"));
        tour.expectRow({ 0, 5 }, QStringLiteral("Contour"), inQueue("Install"));
    });
    tour.step(QStringLiteral("swiped open"), [&] {
        tour.expect(tour.touch().swipeOpen({ 0, 5 }), QStringLiteral("the row opens"));
        tour.touch().settle();
        tour.expect(
            tour.touch().find(QAccessible::Button, QStringLiteral("Delete")), QStringLiteral("a button \"Delete\""));
        tour.note(QStringLiteral("button \"Delete\""));
    });
    tour.step(QStringLiteral("entry deleted"), [&] {
        tour.expect(tour.touch().tap(tour.touch().find(QAccessible::Button, QStringLiteral("Delete"))),
            QStringLiteral("the button to tap"));
        tour.expectRowCount(0, 5);
        tour.expectRow({ 0, 4 }, QStringLiteral("Tidewheel"), inQueue("Uninstall"));
    });
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void expectInstalledFiles(Tour& tour)
{
    tour.expect(QFileInfo(QStringLiteral("/opt/vesk-demo/demo.northgate.cairn/bin/cairn")).isExecutable(),
        QStringLiteral("Cairn's program is in /opt"));
    tour.expect(contents(QStringLiteral("/opt/vesk-demo/demo.orchard.lantern/version")) == "2.3.0\n",
        QStringLiteral("Lantern's files are those of the new version"));
    tour.expect(!QFileInfo::exists(QStringLiteral("/opt/vesk-demo/demo.northgate.contour")),
        QStringLiteral("the deleted entry was not installed"));
    tour.note(QStringLiteral("files in /opt"));
}

void expectHandOffs(Tour& tour)
{
    const QString path = qEnvironmentVariable("VESK_DEMO_HANDOFFS");
    const QList<QByteArray> wanted{ "sileo://package/demo.gearhart.standing-order",
        "sileo://package/demo.nimbus.thunderstone" };
    for (const QByteArray& url : wanted)
        if (tour.await([&] { return contents(path).split('\n').contains(url); },
                QStringLiteral("handed over: %1").arg(QString::fromUtf8(url))))
            tour.note(QString::fromUtf8(url));
}

void run(Tour& tour)
{
    tour.step(QStringLiteral("run reported"), [&] {
        tour.tapBarButton(QStringLiteral("Install"));
        tour.await([&] { return tour.touch().window().presentedAlert(); }, QStringLiteral("the end of the run"));
        tour.expectAlert(QStringLiteral("Vesk"), QStringLiteral("3 completed, 0 failed"), { QStringLiteral("OK") });
    });
    tour.step(QStringLiteral("queue after the run"), [&] {
        tour.tapAlertButton(QStringLiteral("OK"));
        tour.expectRowCount(0, 5);
        tour.expectRow({ 0, 0 }, QStringLiteral("Cairn"), QStringLiteral("Install  •  Complete"));
        tour.expectRow({ 0, 1 }, QStringLiteral("Lantern"), QStringLiteral("Upgrade  •  Complete"));
        tour.expectRow({ 0, 2 }, QStringLiteral("Standing Order"), QStringLiteral("Install  •  Ready"));
        tour.expectRow({ 0, 3 }, QStringLiteral("Thunderstone"), QStringLiteral("Install  •  Ready"));
        tour.expectRow({ 0, 4 }, QStringLiteral("Tidewheel"), QStringLiteral("Uninstall  •  Complete"));
        expectInstalledFiles(tour);
        expectHandOffs(tour);
    });
}

void lookAgain(Tour& tour)
{
    tour.step(QStringLiteral("installed but not refreshed"), [&] {
        openPackage(tour, QStringLiteral("Navigation"), QStringLiteral("Cairn"));
        expectActions(tour, QStringLiteral("Install"), QStringLiteral("Add to Queue"));
    });
    tour.step(QStringLiteral("installed and refreshed"), [&] {
        tour.tapTab(QStringLiteral("Changes"));
        tour.tapBarButton(QStringLiteral("Reload"));
        tour.await([&] { return !tour.touch().table().refreshControl()->isRefreshing(); },
            QStringLiteral("the end of the refresh"));
        openPackage(tour, QStringLiteral("Navigation"), QStringLiteral("Cairn"));
        expectActions(tour, QStringLiteral("Reinstall"), QStringLiteral("Uninstall"));
    });
    tour.step(QStringLiteral("upgraded and refreshed"), [&] {
        openPackage(tour, QStringLiteral("Utilities"), QStringLiteral("Lantern"));
        expectActions(tour, QStringLiteral("Reinstall"), QStringLiteral("Uninstall"));
    });
}

void clear(Tour& tour)
{
    tour.step(QStringLiteral("queue cleared"), [&] {
        openQueue(tour);
        tour.tapBarButton(QStringLiteral("Clear"));
        tour.expectOnlyRow(QStringLiteral("Nothing queued"));
        tour.expect(!tour.touch().swipeOpen({ 0, 0 }), QStringLiteral("it cannot be swiped open"));
    });
    tour.step(QStringLiteral("empty queue run"), [&] {
        tour.tapBarButton(QStringLiteral("Install"));
        tour.expectAlert(QStringLiteral("Vesk"), QStringLiteral("0 completed, 0 failed"), { QStringLiteral("OK") });
    });
    tour.tapAlertButton(QStringLiteral("OK"));
}

} // namespace

void queuePackages(Tour& tour)
{
    queueAnInstall(tour);
    queueThe(tour, QStringLiteral("upgrade"), QStringLiteral("Utilities"), QStringLiteral("Lantern"),
        QStringLiteral("Upgrade to 2.3.0"), 0, QStringLiteral("Uninstall"));
    queueThe(tour, QStringLiteral("package that fails"), QStringLiteral("Productivity"),
        QStringLiteral("Standing Order"), QStringLiteral("Install"), 0, QStringLiteral("Add to Queue"));
    queueThe(tour, QStringLiteral("package not there"), QStringLiteral("Weather"), QStringLiteral("Thunderstone"),
        QStringLiteral("Install"), 0, QStringLiteral("Add to Queue"));
    queueThe(tour, QStringLiteral("uninstall"), QStringLiteral("Weather"), QStringLiteral("Tidewheel"),
        QStringLiteral("Uninstall"), 1, QStringLiteral("Reinstall"));
    queueThe(tour, QStringLiteral("second thought"), QStringLiteral("Navigation"), QStringLiteral("Contour"),
        QStringLiteral("Install"), 0, QStringLiteral("Add to Queue"));
}

void runQueue(Tour& tour)
{
    lookAtQueue(tour);
    run(tour);
    lookAgain(tour);
    clear(tour);
}
