#pragma once

#include "RepoManager.h"
#include "TableViewController.h"

#include <functional>

// Refreshes all sources for a screen that has a refresh control and a "Reload" button at the right: the control spins
// and the button is disabled until the refresh has ended, then `reloadData` runs, unless the screen is gone by then.
void refreshCatalog(TableViewController& screen, RepoManager& manager, const std::function<void()>& reloadData);
