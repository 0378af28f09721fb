#include "ui/screens/browse/OpenPackage.h"

#include "ui/kit/navigation/NavigationController.h"
#include "ui/screens/browse/PackageDetailViewController.h"

void openPackage(kit::ViewController& from, const VeskPackagePtr& package, PackageInstaller& installer)
{
    if (package)
        from.navigationController()->pushViewController(
            new PackageDetailViewController(package, installer), kit::NavigationController::Animation::Animated);
}
