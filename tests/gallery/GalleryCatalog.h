#pragma once

#include "catalog/records/VeskPackage.h"

#include <vector>

// The packages of the gallery, always the same, from one source; some are installed, some of those have an update.
std::vector<VeskPackagePtr> galleryPackages(const VeskRepositoryPtr& repository);
// Packages whose texts are longer than anything has room for, or strange.
std::vector<VeskPackagePtr> excessivePackages(const VeskRepositoryPtr& repository);
// Packages in Chinese, Japanese, Korean, Arabic and Hebrew, and such that try to turn the direction of others.
std::vector<VeskPackagePtr> worldwidePackages(const VeskRepositoryPtr& repository);
