#include "ui/screens/manage/InstalledPackages.h"

#include "catalog/RepoManager.h"

#include <algorithm>
#include <iterator>

PackageVector installedPackagesSortedByName(RepoManager& manager)
{
    const PackageVector& sorted = manager.packagesSortedByName();
    PackageVector installed;
    std::copy_if(sorted.begin(), sorted.end(), std::back_inserter(installed),
        [](const VeskPackagePtr& package) { return package->installed(); });
    return installed;
}
