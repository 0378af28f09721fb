#include "OpenScreen.h"

#include "NavigationController.h"
#include "PackageDetailViewController.h"
#include "PackageListViewController.h"

namespace {

template <typename Records> bool hasRecord(const Records& records, int row)
{
    return row >= 0 && static_cast<size_t>(row) < records.size();
}

void push(ViewController& from, ViewController* screen)
{
    from.navigationController()->pushViewController(screen, NavigationController::Animation::Animated);
}

} // namespace

void openPackage(ViewController& from, const PackageVector& packages, int row, PackageInstaller& installer)
{
    if (hasRecord(packages, row))
        push(from, new PackageDetailViewController(packages[static_cast<size_t>(row)], installer));
}

void openCategory(ViewController& from, const std::vector<VeskCategoryPtr>& categories, int row, RepoManager& manager,
    PackageInstaller& installer)
{
    if (hasRecord(categories, row))
        push(from, new PackageListViewController(categories[static_cast<size_t>(row)]->name(), manager, installer));
}
