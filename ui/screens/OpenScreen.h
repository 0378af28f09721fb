#pragma once

#include "PackageInstaller.h"
#include "RepoManager.h"
#include "ViewController.h"

#include <vector>

// What a tap on a row leads to: the screen of the record at that row is pushed, animated, onto the stack of the screen
// that the row is on. A row beyond the last record, such as one that tells that there are none, leads nowhere.

void openPackage(ViewController& from, const PackageVector& packages, int row, PackageInstaller& installer);
void openCategory(ViewController& from, const std::vector<VeskCategoryPtr>& categories, int row, RepoManager& manager,
    PackageInstaller& installer);
