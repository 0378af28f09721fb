// Texts that a source may send to upset whoever draws them, in every place that shows one: none may leave its place,
// hide its neighbours, or be taken for markup.
#include "tests/gallery/Gallery.h"
#include "tests/gallery/HostileTexts.h"

namespace {

void fill(RepoManager& manager)
{
    manager.setPackages(hostilePackages(manager.repositories().front()));
}

// The first of that kind, in catalog order.
VeskPackagePtr hostile(RepoManager& manager, const QString& kind)
{
    const auto& packages = manager.packages().all();
    const auto found = std::find_if(packages.begin(), packages.end(),
        [&](const VeskPackagePtr& package) { return package->packageID().startsWith(kind); });
    return found == packages.end() ? nullptr : *found;
}

} // namespace

TEST_F(AtScale1, hostileList)
{
    fill(*manager);
    open(Tab::Changes);
    expectPicture(QStringLiteral("hostile-list"));
}

TEST_F(AtScale1, hostileCategory)
{
    fill(*manager);
    open(Tab::Categories, Low);
    tap(0, 3);
    expectPicture(QStringLiteral("hostile-category"));
}

TEST_F(AtScale1, hostileQueue)
{
    fill(*manager);
    for (const VeskPackagePtr& package : manager->packages())
        installer->enqueuePackage(package, QueueActionInstall);
    open(Tab::Manage);
    tap(0, 2);
    expectPicture(QStringLiteral("hostile-queue"));
}

TEST_F(AtScale1, hostileSources)
{
    for (const HostileText& text : hostileTexts())
        manager->repositories().push_back(
            VeskRepository::repositoryWithURLString(QStringLiteral("http://127.0.0.1/") + text.text, text.text));
    open(Tab::Manage);
    tap(0, 0);
    expectPicture(QStringLiteral("hostile-sources"));
}

// Titles are of one line: characters that break lines would reach over the buttons beside them.
TEST_F(AtScale1, hostilePackage)
{
    fill(*manager);
    open(Tab::Changes);
    showPackage(hostile(*manager, QStringLiteral("controls")));
    showPackage(hostile(*manager, QStringLiteral("accents")));
    expectPicture(QStringLiteral("hostile-package"));
}

TEST_F(AtScale1, hostileUninstallSheet)
{
    const VeskPackagePtr package = hostilePackages(manager->repositories().front())[5];
    package->setInstalledVersion(QStringLiteral("1"));
    manager->setPackages({ package });
    open(Tab::Manage, Low);
    tap(2, 0);
    expectPicture(QStringLiteral("hostile-sheet"));
}
