#pragma once

#include "actions/PackageInstaller.h"
#include "catalog/RepoManager.h"
#include "ui/kit/navigation/ViewController.h"

// What a tap on a category's row leads to: the list of its packages is pushed, animated, onto the stack of the screen
// that the row is on. Null, as for a row that tells that there are none, leads nowhere.
void openCategory(
    kit::ViewController& from, const VeskCategoryPtr& category, RepoManager& manager, PackageInstaller& installer);
