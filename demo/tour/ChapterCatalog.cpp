#include "catalog/RepoManager.h"
#include "demo/tour/Chapters.h"
#include "demo/tour/Tour.h"
#include "ui/kit/navigation/NavigationController.h"

namespace {

bool isRefreshing(Tour& tour)
{
    return tour.touch().table().refreshControl()->isRefreshing();
}

void changes(Tour& tour)
{
    TouchDriver& touch = tour.touch();
    tour.step(QStringLiteral("changes"), [&] {
        tour.tapTab(QStringLiteral("Changes"));
        tour.expectTitle(QStringLiteral("Changes"));
        tour.expectHeader(0, QStringLiteral("RECENT UPDATES"));
        tour.expectRowCount(0, static_cast<int>(RepoManager::sharedManager()->packages().size()));
        tour.expectBarButton(QStringLiteral("Reload"), Tour::Item::Enabled);
    });
    tour.step(QStringLiteral("changes flicked"), [&] {
        touch.flick({ 195, 700 }, { 195, 250 });
        tour.await([&] { return touch.table().contentOffset() > 500; }, QStringLiteral("the list goes on by itself"));
        touch.settle();
        tour.expect(qAbs(touch.table().headerView(0)->frame().top() - touch.table().contentOffset()) < 0.5,
            QStringLiteral("the header stands at the top"));
        tour.expectHeader(0, QStringLiteral("RECENT UPDATES"));
        tour.note(QStringLiteral("%1 points down").arg(qRound(touch.table().contentOffset())));
    });
    tour.step(QStringLiteral("changes reloading"), [&] {
        tour.tapTab(QStringLiteral("Changes"));
        touch.drag({ 195, 200 }, { 195, 780 });
        touch.scrollToRow({ 0, 0 });
        Tour::holdSource();
        tour.tapBarButton(QStringLiteral("Reload"));
        tour.expect(isRefreshing(tour), QStringLiteral("the spinner turns without a pull"));
        tour.expectBarButton(QStringLiteral("Reload"), Tour::Item::Disabled);
        tour.await([&] { return touch.table().contentOffset() <= -60; }, QStringLiteral("the spinner's room"));
        tour.takePictureNow();
        Tour::releaseSource();
    });
    tour.step(QStringLiteral("changes reloaded"), [&] {
        tour.await([&] { return !isRefreshing(tour); }, QStringLiteral("the end of the refresh"));
        touch.settle();
        tour.expectBarButton(QStringLiteral("Reload"), Tour::Item::Enabled);
        tour.expectRowCount(0, static_cast<int>(RepoManager::sharedManager()->packages().size()));
    });
}

void categories(Tour& tour)
{
    tour.step(QStringLiteral("categories"), [&] {
        tour.tapTab(QStringLiteral("Categories"));
        tour.expectTitle(QStringLiteral("Categories"));
        tour.expectHeader(0, QStringLiteral("ALL CATEGORIES"));
        tour.expectRowCount(0, static_cast<int>(RepoManager::sharedManager()->categories().size()));
    });
}

} // namespace

void visitChangesAndCategories(Tour& tour)
{
    changes(tour);
    categories(tour);
}
