#pragma once

#include "catalog/records/PackageSelection.h"

class RepoManager;

// The catalog's packages that were installed when their index was parsed, by name. Packages installed on this machine
// but in no source's index are not among them. Costs one walk along the catalog and one along its order, not a sort.
PackageSelection installedPackagesSortedByName(RepoManager& manager);
