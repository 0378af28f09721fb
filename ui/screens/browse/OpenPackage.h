#pragma once

#include "actions/PackageInstaller.h"
#include "ui/kit/navigation/ViewController.h"

// What a tap on a package's row leads to: its screen is pushed, animated, onto the stack of the screen that the row is
// on. Null, as for a row that tells that there are none, leads nowhere.
void openPackage(kit::ViewController& from, const VeskPackagePtr& package, PackageInstaller& installer);
