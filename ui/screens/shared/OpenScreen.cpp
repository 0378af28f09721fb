#include "ui/screens/shared/OpenScreen.h"

#include "ui/kit/navigation/NavigationController.h"
#include "ui/screens/browse/PackageDetailViewController.h"
#include "ui/screens/browse/PackageListViewController.h"

namespace {

template <typename Records> bool hasRecord(const Records& records, int row)
{
    return row >= 0 && static_cast<size_t>(row) < records.size();
}

void push(kit::ViewController& from, kit::ViewController* screen)
{
    from.navigationController()->pushViewController(screen, kit::NavigationController::Animation::Animated);
}

} // namespace

void openPackage(kit::ViewController& from, const PackageVector& packages, int row, PackageInstaller& installer)
{
    if (hasRecord(packages, row))
        push(from, new PackageDetailViewController(packages[static_cast<size_t>(row)], installer));
}

void openCategory(kit::ViewController& from, const std::vector<VeskCategoryPtr>& categories, int row,
    RepoManager& manager, PackageInstaller& installer)
{
    if (hasRecord(categories, row))
        push(from, new PackageListViewController(categories[static_cast<size_t>(row)]->name(), manager, installer));
}
