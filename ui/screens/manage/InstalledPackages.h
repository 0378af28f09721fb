#pragma once

#include "catalog/records/PackageList.h"

class RepoManager;

// The catalog's packages that were installed when their index was parsed, by name. Packages installed on this machine
// but in no source's index are not among them. Costs one walk along the order that the catalog keeps, not a sort.
PackageVector installedPackagesSortedByName(RepoManager& manager);
