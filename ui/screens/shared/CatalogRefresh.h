#pragma once

#include "catalog/RepoManager.h"
#include "ui/kit/navigation/BarItems.h"
#include "ui/kit/table/TableViewController.h"

#include <functional>

// A new "Reload" button, which F5 presses too.
kit::BarButtonItem* reloadButton(const std::function<void()>& action);

// Gives the screen a "Reload" button at the right and a refresh control to pull, both of which do the same.
void addRefreshControls(kit::TableViewController& screen, const std::function<void()>& refreshPressed);

// Refreshes all sources for a screen that was given these: the control spins and the button is disabled until the
// refresh has ended, then `reloadData` runs, unless the screen is gone by then.
void refreshCatalog(kit::TableViewController& screen, RepoManager& manager, const std::function<void()>& reloadData);
