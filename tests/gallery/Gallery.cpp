#include "tests/gallery/Gallery.h"

#include "tests/gallery/GalleryCatalog.h"
#include "tests/gallery/IconDrawing.h"
#include "ui/classic/ClassicPackageCell.h"
#include "ui/kit/view/Label.h"
#include "ui/screens/browse/PackageDetailViewController.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQuickItem>
#include <QTest>

#include <algorithm>
#include <iterator>

GoldenPictures* Gallery::s_pictures = nullptr;

Gallery::Gallery()
{
    manager->repositories().front()->setName(QStringLiteral("Gallery Source"));
}

Gallery::~Gallery()
{
    delegate.reset();
    turnLoop();
}

// MARK: the catalog

void Gallery::fillCatalog()
{
    manager->setPackages(galleryPackages(manager->repositories().front()));
}

void Gallery::fillCatalogExcessively()
{
    manager->setPackages(excessivePackages(manager->repositories().front()));
}

void Gallery::fillCatalogFromAroundTheWorld()
{
    manager->setPackages(worldwidePackages(manager->repositories().front()));
}

void Gallery::addSources()
{
    auto off = VeskRepository::repositoryWithURLString(
        QStringLiteral("http://127.0.0.1/quiet"), QStringLiteral("Quiet Corner"));
    off->setEnabled(false);
    manager->repositories().push_back(off);
    manager->repositories().push_back(RepoManager::defaultRepositories().front());
}

VeskPackagePtr Gallery::packageNamed(const QString& name) const
{
    const auto& packages = manager->packagesSortedByName();
    const auto found = std::find_if(
        packages.begin(), packages.end(), [&](const VeskPackagePtr& package) { return package->name() == name; });
    return found == packages.end() ? nullptr : *found;
}

void Gallery::queue(const QString& name, QueueAction action, QueueStatus status)
{
    installer->enqueuePackage(packageNamed(name), action);
    installer->queue().back()->setStatus(status);
}

void Gallery::queueEveryStatus(std::optional<QueueStatus> but)
{
    struct Entry
    {
        QString name;
        QueueAction action;
        QueueStatus status;
    };
    const Entry entries[] = {
        { QStringLiteral("Almanac"), QueueActionInstall, QueueStatusQueued },
        { QStringLiteral("Birdsong"), QueueActionInstall, QueueStatusDownloading },
        { QStringLiteral("Bookbinder"), QueueActionUpgrade, QueueStatusInstalling },
        { QStringLiteral("Cartwheel"), QueueActionInstall, QueueStatusReady },
        { QStringLiteral("Chalkboard"), QueueActionUninstall, QueueStatusComplete },
        { QStringLiteral("Driftwood"), QueueActionUpgrade, QueueStatusFailed },
    };
    for (const Entry& entry : entries)
        if (entry.status != but)
            queue(entry.name, entry.action, entry.status);
}

// MARK: the window

void Gallery::open(Tab tab, const QSize& size)
{
    delegate = std::make_unique<AppDelegate>(*manager, *installer);
    delegate->didFinishLaunchingWithOptions();
    if (!size.isEmpty())
        quickWindow().resize(size);
    quickWindow().requestActivate();
    ASSERT_TRUE(waitUntil([&] { return isOpen(size); }));
    select(tab);
}

bool Gallery::isOpen(const QSize& size) const
{
    const QSize shown = quickWindow().contentItem()->size().toSize();
    return quickWindow().isExposed() && quickWindow().isActive() && (size.isEmpty() || shown == size);
}

kit::TabBarController& Gallery::tabs() const
{
    return *qobject_cast<kit::TabBarController*>(delegate->window()->rootViewController());
}

kit::NavigationController& Gallery::stack() const
{
    return *qobject_cast<kit::NavigationController*>(tabs().selectedViewController());
}

void Gallery::select(Tab tab)
{
    tabs().setSelectedIndex(static_cast<int>(tab));
    turnLoop();
}

void Gallery::tap(int section, int row)
{
    shownTable().tapRow(section, row);
    turnLoop();
}

void Gallery::showPackage(const VeskPackagePtr& package)
{
    stack().pushViewController(
        new PackageDetailViewController(package, *installer), kit::NavigationController::Animation::None);
    turnLoop();
}

void Gallery::scrollTo(double offset)
{
    settle();
    shownTable().setContentOffset(offset);
}

void Gallery::scrollToEnd()
{
    settle();
    scrollTo(std::max(0.0, shownTable().contentHeight() - shownTable().height()));
}

void Gallery::press(Qt::Key key, int times)
{
    settle();
    for (int time = 0; time < times; ++time)
        QTest::keyClick(&quickWindow(), key);
}

void Gallery::pointAt(const QPoint& place)
{
    settle();
    QTest::mouseMove(&quickWindow(), place);
    turnLoop();
}

void Gallery::clickRightIntoField(const QString& clipboard)
{
    settle();
    QGuiApplication::clipboard()->setText(clipboard);
    const QQuickItem& field = *quickWindow().activeFocusItem();
    const QPointF place = field.mapToScene({ 20, field.height() / 2 });
    QTest::mouseClick(&quickWindow(), Qt::RightButton, Qt::NoModifier, place.toPoint());
    turnLoop();
}

// MARK: looking

// Icons as they would have come from the network, by the package's place in the order of names.
void Gallery::showIcons()
{
    const auto& packages = manager->packagesSortedByName();
    for (const kit::IndexPath& row : shownTable().indexPathsForVisibleRows()) {
        kit::TableViewCell* const cell = shownTable().cellForRow(row);
        const bool isPackage = qobject_cast<ClassicPackageCell*>(cell)
            || (row == kit::IndexPath{ 0, 0 } && dynamic_cast<PackageDetailViewController*>(&screen()));
        const auto found = std::find_if(packages.begin(), packages.end(),
            [&](const VeskPackagePtr& package) { return package->name() == cell->textLabel()->text(); });
        constexpr int EveryOneWithoutIcon = 6;
        const auto number = static_cast<int>(std::distance(packages.begin(), found));
        if (isPackage && found != packages.end() && number % EveryOneWithoutIcon != EveryOneWithoutIcon - 1)
            cell->imageView()->setImage(drawnIcon(number));
    }
}

void Gallery::settle()
{
    constexpr int EnoughTurns = 4;
    for (int turn = 0; turn < EnoughTurns; ++turn) {
        turnLoop();
        showIcons();
    }
}

void Gallery::expectTextsInTheirPlaces()
{
    constexpr double Rounding = 1;
    for (const QQuickItem* item : quickWindow().contentItem()->findChildren<QQuickItem*>()) {
        if (!item->inherits("QQuickText") || !item->isVisible())
            continue;
        const std::string text = item->property("text").toString().left(80).toStdString();
        EXPECT_LE(item->property("contentWidth").toDouble(), item->width() + Rounding) << text;
        EXPECT_LE(item->property("contentHeight").toDouble(), item->height() + Rounding) << text;
    }
}

void Gallery::expectPicture(const QString& name)
{
    settle();
    expectTextsInTheirPlaces();
    const QImage picture = quickWindow().grabWindow();
    settle();
    EXPECT_EQ(picture, quickWindow().grabWindow()) << name.toStdString() << " does not keep still";
    const QString wrong = s_pictures->check(name, picture);
    EXPECT_TRUE(wrong.isEmpty()) << wrong.toStdString();
}
