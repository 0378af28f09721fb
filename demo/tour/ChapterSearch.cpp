#include "catalog/RepoManager.h"
#include "demo/tour/Chapters.h"
#include "demo/tour/Tour.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/navigation/SearchController.h"

namespace {

kit::SearchBar& field(Tour& tour)
{
    return *tour.touch().screen().navigationItem()->searchController()->searchBar();
}

void tapField(Tour& tour)
{
    tour.expect(tour.touch().tap(tour.touch().find(QAccessible::EditableText, QStringLiteral("Search Vesk packages"))),
        QStringLiteral("the search field to tap"));
    tour.await([&] { return field(tour).isActive(); }, QStringLiteral("the field is in use"));
}

void expectBrowsing(Tour& tour)
{
    tour.expectHeader(0, QStringLiteral("BROWSE CATEGORIES"));
    tour.expectRowCount(0, static_cast<int>(RepoManager::sharedManager()->categories().size()));
}

} // namespace

void visitSearch(Tour& tour)
{
    TouchDriver& touch = tour.touch();
    tour.step(QStringLiteral("search"), [&] {
        tour.tapTab(QStringLiteral("Search"));
        tour.expectTitle(QStringLiteral("Search"));
        expectBrowsing(tour);
    });
    tour.step(QStringLiteral("search typed"), [&] {
        tapField(tour);
        touch.type(QStringLiteral("lantern"));
        tour.expectText(field(tour).text(), QStringLiteral("lantern"), QStringLiteral("field"));
        tour.expectHeader(0, QStringLiteral("SEARCH RESULTS"));
        tour.expect(touch.rowWithText(0, QStringLiteral("Lantern")).row >= 0, QStringLiteral("\"Lantern\" is found"));
        tour.note(QStringLiteral("%1 rows").arg(touch.table().layout().rowCount(0)));
    });
    tour.step(QStringLiteral("search without results"), [&] {
        touch.type(QStringLiteral(" nowhere"));
        tour.expectHeader(0, QStringLiteral("SEARCH RESULTS"));
        tour.expectRowCount(0, 0);
    });
    tour.step(QStringLiteral("search cleared"), [&] {
        tour.expect(touch.tap(touch.find(QAccessible::Button, QStringLiteral("Clear text"))),
            QStringLiteral("the button that clears"));
        tour.expectText(field(tour).text(), QString(), QStringLiteral("field"));
        tour.expect(field(tour).isActive(), QStringLiteral("the field is still in use"));
        expectBrowsing(tour);
    });
    tour.step(QStringLiteral("search cancelled"), [&] {
        touch.type(QStringLiteral("x"));
        tour.expect(touch.tap(touch.find(QAccessible::Button, QStringLiteral("Cancel"))),
            QStringLiteral("the button that cancels"));
        tour.expect(!field(tour).isActive(), QStringLiteral("the field is left"));
        expectBrowsing(tour);
    });
    tour.step(QStringLiteral("search category"), [&] {
        tour.openRow(0, QStringLiteral("Games"), QStringLiteral("Games"));
        tour.expect(touch.headerText(0).startsWith(QStringLiteral("GAMES  •  ")), QStringLiteral("the list's header"));
    });
    tour.step(QStringLiteral("back at search"), [&] {
        tour.goBackTo(QStringLiteral("Search"));
        expectBrowsing(tour);
    });
}
