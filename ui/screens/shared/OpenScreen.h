#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/navigation/ViewController.h"

#include <vector>

// What a tap on a row leads to: the screen of the record at that row is pushed, animated, onto the stack of the screen
// that the row is on. A row beyond the last record, such as one that tells that there are none, leads nowhere.

void openPackage(kit::ViewController& from, const PackageVector& packages, int row, PackageInstaller& installer);
void openCategory(kit::ViewController& from, const std::vector<VeskCategoryPtr>& categories, int row,
    RepoManager& manager, PackageInstaller& installer);
