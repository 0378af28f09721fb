#include "ui/screens/browse/OpenCategory.h"

#include "ui/kit/navigation/NavigationController.h"
#include "ui/screens/browse/PackageListViewController.h"

void openCategory(
    kit::ViewController& from, const VeskCategoryPtr& category, RepoManager& manager, PackageInstaller& installer)
{
    if (category)
        from.navigationController()->pushViewController(
            new PackageListViewController(category->name(), manager, installer),
            kit::NavigationController::Animation::Animated);
}
