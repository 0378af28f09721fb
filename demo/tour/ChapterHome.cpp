#include "catalog/RepoManager.h"
#include "demo/tour/Chapters.h"
#include "demo/tour/Tour.h"
#include "ui/classic/ClassicUI.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/view/ImageView.h"

#include <algorithm>

namespace {

bool isRefreshing(Tour& tour)
{
    const kit::RefreshControl* control = tour.touch().table().refreshControl();
    return control && control->isRefreshing();
}

kit::Image badgeOf(Tour& tour, const QString& text)
{
    const kit::TableViewCell* cell = tour.touch().table().cellForRow(tour.touch().rowWithText(0, text));
    const auto* badge = cell ? qobject_cast<kit::ImageView*>(cell->accessoryView()) : nullptr;
    return badge ? badge->image() : kit::Image();
}

void firstLaunch(Tour& tour)
{
    tour.step(QStringLiteral("first launch"), [&] {
        tour.takePictureNow();
        tour.expectTitle(QStringLiteral("Welcome to Vesk"));
        tour.expect(tour.touch().headerText(0).isNull(), QStringLiteral("no section header"));
        tour.expectRowCount(0, 1);
        tour.expectRow({ 0, 0 }, QStringLiteral("No packages loaded. Tap Reload."));
        tour.expectBarButton(QStringLiteral("Reload"), Tour::Item::Disabled);
        tour.expect(isRefreshing(tour), QStringLiteral("the refresh has begun by itself"));
        Tour::releaseSource();
    });
    tour.step(QStringLiteral("home filled"), [&] {
        tour.await([&] { return !isRefreshing(tour); }, QStringLiteral("the end of the refresh"));
        tour.touch().settle();
        tour.expectHeader(0, QStringLiteral("HOT APPS & UTILITIES"));
        tour.expectRowCount(0, 8);
        tour.expectBarButton(QStringLiteral("Reload"), Tour::Item::Enabled);
        tour.expect(
            badgeOf(tour, QStringLiteral("#Hue")) == kit::Image::systemNamed(QStringLiteral("arrow.up.circle.fill")),
            QStringLiteral("\"#Hue\" has the badge of an update"));
        tour.expect(badgeOf(tour, QStringLiteral("+1 Bell"))
                == kit::Image::systemNamed(QStringLiteral("checkmark.circle.fill")),
            QStringLiteral("\"+1 Bell\" has the badge of what is installed"));
        tour.expect(badgeOf(tour, QStringLiteral("(Aside)")).isNull(), QStringLiteral("\"(Aside)\" has no badge"));
        tour.note(QStringLiteral("badges of an update and of an installed package"));
    });
}

void about(Tour& tour)
{
    tour.step(QStringLiteral("about"), [&] {
        tour.tapBarButton(QStringLiteral("About"));
        tour.expectAlert(QStringLiteral("Tarnwell"),
            QStringLiteral(
                "A modern rootless recreation of the classic VeskApp interface. Package downloads and installs "
                "are handled by the device's APT/dpkg environment."),
            { QStringLiteral("Close") });
    });
    tour.step(QStringLiteral("about closed"), [&] {
        tour.tapAlertButton(QStringLiteral("Close"));
        tour.expectTitle(QStringLiteral("Welcome to Vesk"));
    });
}

void pullToRefresh(Tour& tour)
{
    TouchDriver& touch = tour.touch();
    const QPointF start(195, 300);
    const double far = 240;
    tour.step(QStringLiteral("pulled"), [&] {
        Tour::holdSource();
        touch.press(start);
        touch.glideTo(start + QPointF(0, far));
        tour.await([&] { return isRefreshing(tour); }, QStringLiteral("the refresh, where it is pulled far enough"));
        tour.takePictureNow();
        tour.expect(touch.table().contentOffset() < -60, QStringLiteral("the table is pulled down"));
        tour.note(QStringLiteral("%1 points of room for the spinner").arg(-qRound(touch.table().contentOffset())));
    });
    tour.step(QStringLiteral("refreshing"), [&] {
        touch.release();
        tour.expect(isRefreshing(tour), QStringLiteral("the refresh goes on"));
        tour.takePictureNow();
        tour.expectBarButton(QStringLiteral("Reload"), Tour::Item::Disabled);
        tour.expectRowCount(0, 8);
        Tour::releaseSource();
    });
    tour.step(QStringLiteral("refreshed"), [&] {
        tour.await([&] { return !isRefreshing(tour) && touch.table().contentOffset() >= 0; },
            QStringLiteral("the end of the refresh"));
        tour.expectBarButton(QStringLiteral("Reload"), Tour::Item::Enabled);
        tour.expectRowCount(0, 8);
    });
}

void pinnedHeader(Tour& tour)
{
    TouchDriver& touch = tour.touch();
    tour.step(QStringLiteral("header pushed up"), [&] {
        const double pushing = touch.table().layout().sectionTop(1) - 12;
        touch.drag({ 195, 700 }, { 195, 700 - pushing - 10 });
        touch.settle();
        const double offset = touch.table().contentOffset();
        const kit::View* first = touch.table().headerView(0);
        const kit::View* second = touch.table().headerView(1);
        tour.expect(first->frame().top() <= offset && second->frame().top() > offset,
            QStringLiteral("one header at the top, the next below it"));
        tour.expect(first->frame().bottom() <= second->frame().top() + 0.5, QStringLiteral("no header over another"));
        tour.expectHeader(1, QStringLiteral("CATEGORIES"));
    });
}

int packagesIn(const QString& category)
{
    const PackageList& packages = RepoManager::sharedManager()->packages();
    return static_cast<int>(std::count_if(packages.begin(), packages.end(),
        [&](const VeskPackagePtr& package) { return package->section() == category; }));
}

void categoryFromHome(Tour& tour)
{
    TouchDriver& touch = tour.touch();
    const QString category = QStringLiteral("Utilities");
    double offsetBefore = 0;
    tour.step(QStringLiteral("category row"), [&] {
        tour.expect(touch.scrollToRow(1, category), QStringLiteral("a row \"Utilities\""));
        tour.expectRow(touch.rowWithText(1, category), category, QString::number(packagesIn(category)));
        offsetBefore = touch.table().contentOffset();
    });
    tour.step(QStringLiteral("package list"), [&] {
        tour.openRow(1, category, category);
        const int count = packagesIn(category);
        tour.expectHeader(0, QStringLiteral("UTILITIES  •  %1 PACKAGES").arg(count));
        tour.expectRowCount(0, count);
        tour.expectRow({ 0, 0 }, QStringLiteral("+1 Bell"), QStringLiteral("Belfry  •  2.0.1"));
        tour.expectBarButton(QStringLiteral("Reload"), Tour::Item::Enabled);
    });
    tour.step(QStringLiteral("scrolled to the end"), [&] {
        const int last = touch.table().layout().rowCount(0) - 1;
        tour.expect(touch.scrollToRow({ 0, last }), QStringLiteral("the last row"));
        tour.expect(!touch.rowText({ 0, last }).isNull(), QStringLiteral("the last row shows"));
        tour.note(QStringLiteral("row %1 \"%2\"").arg(last + 1).arg(touch.rowText({ 0, last })));
        tour.expect(
            touch.headerText(0).startsWith(QStringLiteral("UTILITIES")), QStringLiteral("the header is pinned"));
    });
    tour.step(QStringLiteral("back home"), [&] {
        tour.goBackTo(QStringLiteral("Welcome to Vesk"));
        tour.expect(
            qAbs(touch.table().contentOffset() - offsetBefore) < 1, QStringLiteral("it stands where it was left"));
        tour.expectRow(touch.rowWithText(1, category), category);
    });
}

} // namespace

void visitHome(Tour& tour)
{
    firstLaunch(tour);
    about(tour);
    pullToRefresh(tour);
    pinnedHeader(tour);
    categoryFromHome(tour);
}
