#include "catalog/RepoManager.h"
#include "demo/tour/Chapters.h"
#include "demo/tour/Tour.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/view/Switch.h"

#include <QUrl>

namespace {

enum Section { ActiveSection, AvailableSection };

std::vector<VeskRepositoryPtr>& sources()
{
    return RepoManager::sharedManager()->repositories();
}

void toMenu(Tour& tour)
{
    tour.tapTab(QStringLiteral("Manage"));
    if (tour.touch().stack().canGoBack())
        tour.tapTab(QStringLiteral("Manage"));
    tour.touch().settle();
    tour.expect(tour.touch().scrollToRow({ 0, 0 }), QStringLiteral("the menu"));
}

void expectSources(Tour& tour)
{
    tour.expectTitle(QStringLiteral("Sources"));
    tour.expectHeader(ActiveSection, QStringLiteral("ACTIVE SOURCES"));
    tour.expectHeader(AvailableSection, QStringLiteral("AVAILABLE SOURCES"));
    tour.expectRow({ ActiveSection, 0 }, QStringLiteral("Vesk Demo"), sources().front()->urlString());
    tour.expectRowCount(AvailableSection, 4);
    tour.expectBarButton(QStringLiteral("Add"), Tour::Item::Enabled);
}

bool isOn(Tour& tour)
{
    const auto* cell = tour.touch().table().cellForRow({ ActiveSection, 0 });
    const auto* control = cell ? qobject_cast<kit::Switch*>(cell->accessoryView()) : nullptr;
    return control && control->isOn();
}

void switchOffAndOn(Tour& tour)
{
    tour.step(QStringLiteral("source switched off"), [&] {
        tour.expect(tour.touch().tapAccessory({ ActiveSection, 0 }), QStringLiteral("the switch to tap"));
        tour.expect(!isOn(tour), QStringLiteral("the switch is off"));
        tour.expect(!sources().front()->enabled(), QStringLiteral("the source is off"));
        tour.note(QStringLiteral("switch and source off"));
    });
    tour.step(QStringLiteral("source switched on"), [&] {
        tour.expect(tour.touch().tapAccessory({ ActiveSection, 0 }), QStringLiteral("the switch to tap"));
        tour.expect(isOn(tour) && sources().front()->enabled(), QStringLiteral("switch and source are on"));
        tour.note(QStringLiteral("switch and source on"));
    });
}

void handOver(Tour& tour)
{
    tour.step(QStringLiteral("source handed over"), [&] {
        tour.tapRow({ ActiveSection, 0 });
        const QByteArray wanted = "sileo://source/" + sources().front()->urlString().toUtf8();
        const auto isRecorded = [&] {
            QFile file(qEnvironmentVariable("VESK_DEMO_HANDOFFS"));
            return file.open(QIODevice::ReadOnly) && file.readAll().split('\n').contains(wanted);
        };
        tour.await(isRecorded, QStringLiteral("handed over: %1").arg(QString::fromUtf8(wanted)));
        tour.note(QString::fromUtf8(wanted));
    });
}

void openAlert(Tour& tour)
{
    tour.tapBarButton(QStringLiteral("Add"));
    tour.expectAlert(QStringLiteral("Add Source"), QStringLiteral("Enter an APT repository URL."),
        { QStringLiteral("Cancel"), QStringLiteral("Add") });
}

void addSource(Tour& tour)
{
    const int before = static_cast<int>(sources().size());
    // The same place by another spelling of its address: a source of its own, with no package that is not there yet.
    const QString address = sources().front()->urlString().chopped(1);
    tour.step(QStringLiteral("empty address"), [&] {
        openAlert(tour);
        tour.tapAlertButton(QStringLiteral("Add"));
        tour.expectRowCount(ActiveSection, before);
        tour.expectBarButton(QStringLiteral("Add"), Tour::Item::Enabled);
    });
    tour.step(QStringLiteral("add source"), [&] {
        openAlert(tour);
        tour.touch().type(address);
        kit::AlertController* alert = tour.touch().window().presentedAlert();
        if (alert && tour.expect(!alert->textFields().isEmpty(), QStringLiteral("a field")))
            tour.expectText(alert->textFields().first()->text(), address, QStringLiteral("field"));
    });
    tour.step(QStringLiteral("source added"), [&] {
        tour.tapAlertButton(QStringLiteral("Add"));
        const auto isDone = [&] {
            const QQuickItem* button = tour.touch().barButton(QStringLiteral("Add"));
            return button && button->isEnabled() && tour.touch().table().layout().rowCount(ActiveSection) == before + 1;
        };
        tour.await(isDone, QStringLiteral("the new row"));
        tour.expectRow({ ActiveSection, before }, QStringLiteral("127.0.0.1"), address);
    });
}

void removeSource(Tour& tour)
{
    TouchDriver& touch = tour.touch();
    const int last = static_cast<int>(sources().size()) - 1;
    tour.step(QStringLiteral("source swiped open"), [&] {
        tour.expect(touch.swipeOpen({ ActiveSection, last }), QStringLiteral("the row opens"));
        touch.settle();
        tour.expect(touch.find(QAccessible::Button, QStringLiteral("Delete")), QStringLiteral("a button \"Delete\""));
        tour.note(QStringLiteral("button \"Delete\""));
    });
    tour.step(QStringLiteral("source removed"), [&] {
        const QQuickItem* next = touch.itemFor(touch.table().headerView(AvailableSection));
        tour.expect(next, QStringLiteral("the next section"));
        tour.expect(touch.tap(touch.find(QAccessible::Button, QStringLiteral("Delete"))), QStringLiteral("the button"));
        touch.settle();
        tour.expectRowCount(ActiveSection, last);
        tour.expect(RepoManager::sharedManager()->packages().empty(), QStringLiteral("the catalog is empty"));
        tour.expectRow({ ActiveSection, 0 }, QStringLiteral("Vesk Demo"));
    });
    tour.step(QStringLiteral("available source not swiped"), [&] {
        tour.expect(!touch.swipeOpen({ AvailableSection, 1 }), QStringLiteral("the row stays shut"));
        touch.settle();
        tour.expectHeader(AvailableSection, QStringLiteral("AVAILABLE SOURCES"));
    });
}

void emptyScreens(Tour& tour)
{
    tour.step(QStringLiteral("nothing installed"), [&] {
        toMenu(tour);
        tour.expectRow({ 2, 0 }, QStringLiteral("No installed packages found"));
    });
    tour.step(QStringLiteral("no installed apps"), [&] {
        tour.openRow(0, QStringLiteral("Installed Apps"), QStringLiteral("Installed Apps"));
        tour.expectOnlyRow(QStringLiteral("No installed packages found"));
    });
    tour.step(QStringLiteral("no changes"), [&] {
        tour.tapTab(QStringLiteral("Changes"));
        tour.expectOnlyRow(QStringLiteral("No changes available. Tap Reload."));
    });
    tour.step(QStringLiteral("empty category"), [&] {
        tour.tapTab(QStringLiteral("Categories"));
        tour.goBackTo(QStringLiteral("Utilities"));
        tour.expectHeader(0, QStringLiteral("UTILITIES"));
        tour.expectOnlyRow(QStringLiteral("No packages in this category"));
    });
    tour.step(QStringLiteral("no categories"), [&] {
        tour.goBackTo(QStringLiteral("Categories"));
        tour.expectOnlyRow(QStringLiteral("Refresh Vesk to load categories"));
    });
    tour.step(QStringLiteral("nothing to search"), [&] {
        tour.tapTab(QStringLiteral("Search"));
        tour.touch().tap(tour.touch().find(QAccessible::EditableText, QStringLiteral("Search Vesk packages")));
        tour.touch().type(QStringLiteral("x"));
        tour.touch().tap(tour.touch().find(QAccessible::Button, QStringLiteral("Cancel")));
        tour.expectHeader(0, QStringLiteral("BROWSE CATEGORIES"));
        tour.expectOnlyRow(QStringLiteral("Refresh Vesk before searching"));
    });
}

} // namespace

void visitSources(Tour& tour)
{
    tour.step(QStringLiteral("sources"), [&] {
        toMenu(tour);
        tour.openRow(0, QStringLiteral("Manage Sources"), QStringLiteral("Sources"));
        expectSources(tour);
    });
    switchOffAndOn(tour);
    handOver(tour);
    addSource(tour);
    removeSource(tour);
    emptyScreens(tour);
    tour.step(QStringLiteral("home fills again"), [&] {
        tour.tapTab(QStringLiteral("Vesk"));
        tour.await([&] { return tour.touch().headerText(0) == QStringLiteral("HOT APPS & UTILITIES"); },
            QStringLiteral("the rows are back"));
        tour.await([&] { return !tour.touch().table().refreshControl()->isRefreshing(); },
            QStringLiteral("the end of the refresh"));
        tour.expectBarButton(QStringLiteral("Reload"), Tour::Item::Enabled);
    });
}

void walkThrough(Tour& tour)
{
    visitHome(tour);
    visitChangesAndCategories(tour);
    queuePackages(tour);
    runQueue(tour);
    visitSearch(tour);
    visitManage(tour);
    visitSources(tour);
}
