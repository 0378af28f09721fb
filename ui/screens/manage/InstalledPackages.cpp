#include "ui/screens/manage/InstalledPackages.h"

#include "catalog/RepoManager.h"

PackageSelection installedPackagesSortedByName(RepoManager& manager)
{
    PackageSelection installed = manager.installedPackages();
    manager.sortByName(installed);
    return installed;
}
